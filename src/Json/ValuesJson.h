// Values per size in their stored form.
#pragma once

namespace VorSystem
{

class XJsonObject;
struct ValuesAccordingSizes;

/// The values with the position of their nest, under "measures" and "index_medium".
XJsonObject valuesToJson(const ValuesAccordingSizes &measures);
/// The same with levels beside them, under "levels". They share the measures' nest; their own is not stored.
XJsonObject valuesToJson(const ValuesAccordingSizes &measures, const ValuesAccordingSizes &levels);

/// Appends what object holds to the values. A list that object lacks stays as it is, its nest included; a
/// nest beyond the range of a short reads as 0.
void valuesFromJson(const XJsonObject &object, ValuesAccordingSizes &measures);
/// The same for both lists, which take the one stored nest.
void valuesFromJson(const XJsonObject &object, ValuesAccordingSizes &measures, ValuesAccordingSizes &levels);

} // namespace VorSystem
