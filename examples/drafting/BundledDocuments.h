// The documents that come with the project.
#pragma once

#include <QString>

#include <memory>
#include <vector>

namespace VorSystem
{
class PatternDocument;
}

namespace drafting
{

struct BundledDocument {
    QString fileName;
    std::unique_ptr<VorSystem::PatternDocument> document;
};

/// Bodice, sleeve, trousers and skirt in seven sizes, drafted anew.
std::vector<BundledDocument> bundledDocuments();

} // namespace drafting
