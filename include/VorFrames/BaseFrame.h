// The abstract element of a frame set: a name that may hold values per size, formulas and a place on a piece.
#pragma once

#include <VorFrames/Enumerations.h>
#include <VorFrames/Evaluation.h>
#include <VorFrames/QListEx.h>
#include <VorFrames/ValuesAccordingSizes.h>
#include <VorFrames/VorFramesExport.h>

#include <QString>

namespace VorSystem
{

class CDbGroupObject;
class CDbPointVOR;
class ControlBase;
class ControlSkeleton;
class Document;
class FrameSet;
class GabaritObject;
class GradationData;
class TreeEquations;
class XJsonObject;

/// An element: a center, a frame, a segment, a link, a spec, a chart, or the set that holds them.
///
/// Lengths are centimetres. A size is a 0-based index into the gradation; -1 means the nest where a reading
/// operation says so. Value lists hold one value per size, smallest first. An element is *defined* when some
/// skeleton of the document ties it to a piece; this is asked of the document at each call and never stored.
///
/// A copy points at the same set, neighbours and formulas as its source: destroying both deletes a formula
/// twice, so a copy must be made to forget what it shares before it dies.
///
/// The host may call back into the library from any message, question or change signal. It must not delete
/// the element or skeleton whose operation is running. Deleting an element that formulas of others mention
/// leaves them with a dead reference: ask canBeDestroyed() first.
class VORFRAMES_EXPORT BaseFrame
{
public:
    /// An element in no set. Any name is taken, the empty one too.
    explicit BaseFrame(const QString &name);
    /// Copy every field as it stands.
    ///@{
    BaseFrame(const BaseFrame &other) = default;
    BaseFrame &operator=(const BaseFrame &other) = default;
    ///@}

    /// The element without its name, as its set stores it.
    virtual XJsonObject toJson() const = 0;
    /// Takes from object what toJson() wrote; a missing key reads as 0, false or empty. Values are appended
    /// to what the element holds: reading is meant for a new one.
    virtual void fromJson(const XJsonObject &object) = 0;
    virtual ~BaseFrame();
    /// The kind of element; the library casts by it, so a derived class keeps that of its base.
    virtual eElementFrameType elementType() = 0;
    /// The name by which formulas refer to the element.
    virtual QString fullName();
    /// The set that holds the element, or null.
    virtual FrameSet *getFrameSet() const;

    /// The measures, owned by the element; null when the class has none.
    virtual ValuesAccordingSizes *getMeasureBySizes();
    /// The levels, owned by the element; null when the class has none.
    virtual ValuesAccordingSizes *getLevelBySizes();

    /// Changes all sizes at once; either list may be null. True when the values were taken and the geometry,
    /// if there is any, obeyed. *refused, where given, becomes true when a level was refused beforehand.
    virtual bool applyValues(const QListEx<double> *measures, const QListEx<double> *levels, bool *refused);
    /// The same for the nest alone.
    virtual bool applyValues(const double *measure, const double *level, bool *refused);

    /// May this kind of element have such a formula, whether or not there is one? Measure: frames, segments
    /// and links; level: frames and links.
    ///@{
    virtual bool measurementFormulaAvailable();
    virtual bool formulaLevelAvailable();
    ///@}
    /// Does a formula of the element's link, or of the link itself, drive these values? False for other
    /// kinds.
    ///@{
    virtual bool aFormulaImplicitMeasures();
    virtual bool aFormulaImplicitLevel();
    ///@}
    /// The formula, owned by the element; null when there is none.
    ///@{
    virtual TreeEquations *measurementFormula();
    virtual TreeEquations *formulaLevel();
    virtual TreeEquations *formulaSpec();
    ///@}
    /// Takes ownership of the formula and deletes the one it replaces; null removes it. A class without such
    /// a formula does nothing, and the caller keeps the ownership.
    ///@{
    virtual void setFormulaMeasurement(TreeEquations *formula);
    virtual void setFormulaLevel(TreeEquations *formula);
    virtual void setFormulaSpec(TreeEquations *formula);
    ///@}

    /// Brings the frames of a link to its level; true when that could be done. False for any other element.
    virtual bool adjustFramesSameLevel(eFrameReevaluate mode);

    /// One value of the measure, size -1 being the nest: by the formula where there is one, else read from
    /// the geometry. False, with value untouched, when neither gives one.
    virtual bool evaluateMeasurement(short size, double &value);
    /// The same from the geometry alone; size -1 is the piece as it stands. False when no piece uses the
    /// element.
    virtual bool evaluateMeasurementObject(short size, double &value);
    /// The same by the formula alone; false when there is none.
    virtual bool evaluateMeasurementFormula(short size, double &value);
    /// All values of the measure, chosen likewise, into a list that the caller has given its length.
    virtual bool evaluateMeasures(const GradationData *gradation, QListEx<double> &values);
    /// The same from the geometry alone, which replaces the list by one of its own length: a value per size,
    /// or a single one without a nest.
    virtual bool evaluateMeasuresObject(const GradationData *gradation, QListEx<double> &values);
    /// The same by the formula alone, one value per place of the list; false when there is none.
    virtual bool evaluateMeasuresFormula(QListEx<double> &values);
    /// The level, as the operation of the like name does the measure. Only frames and links have levels.
    ///@{
    virtual bool evaluateLevel(short size, double &value);
    virtual bool evaluateLevelObject(short size, double &value);
    virtual bool evaluateLevelFormula(short size, double &value);
    virtual bool evaluateLevels(const GradationData *gradation, QListEx<double> &values);
    virtual bool evaluateLevelsObject(const GradationData *gradation, QListEx<double> &values);
    virtual bool evaluateLevelsFormula(QListEx<double> &values);
    ///@}

    /// The control object that ties the element to a piece, or null. Walks the document at each call: with a
    /// group mapping in force only the mapped groups, otherwise all groups of the plan.
    virtual ControlBase *objectControlCorresponding();
    /// The same on one group; null for a null group.
    virtual ControlBase *objectControlCorrespondingOfGroup(CDbGroupObject *group);

    /// Brings the stored values into line with formulas and geometry; true when something changed or would
    /// change.
    virtual bool reevaluate(eFrameReevaluate mode);
    /// Brings what depends on element into line; true when something changed or would change. A set alone
    /// does this, any other element answers false.
    virtual bool reevaluateUnder(BaseFrame *element, eFrameReevaluate mode);
    /// The same for one of the two lists. An element without it, or one that no piece uses and that has
    /// values but no formula, keeps what it has and answers false. Raises AssertionError when the document
    /// has no gradation.
    virtual bool reevaluateElement(eEvaluationType type, eFrameReevaluate mode);

    /// Gives the element new values and lets the geometry follow by action; true on success. The lists may be
    /// changed on the way.
    virtual bool applyMeasuresLevels(ValuesAccordingSizes &measures, ValuesAccordingSizes &levels,
                                     const GradationData *gradation, eModifyLevelActionType action);
    /// The same for one of the two lists alone. Frames and links take both, segments measures; everything
    /// else answers true with nothing done.
    ///@{
    virtual bool applyMeasures(ValuesAccordingSizes &measures, const GradationData *gradation,
                               eModifyLevelActionType action);
    virtual bool applyLevels(ValuesAccordingSizes &levels, const GradationData *gradation,
                             eModifyLevelActionType action);
    ///@}

    /// Does a piece of the document use the element? Asked of the document at each call.
    virtual bool isDefinedInDocument();
    /// May the element be deleted? With report, a refusal is shown to the user.
    virtual bool canBeDestroyed(bool report);
    /// May the element go when a set is cleared of what no piece uses? Tells the user nothing.
    virtual bool canBeDestroyedInBatch() = 0;

    /// Adds to list what the value is computed from, each evaluation once: what its formula names, else the
    /// link whose formula drives a frame, or the frames of a link.
    ///@{
    virtual void addEvaluationUsedInMeasurement(QListEx<Evaluation> &list);
    virtual void addEvaluationUsedInLevel(QListEx<Evaluation> &list);
    ///@}
    /// Adds to pending what the element refers to without a formula of its own, unless it is in done: a frame
    /// its link, a link its frames.
    ///@{
    virtual void addReferencesImplicitInMeasuresList(QListEx<BaseFrame *> &pending,
                                                     QListEx<BaseFrame *> &done);
    virtual void addReferencesImplicitInLevelList(QListEx<BaseFrame *> &pending, QListEx<BaseFrame *> &done);
    ///@}
    /// Does either list hold what the element refers to without a formula of its own?
    virtual bool containsImplicitReferences(QListEx<BaseFrame *> measures, QListEx<BaseFrame *> levels);
    /// Would a formula of this element move vectors of other?
    virtual bool influenceGeometrically(BaseFrame *other);

    /// The element's own name, as the user typed it.
    QString name() const { return mName; }
    /// Only stores the name: nobody is told, and no other element is asked whether it bears it.
    void setName(const QString &name) { mName = name; }
    /// The stored set pointer itself.
    FrameSet *&setOrGetFrameSet() { return mFrameSet; }
    /// The document of the set's manager; null when the element has no set or the set no manager.
    Document *document() const;

    /// The stored measure at size, -1 being the nest; 0.0 for a class without measures. An index outside the
    /// list, an empty list included, ends the program.
    double getMeasures(short size);
    /// Writes the stored measure; nothing for a class without measures. Takes no -1.
    void setMeasures(short size, double value);
    /// The stored level at size, -1 being the nest; 0.0 for a class without levels and for an empty list.
    double getLevel(short size);
    /// Writes the stored level; nothing for a class without levels. Takes no -1.
    void setLevel(short size, double value);

    /// Would formula, as the measure formula of this element, close a circle of references? References that a
    /// frame inherits from its link count. Raises AssertionError for null and for an unresolved reference.
    bool formulaMeasurementIsRecursive(TreeEquations *formula);
    /// The same for the level formula.
    bool formulaLevelIsRecursive(TreeEquations *formula);
    /// True when there is such a formula and everything that it depends on, through other formulas too, is
    /// defined. Raises AssertionError for an unresolved reference.
    ///@{
    bool formulaMeasureFullyDefined();
    bool formulaLevelFullyDefined();
    ///@}

    /// The piece the element is tied to, or null: its group, and the gabarit in it. Raises AssertionError for
    /// a control object without a place.
    ///@{
    CDbGroupObject *groupCorrespondent();
    GabaritObject *gabaritCorrespondent();
    ///@}
    /// True when the element is tied to a piece that is selected in the host's view.
    bool isInGroupSelects();
    /// True when the element's control object holds the vector; false without a control object.
    bool containsVector(const CDbPointVOR *vector);

    /// Points the measure and level formulas at the like-named elements of set; a formula of which a name is
    /// missing there is dropped.
    void adapterFormulaInSet(FrameSet *set);
    /// Fits the stored lists to a gradation with small sizes below and large sizes above the nest.
    void adjustMeasuresLevelsAccordingSizesNest(short small, short large);
    /// Refreshes the stored list of type from the geometry; nothing when there is none.
    void reevaluateElementObject(eEvaluationType type);

    /// Adds to list the values whose formulas move this element. Raises AssertionError without a set.
    void evaluationInfluencesGeometrically(QListEx<Evaluation> &list);
    /// Adds to list the values that a formula of this element moves. Raises AssertionError without a set.
    void evaluationsInfluencedGeometrically(QListEx<Evaluation> &list);

    /// Does any formula of set mention this element? With report, the holder is shown to the user. Raises
    /// AssertionError for a null set.
    bool isMentionedInTheSetFormula(FrameSet *set, bool report);
    /// Does a formula of this element mention other?
    bool aFormulaWhichStates(BaseFrame *other);
    /// Does a formula of a defined element of the own set mention this one? Raises AssertionError without a
    /// set.
    bool isMentionedByElementDefined();

    /// May an operation go ahead that could move locked pieces? Asks the user only when element concerns such
    /// pieces and, tried out as according says, something would change.
    ///
    /// *asked becomes true when the question was due, and stays as it was otherwise; it must be given then.
    /// plainWording chooses the shorter question. Raises AssertionError when the element has no document or
    /// plan.
    static bool confirmChangesInFrames(BaseFrame *element, eAccordingToReevaluate according, BaseFrame *other,
                                       bool plainWording, bool *asked);

protected:
    /// The control object of skeleton that points at this element, or null.
    virtual ControlBase *skeletonElementPointedAtUs(ControlSkeleton *skeleton) = 0;

    /// Puts formula into slot and deletes what stood there; the same pointer changes nothing.
    void setFormula(TreeEquations *&slot, TreeEquations *formula);

    QString mName;                 ///< as the user typed it
    FrameSet *mFrameSet = nullptr; ///< not owned; null in a frame, which reaches its set through its center

private:
    friend class FrameSet;
    bool formulaIsRecursive(TreeEquations *formula, eEvaluationType searched);
};

} // namespace VorSystem
