// The text of a formula, as a user would type it.

#include "Preconditions.h"
#include "VOREquations/EquationsUnit.h"
#include "VOREquations/FormulaKeywords.h"

#include <VorCore/VorCore.h>
#include <VorFrames/BaseFrame.h>
#include <VorFrames/ElementEquation.h>

#include <QCoreApplication>
#include <QVarLengthArray>

namespace VorSystem
{

QString measureKeyword()
{
    return QCoreApplication::translate("VorSystem::Frames", "Measure");
}

QString levelKeyword()
{
    return QCoreApplication::translate("VorSystem::Frames", "Level");
}

namespace
{

/// A constant in the user's locale, a length in his unit.
QString constantText(const ElementEquation &node)
{
    const VorLocale locale;
    const double shown =
        node.implicitUnit == ImplicitLength ? locale.lengthUnit().fromCentimeter(node.value) : node.value;
    return locale.formatNumber(shown, QFlags<VorLocale::Option>());
}

QString referenceText(const QString &keyword, BaseFrame *element)
{
    const QString name = element != nullptr ? element->fullName() : QString();
    return keyword + QLatin1Char('(') + name + QLatin1Char(')');
}

/// What is still to be written, next piece last: nodes, and the signs between them.
class RestOfText
{
public:
    struct Piece {
        const ElementEquation *node; // null for a sign, and for a son that is missing
        const char *sign;            // null for a node
    };

    bool isEmpty() const { return mPieces.isEmpty(); }
    Piece takeNext()
    {
        const Piece next = mPieces.last();
        mPieces.removeLast();
        return next;
    }
    void addSign(const char *sign) { mPieces.append({nullptr, sign}); }
    void addNode(const ElementEquation *node) { mPieces.append({node, nullptr}); }

    /// Written as it stands: a sum or difference on the right gets no brackets, although it reads back as
    /// another formula.
    void addSum(const ElementEquation &node, const char *sign)
    {
        addNode(node.sonRight);
        addSign(sign);
        addNode(node.sonLeft);
    }
    void addProduct(const ElementEquation &node, const char *sign)
    {
        addFactor(node.sonRight);
        addSign(sign);
        addFactor(node.sonLeft);
    }

private:
    void addFactor(const ElementEquation *son)
    {
        const bool brackets = son != nullptr && (son->contents == ElemAdd || son->contents == ElemSubtract);
        if (brackets)
            addSign(")");
        addNode(son);
        if (brackets)
            addSign("(");
    }

    QVarLengthArray<Piece, 64> mPieces;
};

} // namespace

QString ElementEquation::toString() const
{
    QString text;
    RestOfText rest;
    rest.addNode(this);
    while (!rest.isEmpty()) {
        const RestOfText::Piece piece = rest.takeNext();
        if (piece.sign != nullptr) {
            text += QLatin1String(piece.sign);
            continue;
        }
        VOR_REQUIRE(piece.node != nullptr);

        const ElementEquation &node = *piece.node;
        switch (node.contents) {
        case ElemValue: text += constantText(node); break;
        case ElemMeasure: text += referenceText(measureKeyword(), node.element); break;
        case ElemLevel: text += referenceText(levelKeyword(), node.element); break;
        case ElemParenthesis:
            rest.addSign(")");
            rest.addNode(node.sonLeft);
            rest.addSign("(");
            break;
        case ElemAdd: rest.addSum(node, " + "); break;
        case ElemSubtract: rest.addSum(node, " - "); break;
        case ElemMultiply: rest.addProduct(node, " * "); break;
        case ElemDivide: rest.addProduct(node, " / "); break;
        case ElemNone:
        default: invalidOperation(kSourceUnit, __LINE__, BOOST_CURRENT_FUNCTION);
        }
    }
    return text;
}

} // namespace VorSystem
