// A value computed from other elements, without geometry.
#pragma once

#include <VorFrames/BaseFrame.h>

namespace VorSystem
{

/// A spec: its values come from its formula alone and are stored only by a reevaluation in mode 1.
///
/// It is defined when all elements that its formula names are defined.
class VORFRAMES_EXPORT FrameSpec : public BaseFrame
{
public:
    /// A spec in no set, without values and formula.
    explicit FrameSpec(const QString &name);
    /// Copy every field as it stands: set, neighbours and formulas are then shared; see BaseFrame.
    ///@{
    FrameSpec(const FrameSpec &other) = default;
    FrameSpec &operator=(const FrameSpec &other) = default;
    ///@}

    XJsonObject toJson() const override;
    void fromJson(const XJsonObject &object) override;
    ~FrameSpec() override;
    eElementFrameType elementType() override;
    ValuesAccordingSizes *getMeasureBySizes() override;
    TreeEquations *formulaSpec() override;
    void setFormulaSpec(TreeEquations *formula) override;
    /// Null: a spec has no geometry.
    ControlBase *objectControlCorresponding() override;
    /// True when the values by the formula, 0.0 each without one, differ in count or number from those
    /// stored; only mode 1 stores them. Raises AssertionError without a gradation.
    bool reevaluate(eFrameReevaluate mode) override;
    /// True when everything that the formula names is defined, so always without a formula. A spec that hangs
    /// on itself does not stand in its own way. Raises AssertionError for an unresolved reference.
    bool isDefinedInDocument() override;
    /// True, also while a formula names the spec.
    ///@{
    bool canBeDestroyed(bool report) override;
    bool canBeDestroyedInBatch() override;
    ///@}

    /// The value by the formula in a size, -1 being the nest; 0.0 without a formula. Always true.
    bool evaluatesSpec(short size, double &value);

protected:
    ControlBase *skeletonElementPointedAtUs(ControlSkeleton *skeleton) override;

private:
    TreeEquations *mFormula = nullptr; ///< owned
    ValuesAccordingSizes mMeasures;
};

} // namespace VorSystem
