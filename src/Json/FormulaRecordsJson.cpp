// The formulas of a set in their stored form.
//
// A record goes by the plain name of its element, so the formulas of two elements of one name all arrive at
// the first of them. What a formula refers to is stored by full name.

#include "FormulaRecordsJson.h"

#include "NamesWhileRead.h"

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

// A segment tries at once whether its set can be ordered, and tells the user when it cannot.
void giveToSegment(FrameSegment &segment, std::unique_ptr<TreeEquations> formula, NamesWhileRead &names)
{
    // An earlier record may have given the segment a formula, which nobody but this reading knows.
    const std::unique_ptr<TreeEquations> replaced(segment.measurementFormula());
    segment.forgetFormula();

    names.withdraw();
    segment.setFormulaMeasurement(formula.release());
    names.renew();
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

void readFormulaRecord(const XJsonObject &record, FrameSet &set, NamesWhileRead &names)
{
    const QString name = record.value(QStringLiteral("name")).toString();
    for (const FormulaPlace &place : formulaPlaces()) {
        // Sought for each formula anew: the user may have been told something about the one before.
        BaseFrame *const element = set.foundElementAccordingName(name, true);
        if (element == nullptr)
            return;
        std::unique_ptr<TreeEquations> formula = formulaFromJson(record.value(place.key), set);
        if (formula == nullptr || !place.isIn(*element))
            continue;
        // The element owns the formula from the call on, also when the call ends in an error.
        if (element->elementType() == Element_Segment)
            giveToSegment(*static_cast<FrameSegment *>(element), std::move(formula), names);
        else
            (element->*place.setFormula)(formula.release());
    }
}

} // namespace VorSystem
