// A row of a measurement chart: values per size that are typed in or computed.
#pragma once

#include <VorFrames/BaseFrame.h>

namespace VorSystem
{

/// A chart: values that stay as typed until a formula replaces them; stored by a reevaluation only in mode 1.
///
/// Its formula is reached by accessors of its own, so everything that asks for the formulas of any element
/// does not see it: it is not stored with the document, not rebound and not counted as a mention by defined
/// elements.
class VORFRAMES_EXPORT FrameMeasurementChart : public BaseFrame
{
public:
    /// A chart in no set, without values and formula.
    explicit FrameMeasurementChart(const QString &name);
    /// Copy every field as it stands: set, neighbours and formulas are then shared; see BaseFrame.
    ///@{
    FrameMeasurementChart(const FrameMeasurementChart &other) = default;
    FrameMeasurementChart &operator=(const FrameMeasurementChart &other) = default;
    ///@}

    XJsonObject toJson() const override;
    void fromJson(const XJsonObject &object) override;
    ~FrameMeasurementChart() override;
    eElementFrameType elementType() override;
    ValuesAccordingSizes *getMeasureBySizes() override;
    /// Refuses levels, with a message. A list replaces the values; true with or without one.
    bool applyValues(const QListEx<double> *measures, const QListEx<double> *levels, bool *refused) override;
    /// Writes the nest's value. An empty chart has none: giving it one ends the program.
    bool applyValues(const double *measure, const double *level, bool *refused) override;
    /// False: a chart has no geometry.
    bool evaluateMeasuresObject(const GradationData *gradation, QListEx<double> &values) override;
    /// Null: a chart has no geometry.
    ControlBase *objectControlCorresponding() override;
    /// True when the values by the formula, or the present ones where there is none, differ in count or
    /// number from those stored; only mode 1 stores them. A size without a value reads 0.0. Raises
    /// AssertionError without a gradation.
    bool reevaluate(eFrameReevaluate mode) override;
    /// True when everything that the formula names is defined, so always without a formula. A chart that
    /// hangs on itself does not stand in its own way. Raises AssertionError for an unresolved reference.
    bool isDefinedInDocument() override;
    /// True, also while a formula names the chart.
    ///@{
    bool canBeDestroyed(bool report) override;
    bool canBeDestroyedInBatch() override;
    ///@}

    /// The value by the formula, the stored one without a formula. Always true. Takes no -1 without a
    /// formula: an index outside the list ends the program.
    bool evaluatesMeasurementChart(short size, double &value);
    /// The formula, owned by the chart; null when there is none.
    TreeEquations *formulaMeasurementChart() const { return mFormula; }
    /// Takes ownership and deletes the formula it replaces; null removes it.
    void setFormulaMeasurementChart(TreeEquations *formula);

protected:
    ControlBase *skeletonElementPointedAtUs(ControlSkeleton *skeleton) override;

private:
    TreeEquations *mFormula = nullptr; ///< owned
    ValuesAccordingSizes mMeasures;
};

} // namespace VorSystem
