// A piece in its stored form, without its skeletons.
#pragma once

#include "JsonPlace.h"

#include <memory>

namespace VorSystem
{

class CDbGroupObject;
class GradationData;

/// Vectors are named by identity, lines by their place in the list of lines.
QJsonObject pieceToJson(const CDbGroupObject &piece, const GradationData *gradation);

/// Raises JsonFault for what is no piece: identities that repeat or are not there, darts that do not fit.
std::unique_ptr<CDbGroupObject> pieceFromJson(const JsonPlace &stored, const GradationData *gradation);

} // namespace VorSystem
