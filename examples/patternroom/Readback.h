// Wanted and read back: how far the pieces are from what is wanted of them.
#pragma once

#include "Garment.h"
#include "Table.h"

#include <optional>
#include <vector>

namespace room
{

/// What is wanted of an element, by the user, its formula or its link, and what the piece shows.
struct Readback {
    ElementPlace place;
    QString path;
    bool isLevel = false;
    QString formula; ///< that gives what is wanted; empty for none
    VorSystem::QListEx<double> wanted;
    VorSystem::QListEx<double> read;
    std::optional<int> onlySize; ///< in which something is wanted; without it that is so in all sizes

    /// Read back as wanted within a micrometre.
    bool isObeyed() const;
};

bool areObeyed(const std::vector<Readback> &driven);

/// The values of an element as its piece shows them, or as stored where it is tied to none.
VorSystem::QListEx<double> readMeasures(const Element &element, const VorSystem::PatternDocument &document);
VorSystem::QListEx<double> readLevels(const Element &element, const VorSystem::PatternDocument &document);

/// All elements that follow formulas, specs left out: nothing moves for them.
std::vector<Readback> drivenElements(const VorSystem::PatternDocument &document);
/// Rows of what is wanted, read back, and the difference; what stands before them.
void addRows(Table &table, const QString &what, const Readback &values, const LengthStyle &style);

/// What they are to be, and per size how far the piece is from that, under a heading; empty for none.
QString describe(const std::vector<Readback> &driven, const QString &heading,
                 const VorSystem::PatternDocument &document, const LengthStyle &style);

/// The result of the moves of elements that obeyed; empty where none of them is tied to a piece.
QString resultOfAll(const std::vector<Readback> &driven, const VorSystem::PatternDocument &document);

} // namespace room
