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

using Stored = QListEx<double>;

/// A leaf: its stored values, or the one value that it has in all sizes.
struct Leaf {
    const Stored *stored = nullptr;
    double constant = 0.0;
};

/// Walks a formula with a row of values, one per size, where a plain walk has one value.
///
/// A row lies above those of the operations around it, so that a flat sum needs one row however long it is.
class RowWalk
{
public:
    explicit RowWalk(int sizes) : mSizes(sizes) {}

    /// Puts the values of node into the row. False when the sizes must be walked one by one, since a walk
    /// could end in a failure that one size meets and another does not, or could not be finished at all.
    bool walk(const ElementEquation *node, int row, int depth);
    const double *row(int index) const { return mRows.constData() + index * mSizes; }

private:
    enum class Outcome { Taken, NoLeaf, Refused };

    Outcome takeLeaf(const ElementEquation *node, Leaf &leaf) const;
    Outcome takeReference(const ValuesAccordingSizes *values, Leaf &leaf) const;
    void combine(ElemContent kind, int row, const Leaf &right);
    double *rowForWriting(int index)
    {
        if (mRows.size() < (index + 1) * mSizes)
            mRows.resize((index + 1) * mSizes);
        return mRows.data() + index * mSizes;
    }

    int mSizes;
    QVarLengthArray<double, 128> mRows;
};

/// left = left kind right, where right is asked for the value of a size.
template<class Right>
void combineRow(ElemContent kind, double *left, int sizes, Right right)
{
    switch (kind) {
    case ElemAdd:
        for (int size = 0; size < sizes; ++size)
            left[size] += right(size);
        break;
    case ElemSubtract:
        for (int size = 0; size < sizes; ++size)
            left[size] -= right(size);
        break;
    case ElemMultiply:
        for (int size = 0; size < sizes; ++size)
            left[size] *= right(size);
        break;
    default:
        for (int size = 0; size < sizes; ++size) {
            const double divisor = right(size);
            left[size] = countsAsZero(divisor) ? 0.0 : left[size] / divisor;
        }
        break;
    }
}

bool RowWalk::walk(const ElementEquation *node, int row, int depth)
{
    if (depth > kMaxFormulaDepth)
        return false;

    Leaf leaf;
    switch (takeLeaf(node, leaf)) {
    case Outcome::Refused: return false;
    case Outcome::Taken:
        if (leaf.stored != nullptr)
            std::copy_n(leaf.stored->constBegin(), mSizes, rowForWriting(row));
        else
            std::fill_n(rowForWriting(row), mSizes, leaf.constant);
        return true;
    case Outcome::NoLeaf: break;
    }
    if (!walk(node->sonLeft, row, depth + 1))
        return false;
    if (node->contents == ElemParenthesis)
        return true;

    Leaf right;
    switch (takeLeaf(node->sonRight, right)) {
    case Outcome::Refused: return false;
    case Outcome::Taken:
        if (depth == kMaxFormulaDepth)
            return false;
        combine(node->contents, row, right);
        return true;
    case Outcome::NoLeaf: break;
    }
    if (!walk(node->sonRight, row + 1, depth + 1))
        return false;
    const double *const above = this->row(row + 1);
    combineRow(node->contents, rowForWriting(row), mSizes, [above](int size) { return above[size]; });
    return true;
}

RowWalk::Outcome RowWalk::takeLeaf(const ElementEquation *node, Leaf &leaf) const
{
    if (node == nullptr)
        return Outcome::Refused;

    switch (node->contents) {
    case ElemValue: leaf.constant = node->value; return Outcome::Taken;
    case ElemMeasure:
        return node->element == nullptr ? Outcome::Refused
                                        : takeReference(node->element->getMeasureBySizes(), leaf);
    case ElemLevel:
        return node->element == nullptr ? Outcome::Refused
                                        : takeReference(node->element->getLevelBySizes(), leaf);
    case ElemParenthesis:
    case ElemAdd:
    case ElemSubtract:
    case ElemMultiply:
    case ElemDivide: return Outcome::NoLeaf;
    case ElemNone:
    default: return Outcome::Refused;
    }
}

RowWalk::Outcome RowWalk::takeReference(const ValuesAccordingSizes *values, Leaf &leaf) const
{
    if (values == nullptr || values->mValues.isEmpty())
        return Outcome::Taken; // 0.0 in every size
    if (values->mValues.size() < mSizes)
        return Outcome::Refused;
    leaf.stored = &values->mValues;
    return Outcome::Taken;
}

void RowWalk::combine(ElemContent kind, int row, const Leaf &right)
{
    double *const left = rowForWriting(row);
    if (right.stored == nullptr) {
        combineRow(kind, left, mSizes, [constant = right.constant](int) { return constant; });
        return;
    }
    const Stored::const_iterator values = right.stored->constBegin();
    combineRow(kind, left, mSizes, [values](int size) { return values[size]; });
}

} // namespace

void evaluateSizes(TreeEquations &formula, QListEx<double> &values)
{
    const int sizes = values.size();
    RowWalk walk(sizes);
    if (sizes > 1 && walk.walk(formula.root, 0, 1)) {
        std::copy_n(walk.row(0), sizes, values.begin());
        return;
    }
    for (int size = 0; size < sizes; ++size)
        values[size] = formula.evaluate(static_cast<short>(size));
}

} // namespace VorSystem
