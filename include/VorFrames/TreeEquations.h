// A formula.
#pragma once

#include <VorFrames/Enumerations.h>
#include <VorFrames/Evaluation.h>
#include <VorFrames/QListEx.h>
#include <VorFrames/VorFramesExport.h>

#include <QString>

namespace VorSystem
{

class BaseFrame;
class ElementEquation;
class FrameSet;
class XJsonObject;

/// A tree of nodes that drives the measure, the level or the spec value of an element.
///
/// Owns its root. Copy construction makes an independent tree; assignment only copies the root's pointer, so
/// that both formulas then share it and one must let it go.
class VORFRAMES_EXPORT TreeEquations
{
public:
    /// A root of kind 0, which has no text and no value.
    TreeEquations();
    /// Raises AssertionError for a source without a root.
    TreeEquations(const TreeEquations &other);
    /// Shares the root of other; the root that stood here is not deleted.
    TreeEquations &operator=(const TreeEquations &other);
    ~TreeEquations();

    /// The formula that text spells in the current locale, language and unit, owned by the caller; null for
    /// text that is no formula or that passes the limits of FormulaLimits.h.
    ///
    /// Names are sought in frameSet, which must be there when the text refers to an element; an unknown one
    /// leaves a reference without element, a name outside Measure(...) and Level(...) a node of kind 0.
    /// Whoever accepts a formula sees first that verifierImplicitUnits() holds and that its references are
    /// resolved. With implicitUnits constants that are lengths are taken to be in the application's unit;
    /// settling this raises AssertionError for a bare name in a sum with a length and for some mixtures of
    /// units.
    static TreeEquations *parse(const QString &text, FrameSet *frameSet, bool implicitUnits);

    /// The text a user would type; see ElementEquation::toString(). Raises AssertionError without a root.
    QString toString() const;
    /// The value in a size, lengths in centimetres; see ElementEquation::evaluate(). Raises AssertionError
    /// without a root.
    double evaluate(short size);

    /// Add what the formula refers to, as the operations of ElementEquation do; nothing without a root.
    ///@{
    void addReferencesInLists(QListEx<BaseFrame *> &pendingMeasures, QListEx<BaseFrame *> &doneMeasures,
                              QListEx<BaseFrame *> &pendingLevels, QListEx<BaseFrame *> &doneLevels);
    void addReferencesInList(QListEx<BaseFrame *> &list);
    void addEvaluationsInList(QListEx<Evaluation> &list);
    ///@}

    /// Points every reference at the like-named element of set; see ElementEquation::setAdapter(). True
    /// without a root.
    bool setAdapter(FrameSet *set);
    /// Does the formula itself refer to element, by pointer? False without a root.
    bool mentions(BaseFrame *element);
    /// True unless the units are inconsistent. Raises AssertionError without a root.
    bool verifierImplicitUnits();
    /// Settles the units once, for a formula that gives a length. Raises AssertionError without a root.
    void determineImplicitUnits();
    /// True when everything the formula depends on, through other formulas too, is defined. Raises
    /// AssertionError for an unresolved reference.
    bool fullyDefinedFormula();

    /// The root under the key "root". Raises AssertionError without a root, and as ElementEquation::toJson().
    XJsonObject toJson() const;
    /// Fills the root, which must be there, and settles the units: constants are taken to be in the
    /// application's unit, as those that a user typed. The manager's reader works in centimetres. Raises
    /// AssertionError without a root, for a name that set lacks, and where parse() would for the units.
    void fromJson(const XJsonObject &object, FrameSet *set);

    ElementEquation *root = nullptr; ///< owned; null only where a caller made it so

private:
    /// Takes ownership of a finished root.
    explicit TreeEquations(ElementEquation *finished) : root(finished) {}
};

} // namespace VorSystem
