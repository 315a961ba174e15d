// The formulas of a set in their stored form.
//
// A record goes by the plain name of its element, so the formulas of two elements of one name all arrive at
// the first of them. What a formula refers to is stored by full name.

#include "FormulaRecordsJson.h"

#include <VorFrames/FrameSegment.h>
#include <VorFrames/FrameSet.h>
#include <VorFrames/TreeEquations.h>
#include <VorJson/VorJson.h>

#include <array>
#include <memory>
#include <utility>

namespace VorSystem
{

namespace
{

// One of the three formulas that an element may have.
struct FormulaPlace {
    QString key;
    bool (*isIn)(BaseFrame &element); // an element without the place leaves a formula to its giver
    TreeEquations *(BaseFrame::*formula)();
    void (BaseFrame::*setFormula)(TreeEquations *);
};

const std::array<FormulaPlace, 3> &formulaPlaces()
{
    static const std::array<FormulaPlace, 3> places{{
        {QStringLiteral("formular_measure"),
         [](BaseFrame &element) { return element.measurementFormulaAvailable(); },
         &BaseFrame::measurementFormula, &BaseFrame::setFormulaMeasurement},
        {QStringLiteral("formular_level"), [](BaseFrame &element) { return element.formulaLevelAvailable(); },
         &BaseFrame::formulaLevel, &BaseFrame::setFormulaLevel},
        {QStringLiteral("formular_spec"),
         [](BaseFrame &element) { return element.elementType() == Element_Spec; }, &BaseFrame::formulaSpec,
         &BaseFrame::setFormulaSpec},
    }};
    return places;
}

// Null where the value is neither a text nor an object, and for a text that is no formula.
std::unique_ptr<TreeEquations> formulaFromJson(const XJsonValue &value, FrameSet &set)
{
    if (value.isString())
        return std::unique_ptr<TreeEquations>(TreeEquations::parse(value.toString(), &set, true));
    if (!value.isObject())
        return nullptr;
    auto formula = std::make_unique<TreeEquations>();
    formula->fromJson(value.toObject(), &set);
    return formula;
}

// The element owns the formula from the call on, also when the call ends in an error.
void handOver(std::unique_ptr<TreeEquations> formula, BaseFrame &element, const FormulaPlace &place)
{
    // A segment tries whether its set can be ordered, and when that fails, it leaves a formula that it had
    // before to its holder: here to nobody but this reading, which brought it with an earlier record.
    std::unique_ptr<TreeEquations> replaced;
    if (element.elementType() == Element_Segment) {
        replaced.reset(element.measurementFormula());
        static_cast<FrameSegment &>(element).forgetFormula();
    }
    (element.*place.setFormula)(formula.release());
}

} // namespace

void appendFormulaRecord(XJsonArray &records, BaseFrame &element)
{
    XJsonObject record;
    for (const FormulaPlace &place : formulaPlaces()) {
        if (const TreeEquations *const formula = (element.*place.formula)())
            record.insert(place.key, formula->toJson());
    }
    if (record.isEmpty())
        return;
    record.insert(QStringLiteral("name"), element.name());
    records.append(record);
}

void readFormulaRecord(const XJsonObject &record, FrameSet &set)
{
    const QString name = record.value(QStringLiteral("name")).toString();
    BaseFrame *const element = set.foundElementAccordingName(name, true);
    if (element == nullptr)
        return;
    for (const FormulaPlace &place : formulaPlaces()) {
        std::unique_ptr<TreeEquations> formula = formulaFromJson(record.value(place.key), set);
        if (formula != nullptr && place.isIn(*element))
            handOver(std::move(formula), *element, place);
    }
}

} // namespace VorSystem
