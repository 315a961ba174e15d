// The road of a change: ask, apply, bring what depends on it into line.
#pragma once

#include "Readback.h"
#include "Snapshot.h"

#include <optional>

namespace room
{

/// What a change asks of an element, in centimetres: single values for the nest alone, or lists for all
/// sizes.
struct Wish {
    ElementPlace element;
    std::optional<double> measure;
    std::optional<double> level;
    std::optional<VorSystem::QListEx<double>> measures;
    std::optional<VorSystem::QListEx<double>> levels;

    bool hasLists() const { return measures || levels; }
};

/// The values of an element in all sizes, as a wish would have them.
struct Goal {
    VorSystem::QListEx<double> measures;
    VorSystem::QListEx<double> levels; ///< empty for an element without levels
};

/// What came of it.
struct Outcome {
    bool isDeclined = false; ///< the user said no to locked pieces; nothing was touched
    bool isRefused = false;  ///< the library did not even try
    bool isTaken = false;    ///< the library answers that the values were taken
    QStringList messages;    ///< what the library said, when it was a rehearsal
    Readback measure;        ///< of the element itself, read from the piece after everything came into line
    Readback level;          ///< empty for an element without levels
    Difference difference;
    std::vector<Readback> driven; ///< every element that follows a formula
    std::vector<Readback> shares; ///< the frames of a link, when it was a rehearsal

    /// Taken, and read back as wanted within a micrometre, and so is whatever follows a formula; no formula
    /// was lost.
    bool isObeyed() const;
};

/// Would such a level make a frame the origin of its center?
bool makesOrigin(double level);

/// What a wish asks of its element.
Goal goalOf(const Element &target, const VorSystem::PatternDocument &document, const Wish &wish);

/// May the elements move? Where one is tied to a locked piece, the library asks the user, once at the most.
bool mayMove(const VorSystem::PatternDocument &document, const std::vector<ElementPlace> &elements);

/// Takes the road in the document itself. concerned are further elements that it is known to move: where one
/// of them or the target is tied to a locked piece, the library asks the user once, before anything moves.
Outcome takeTheRoad(VorSystem::PatternDocument &document, const Wish &wish,
                    const std::vector<ElementPlace> &concerned = {});

/// Takes it in a copy; the document is not touched.
Outcome rehearse(const VorSystem::PatternDocument &document, const Wish &wish);

/// Rehearses and, when the copy obeys, takes the road: a document that would not obey is not touched.
Outcome change(VorSystem::PatternDocument &document, const Wish &wish);

/// Brings all sets into line, and again until nothing changes: what moves late may be measured by an element
/// that was read early. Answers what follows formulas. Where a piece does not follow at once that is the end:
/// in a second round a link would pull along what its own rule did not move.
std::vector<Readback> settle(const VorSystem::PatternDocument &document);

/// Why a change fails, for the user: the result of each move, pass by pass, and what would work.
QString explain(const VorSystem::PatternDocument &document, const Wish &wish, const Outcome &failed,
                const LengthStyle &style);

/// The sentence, and what the library said when it was tried on a copy.
QString withMessages(QString sentence, QStringList messages);

} // namespace room
