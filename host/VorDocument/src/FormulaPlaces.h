// The elements of a set one by one, and where each may have formulas.
#pragma once

#include <VorFrames/VorFrames.h>

#include <array>

namespace VorSystem
{

/// One of the three formulas that an element may have, and its key in the stored form.
struct FormulaPlace {
    const char *key;
    const char *words;
    bool (*isIn)(BaseFrame &element);
    TreeEquations *(BaseFrame::*formula)();
    void (BaseFrame::*setFormula)(TreeEquations *);
};

inline const std::array<FormulaPlace, 3> kFormulaPlaces{{
    {"formular_measure", "measure formula",
     [](BaseFrame &element) { return element.measurementFormulaAvailable(); }, &BaseFrame::measurementFormula,
     &BaseFrame::setFormulaMeasurement},
    {"formular_level", "level formula", [](BaseFrame &element) { return element.formulaLevelAvailable(); },
     &BaseFrame::formulaLevel, &BaseFrame::setFormulaLevel},
    {"formular_spec", "formula", [](BaseFrame &element) { return element.elementType() == Element_Spec; },
     &BaseFrame::formulaSpec, &BaseFrame::setFormulaSpec},
}};

/// Kind after kind in the order in which the set seeks a name.
template<class Act>
void forEachElement(const FrameSet &set, Act act)
{
    const auto all = [&act](const auto &elements) {
        for (const auto &element : elements)
            act(static_cast<BaseFrame *>(element));
    };
    all(set.getFrameCenters());
    all(set.getFrameLinks());
    all(set.getFrameSegments());
    all(set.getFrameSpecs());
    all(set.getFrameMeasurementCharts());
    all(set.getFrames());
}

} // namespace VorSystem
