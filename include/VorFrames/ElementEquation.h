// A node of a formula.
#pragma once

#include <VorFrames/Enumerations.h>
#include <VorFrames/Evaluation.h>
#include <VorFrames/QListEx.h>
#include <VorFrames/VorFramesExport.h>

#include <QString>

namespace VorSystem
{

class BaseFrame;
class FrameSet;
class XJsonObject;

/// A constant, a reference to an element's measure or level, or an operation over one or two sons.
///
/// A node owns its sons. Copying a node copies its pointers: two copies must never both be destroyed;
/// deepCopy makes an independent tree. Sizes are 0-based, -1 the nest.
///
/// Unless said otherwise, an operation raises AssertionError for a node of a kind outside 1 to 8, for a son
/// that is missing and, where a real element is needed, for a reference without one.
class VORFRAMES_EXPORT ElementEquation
{
public:
    /// An empty node, which has no text and no value.
    ElementEquation();
    /// A node without sons: a constant or a reference, else one whose sons the caller hangs on.
    ElementEquation(ElemContent contents, double value, BaseFrame *element);
    /// Copy every field as it stands; the sons are then shared, and those that stood here are not deleted.
    ///@{
    ElementEquation(const ElementEquation &other);
    ElementEquation &operator=(const ElementEquation &other);
    ///@}
    /// Deletes the sons with everything below them, in any depth.
    ~ElementEquation();

    /// Fills the empty node target with copies of everything below and in this node, the pending name apart.
    void deepCopy(ElementEquation *&target);

    /// The text a user would type, in his locale, language and length unit. Brackets are put only round a sum
    /// or difference below a product or quotient, so reading the text back may give another formula.
    QString toString() const;
    /// The value in a size, lengths in centimetres. A divisor of at most 1e-05 gives 0.0, and its dividend is
    /// not evaluated. An element whose list is empty counts 0.0; an index outside a list ends the program.
    double evaluate(short size);
    /// Points every reference at the like-named element of set. False at the first name that set lacks, with
    /// the references before it already changed.
    bool setAdapter(FrameSet *set);
    /// Is element referred to, by pointer?
    bool mentionsElement(BaseFrame *element);
    /// Adds each measure and each level referred to to the pending list of its kind, unless it is there or
    /// done.
    void addedReferencesInLists(QListEx<BaseFrame *> &pendingMeasures, QListEx<BaseFrame *> &doneMeasures,
                                QListEx<BaseFrame *> &pendingLevels, QListEx<BaseFrame *> &doneLevels);
    /// Adds each element referred to once, in the order met.
    void addedReferencesInList(QListEx<BaseFrame *> &list);
    /// Adds each evaluation referred to once, in the order met.
    void addsEvaluationsInList(QListEx<Evaluation> &list);

    /// Settles which constants are lengths, given what the surrounding expects, and turns these from the
    /// application's unit into centimetres. Never run it on a tree that went through it before.
    void determineImplicitUnit(eImplicitUnite expected);
    /// The unit of the tree, or ImplicitInvalid; changes nothing. Stricter than determineImplicitUnit(): a
    /// ratio of two lengths and a division by a constant zero are inconsistent.
    eImplicitUnite evaluationImplicitUnit(eImplicitUnite expected);
    /// Forces the tree to a unit, which its constants have to bring in. Raises AssertionError where a part
    /// has another unit by nature: a reference is a length.
    void setImplicitUnit(eImplicitUnite unit);

    /// The node and all below it; references by full name, units left out. A node of another kind than 1 to 8
    /// is written as its number alone. Raises AssertionError for a reference without an element, a missing
    /// son and a tree past the documented depth.
    XJsonObject toJson() const;
    /// Reads the node and all below it; set resolves the names, and a missing son becomes an empty node.
    /// Raises AssertionError for a name that set lacks and for a tree past the documented depth.
    void fromJson(const XJsonObject &object, FrameSet *set);

    ElementEquation *sonLeft = nullptr;  ///< owned: the left operand, or what stands in brackets
    ElementEquation *sonRight = nullptr; ///< owned: the right operand
    ElemContent contents = ElemNone;     ///< the kind; which fields count hangs on it
    double value = 0.0;                  ///< of a constant: centimetres when implicitUnit is a length
    BaseFrame *element = nullptr;        ///< of a reference, not owned; null for a name that was not known
    eImplicitUnite implicitUnit = ImplicitNumber; ///< what determineImplicitUnit() found the node to be
    QString pendingName;                          ///< the name as typed; no use after parsing
};

} // namespace VorSystem
