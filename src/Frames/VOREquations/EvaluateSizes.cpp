// The value of a formula in all sizes at once.

#include "VOREquations/EvaluateSizes.h"

#include "ZeroTest.h"

#include <VorFrames/BaseFrame.h>
#include <VorFrames/ElementEquation.h>
#include <VorFrames/FormulaLimits.h>
#include <VorFrames/TreeEquations.h>

#include <QVarLengthArray>
#include <algorithm>

namespace VorSystem
{

namespace
{

/// A formula as a list of steps over rows, a row being one value per size: a leaf puts a row on the stack, an
/// operation replaces the two on top by one.
class RowProgram
{
public:
    explicit RowProgram(int sizes) : mSizes(sizes) {}

    /// False when the sizes must be walked one by one, since a walk could end in a failure that one size
    /// meets and another does not, or could not be finished at all.
    bool take(const ElementEquation *node, int depth);
    void run(QListEx<double> &values) const;

private:
    struct Step {
        ElemContent kind; // ElemValue for every leaf
        double constant;
        const QListEx<double> *stored; // of a leaf that is no constant
    };

    bool takeReference(const ValuesAccordingSizes *stored);
    void takeLeaf(double constant, const QListEx<double> *stored);
    void combine(ElemContent kind, double *left, const double *right) const;

    int mSizes;
    int mHeight = 0;
    int mGreatestHeight = 0;
    QVarLengthArray<Step, 32> mSteps;
};

bool RowProgram::take(const ElementEquation *node, int depth)
{
    if (node == nullptr || depth > kMaxFormulaDepth)
        return false;

    switch (node->contents) {
    case ElemValue: takeLeaf(node->value, nullptr); return true;
    case ElemMeasure: return node->element != nullptr && takeReference(node->element->getMeasureBySizes());
    case ElemLevel: return node->element != nullptr && takeReference(node->element->getLevelBySizes());
    case ElemParenthesis: return take(node->sonLeft, depth + 1);
    case ElemAdd:
    case ElemSubtract:
    case ElemMultiply:
    case ElemDivide:
        if (!take(node->sonLeft, depth + 1) || !take(node->sonRight, depth + 1))
            return false;
        mSteps.append({node->contents, 0.0, nullptr});
        --mHeight;
        return true;
    case ElemNone:
    default: return false;
    }
}

bool RowProgram::takeReference(const ValuesAccordingSizes *stored)
{
    if (stored == nullptr || stored->mValues.isEmpty()) {
        takeLeaf(0.0, nullptr);
        return true;
    }
    if (stored->mValues.size() < mSizes)
        return false;
    takeLeaf(0.0, &stored->mValues);
    return true;
}

void RowProgram::takeLeaf(double constant, const QListEx<double> *stored)
{
    mSteps.append({ElemValue, constant, stored});
    mGreatestHeight = std::max(mGreatestHeight, ++mHeight);
}

void RowProgram::run(QListEx<double> &values) const
{
    QVarLengthArray<double, 128> rows(mGreatestHeight * mSizes);
    double *top = rows.data(); // one row above the stack
    for (const Step &step : mSteps) {
        if (step.kind != ElemValue) {
            top -= mSizes;
            combine(step.kind, top - mSizes, top);
            continue;
        }
        if (step.stored != nullptr)
            std::copy_n(step.stored->constBegin(), mSizes, top);
        else
            std::fill_n(top, mSizes, step.constant);
        top += mSizes;
    }
    std::copy_n(rows.constData(), mSizes, values.begin());
}

void RowProgram::combine(ElemContent kind, double *left, const double *right) const
{
    switch (kind) {
    case ElemAdd:
        for (int size = 0; size < mSizes; ++size)
            left[size] += right[size];
        break;
    case ElemSubtract:
        for (int size = 0; size < mSizes; ++size)
            left[size] -= right[size];
        break;
    case ElemMultiply:
        for (int size = 0; size < mSizes; ++size)
            left[size] *= right[size];
        break;
    default:
        for (int size = 0; size < mSizes; ++size)
            left[size] = countsAsZero(right[size]) ? 0.0 : left[size] / right[size];
        break;
    }
}

} // namespace

void evaluateSizes(TreeEquations &formula, QListEx<double> &values)
{
    const int sizes = values.size();
    RowProgram program(sizes);
    if (sizes > 1 && program.take(formula.root, 1)) {
        program.run(values);
        return;
    }
    for (int size = 0; size < sizes; ++size)
        values[size] = formula.evaluate(static_cast<short>(size));
}

} // namespace VorSystem
