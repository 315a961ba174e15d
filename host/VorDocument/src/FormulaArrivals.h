// Which formulas of a stored set arrived at an element, and why the others did not.
#pragma once

#include <QString>

class QJsonArray;
class QJsonObject;

namespace VorSystem
{

class FrameSet;
class Told;

/// Compares the stored records with the set that was read from them.
///
/// A formula given as text that names an element which is not there has arrived with a hole in it: it has no
/// value and no stored form. It is taken off its element, and told.
void tellFormulasThatDidNotArrive(const QJsonArray &records, FrameSet &set, Told &told);

/// What in a record keeps its set from being read, for set with all elements and without that record.
QString whyFormulaFails(const QJsonObject &record, const FrameSet &set);

} // namespace VorSystem
