// The formulas of a set in their stored form: one record for each element that has any.
#pragma once

namespace VorSystem
{

class BaseFrame;
class FrameSet;
class XJsonArray;
class XJsonObject;

/// Appends the record of the element; nothing for an element without a formula that others can see.
void appendFormulaRecord(XJsonArray &records, BaseFrame &element);

/// Gives the element that the record names its formulas. A record that names no element is passed over.
void readFormulaRecord(const XJsonObject &record, FrameSet &set);

} // namespace VorSystem
