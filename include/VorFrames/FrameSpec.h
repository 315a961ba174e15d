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
    explicit FrameSpec(const QString &name);
    FrameSpec(const FrameSpec &other) = default;
    FrameSpec &operator=(const FrameSpec &other) = default;

    XJsonObject toJson() const override;
    void fromJson(const XJsonObject &object) override;
    ~FrameSpec() override;
    eElementFrameType elementType() override;
    ValuesAccordingSizes *getMeasureBySizes() override;
    TreeEquations *formulaSpec() override;
    void setFormulaSpec(TreeEquations *formula) override;
    ControlBase *objectControlCorresponding() override;
    bool reevaluate(eFrameReevaluate mode) override;
    bool isDefinedInDocument() override;
    bool canBeDestroyed(bool report) override;
    bool canBeDestroyedInBatch() override;

    /// The value by the formula, 0.0 without one. Always true.
    bool evaluatesSpec(short size, double &value);

protected:
    ControlBase *skeletonElementPointedAtUs(ControlSkeleton *skeleton) override;

private:
    TreeEquations *mFormula = nullptr; ///< owned
    ValuesAccordingSizes mMeasures;
};

} // namespace VorSystem
