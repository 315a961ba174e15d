// Single moves: what a wish asks of each body on a piece, and what comes of it when it is made alone.
#pragma once

#include "Road.h"

namespace room
{

/// An element that is tied to a piece, and the values that it is to take.
struct Move {
    ElementPlace element;
    QString path;
    Goal goal;
    bool isMeasure = true;    ///< the measure is what was asked for, else the level
    bool isNestAlone = false; ///< the other sizes are to go along with the nest
};

/// What came of a move.
struct Moved {
    VorSystem::eMsgConvergence result = VorSystem::Msg_NothingDone;
    VorSystem::QListEx<double> gaps; ///< how far it was off, in centimetres, after each rebuild
};

/// The moves that a wish asks for: one for each frame of a link, one for a frame or segment, none for what
/// only keeps a number.
std::vector<Move> movesOf(const VorSystem::PatternDocument &document, const Wish &wish);

/// Makes a move in a copy, without what follows from it.
Moved tryMove(const VorSystem::PatternDocument &document, const Move &move);

/// The result of a move in words.
QString inWords(VorSystem::eMsgConvergence result);

} // namespace room
