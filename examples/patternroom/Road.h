// The road of a change: ask, apply, bring what depends on it into line.
#pragma once

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
};

/// An element that follows a formula: what that gives, and what the piece shows.
struct Driven {
    QString path;
    bool isLevel = false;
    QString formula;
    VorSystem::QListEx<double> wanted;
    VorSystem::QListEx<double> read;
};

/// What came of it.
struct Outcome {
    bool isDeclined = false;  ///< the user said no to locked pieces; nothing was touched
    bool isRefused = false;   ///< the library did not even try
    bool isTaken = false;     ///< the library answers that the values were taken
    QStringList messages;     ///< what the library said, when it was a rehearsal
    bool isNestAlone = false; ///< the other sizes go along with the nest: nothing is wanted of them
    bool isLevelWish = false;
    int nest = 0;
    VorSystem::QListEx<double> wantedMeasures;
    VorSystem::QListEx<double> wantedLevels;
    VorSystem::QListEx<double> readMeasures; ///< from the piece, after everything came into line
    VorSystem::QListEx<double> readLevels;
    Difference difference;
    std::vector<Driven> driven; ///< every element of the set that follows a formula

    /// How far what is read back is from what is wanted, where something is wanted.
    double largestGap() const;
    /// Taken, and read back as wanted within a micrometre, and so is whatever follows a formula.
    bool isObeyed() const;
};

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

/// Why a change fails, for the user: the result of the move, pass by pass, and what would work.
QString explain(const VorSystem::PatternDocument &document, const Wish &wish, const LengthStyle &style);

/// All elements of a set that follow formulas, specs left out: nothing moves for them.
std::vector<Driven> drivenElements(const VorSystem::PatternDocument &document,
                                   const VorSystem::FrameSet *set);
/// Their formulas, and per size how far the piece is from them; empty for none.
QString describe(const std::vector<Driven> &driven, const VorSystem::PatternDocument &document,
                 const LengthStyle &style);

/// Wanted, read back and difference per size.
QString report(const Outcome &outcome, const Element &target, const VorSystem::PatternDocument &document,
               const LengthStyle &style);

/// The values of an element as its piece shows them, or as stored where it is tied to none.
VorSystem::QListEx<double> readMeasures(const Element &element, const VorSystem::PatternDocument &document);
VorSystem::QListEx<double> readLevels(const Element &element, const VorSystem::PatternDocument &document);

/// The result of a move in words.
QString inWords(VorSystem::eMsgConvergence result);

} // namespace room
