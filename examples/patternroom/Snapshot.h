// What a document holds at one moment, and what differs between two moments.
#pragma once

#include "Garment.h"

#include <vector>

namespace room
{

/// The values of an element; empty lists for a class without such values.
struct ElementValues {
    ElementPlace place;
    QString path;
    VorSystem::QListEx<double> measures;
    VorSystem::QListEx<double> levels;
    QString formula;
    QString levelFormula;
};

/// The places of the anchors of a piece, size by size.
struct PiecePlaces {
    QString name;
    bool isLocked = false;
    std::vector<std::vector<VorSystem::GeoPoint2D>> sizes;
};

struct Snapshot {
    std::vector<ElementValues> elements;
    std::vector<PiecePlaces> pieces;
};

/// Values as they are stored; the pieces as they stand.
Snapshot snapshotOf(const VorSystem::PatternDocument &document);

/// An element whose values differ; a piece whose anchors do, with the farthest way per size in centimetres.
struct MovedElement {
    ElementPlace place;
    QString path;
    bool isLevel = false;
    VorSystem::QListEx<double> before;
    VorSystem::QListEx<double> after;
};
struct MovedPiece {
    QString name;
    bool isLocked = false;
    VorSystem::QListEx<double> farthest;
};
struct LostFormula {
    ElementPlace place;
    QString path;
    bool isLevel = false;
    QString formula;

    /// "Front:Waist (level) = Measure(Waist) / 4"
    QString shown() const;
};
struct Difference {
    std::vector<MovedElement> elements;
    std::vector<MovedPiece> pieces;
    std::vector<LostFormula> lostFormulas;
};

/// Both are of one document, before and after something happened to it.
Difference differenceOf(const Snapshot &before, const Snapshot &after);

/// Tables of what moved and how far; empty for nothing.
QString describe(const Difference &difference, const VorSystem::PatternDocument &document,
                 const LengthStyle &style);

/// Formulas that were given up, a line each.
QString describe(const std::vector<LostFormula> &lost);

/// Every value less its counterpart.
VorSystem::QListEx<double> minus(const VorSystem::QListEx<double> &a, const VorSystem::QListEx<double> &b);
double largestOf(const VorSystem::QListEx<double> &differences);

} // namespace room
