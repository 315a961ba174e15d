// One named collection of elements, and their owner.
#pragma once

#include <VorFrames/BaseFrame.h>
#include <VorFrames/EquivalenceSets.h>
#include <VorFrames/OrderEvaluation.h>

#include <boost/function.hpp>
#include <boost/tuple/tuple.hpp>
#include <map>
#include <utility>

namespace VorSystem
{

class FrameCenter;
class FrameFrame;
class FrameLink;
class FrameMeasurementChart;
class FrameSegment;
class FrameSpec;
class GestFrames;
class NameIndex;
class RelayBaton;

// A set hides its base's question for the set, and means to.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Woverloaded-virtual"

/// A frame set: centers, links, segments, frames, specs and charts, each kind in the user's order.
///
/// Names are compared by Noms_Identiques and are unique per kind only, a frame's within its center. Formulas
/// name an element by its full name, and the first element found by foundElementAccordingName bears it: a
/// link that shares its name with a center cannot be named.
///
/// Through a BaseFrame pointer a set has no set and no document; as a FrameSet it answers itself.
class VORFRAMES_EXPORT FrameSet : public BaseFrame
{
public:
    /// A formula that was given up: full name of the element, which list it drove (true: the measures), its
    /// text. The flag is true as well for a level formula that goes when those of a group are removed.
    using RemovedFormula = boost::tuple<QString, bool, QString>;

    /// Stores name and manager; the manager's list is not touched (see GestFrames::addFrameSet).
    FrameSet(const QString &name, GestFrames *manager);
    /// Copy every field as it stands: both sets then own the same elements, and only one may destroy them.
    ///@{
    FrameSet(const FrameSet &other) = default;
    FrameSet &operator=(const FrameSet &other) = default;
    ///@}

    /// The name, the elements of each kind and the formulas that any element shows. Raises AssertionError for
    /// a frame without a center and for a formula that cannot be written.
    XJsonObject toJson() const override;
    /// Reads into a new set; the elements of a filled one are abandoned to their holders. Raises
    /// AssertionError for a name that does not resolve; the set then holds what was read so far.
    void fromJson(const XJsonObject &object) override;
    /// Deletes links, frames, centers, segments, specs and charts, in this order, and leaves the manager.
    ~FrameSet() override;
    eElementFrameType elementType() override;
    /// True when every element is defined; an empty set is.
    bool isDefinedInDocument() override;
    /// True when nothing of the set is defined. A spec or chart without a formula and an empty link always
    /// are, so they stand in the way. With report, a refusal is shown to the user.
    bool canBeDestroyed(bool report) override;
    /// The same without a word to the user.
    bool canBeDestroyedInBatch() override;
    /// The same as revalued().
    bool reevaluate(eFrameReevaluate mode) override;
    /// Reevaluates what the change of a segment, link, frame or spec touches; specs and charts in mode 0.
    /// Raises AssertionError for an element of another kind.
    bool reevaluateUnder(BaseFrame *element, eFrameReevaluate mode) override;

    /// This set. Hides the virtual operation of the base, which answers null for a set.
    FrameSet *getFrameSet() { return this; }
    /// The manager's document, null without a manager. Hides the operation of the base.
    Document *document() const;

    /// The elements of a kind in the user's order, owned by the set. The frames are those of all centers.
    ///@{
    QListEx<FrameCenter *> getFrameCenters() const { return mFrameCenters; }
    QListEx<FrameLink *> getFrameLinks() const { return mFrameLinks; }
    QListEx<FrameSegment *> getFrameSegments() const { return mFrameSegments; }
    QListEx<FrameFrame *> getFrames() const { return mFrames; }
    QListEx<FrameSpec *> getFrameSpecs() const { return mFrameSpecs; }
    QListEx<FrameMeasurementChart *> getFrameMeasurementCharts() const { return mFrameMeasurementCharts; }
    ///@}
    /// The list of frames itself, never null: what is taken out of it is no longer owned.
    QListEx<FrameFrame *> *getFramesPtr() { return &mFrames; }
    /// The manager of the set, not owned, or null.
    GestFrames *getGestFrames() const { return mFrameManager; }
    /// Only stores the pointer; neither manager's list is touched.
    void setFrameManager(GestFrames *manager) { mFrameManager = manager; }

    /// A new element at the end of its list, owned by the set; null when an element of that kind bears the
    /// name.
    ///@{
    FrameCenter *newCenter(const QString &name);
    FrameLink *newLink(const QString &name);
    FrameSegment *newSegment(const QString &name);
    FrameSpec *newSpec(const QString &name);
    ///@}
    /// Refused when a spec bears the name; another chart of that name does not matter.
    FrameMeasurementChart *newMeasurementChart(const QString &name);
    /// A new frame at the end of the center and of the set. Refused when a frame of a center of that name
    /// bears the name. Raises AssertionError for a null center.
    FrameFrame *newFrame(const QString &name, FrameCenter *center);

    /// Takes the element over from the set that holds it, before index, at the end when index is negative,
    /// without any test of its name. Within the own set the index counts after the element was taken out. An
    /// index beyond the end ends the program. Raises AssertionError for null.
    ///@{
    void addCenter(FrameCenter *center, int index);
    void addLink(FrameLink *link, int index);
    void addSegment(FrameSegment *segment, int index);
    void addSpec(FrameSpec *spec, int index);
    void addMeasurementChart(FrameMeasurementChart *chart, int index);
    ///@}
    /// The same for a frame, which must stand on its center already: the center's set is the one it leaves.
    void addFrame(FrameFrame *frame, int index);

    /// Takes the element off its list and clears its set; it is not deleted and belongs to the caller. A link
    /// keeps its frames until it or their set dies. Raises AssertionError for null.
    ///@{
    void removeCenter(FrameCenter *center);
    void removeLink(FrameLink *link);
    void removeSegment(FrameSegment *segment);
    void removeSpec(FrameSpec *spec);
    void removeMeasurementChart(FrameMeasurementChart *chart);
    ///@}
    /// Takes the frame off the list; its center and its link keep it. Nothing for null.
    void removeFrame(FrameFrame *frame);

    /// The first element of that kind whose name matches by Noms_Identiques, or null.
    ///@{
    FrameCenter *findFrameCenterAccordingName(const QString &name) const;
    FrameLink *findFrameLinkAccordingName(const QString &name) const;
    FrameSegment *findFrameSegmentAccordingName(const QString &name) const;
    FrameSpec *findFrameSpecAccordingName(const QString &name) const;
    FrameMeasurementChart *findFrameMeasurementChartAccordingName(const QString &name) const;
    ///@}
    /// The element that a formula means by name, or null. "center:frame" is split at the first ":" and finds
    /// a frame only; any other name is sought among centers, links, segments, specs and charts, and at last,
    /// only with searchFrames, among the bare names of the frames.
    BaseFrame *foundElementAccordingName(const QString &name, bool searchFrames) const;

    /// Position i takes the element that stood at order[i]. Nothing when the count differs; an index outside
    /// the list ends the program. An element lost by a repeated index loses its set and belongs to its
    /// holder.
    ///@{
    void ChangeFrameCenters(QListEx<int> order);
    void ChangeFrameLinks(QListEx<int> order);
    void ChangeFrameSegments(QListEx<int> order);
    void ChangeFrameSpecs(QListEx<int> order);
    void ChangeFrameMeasurementCharts(QListEx<int> order);
    ///@}
    /// Reorders the frames of the first center whose name is exactly the given one, case and white space
    /// included; nothing when there is none. See FrameCenter::ChangeFrameFrames().
    void ChangeFrameFrames(QListEx<int> order, QString center);

    /// True when some element is defined. A spec or chart without a formula and an empty link always are.
    bool Au_Moins_Partiellement_Defini();
    /// The same asked of one kind.
    ///@{
    bool containsFrameDefines();
    bool containsSpecDefined();
    bool containsMeasurementChartDefined();
    ///@}

    /// Deletes what no piece uses: undefined specs and charts, then segments, links, frames and centers that
    /// may go. A formula of an element that stays and that names a deleted one is dropped and recorded.
    void destroyFramesUndefined();

    /// Does any formula of the set, charts included, mention element? holder is then the first that does, and
    /// null otherwise; links are asked first, then segments, frames, specs and charts.
    bool elementsMentionedInFormulaOne(BaseFrame *element, BaseFrame *&holder);
    /// Does a formula of a defined element mention element? Chart formulas do not count.
    bool elementsMentionedByElementDefined(BaseFrame *element);

    using BaseFrame::adapterFormulaInSet;
    /// Points the measure and level formulas of frames, links and segments at the elements of this set; a
    /// formula of which a name is missing is dropped. Specs and charts are left alone.
    void adapterFormulaInSet();

    /// Can all values be ordered as they stand?
    bool isOrderEvaluation();
    /// Orders all values; a segment that stands in the way loses its control object.
    void calculateOrderEvaluation();
    /// Adds to list the values of this set whose formulas move element.
    void accumulateEvaluationsInfluencesGeometrically(BaseFrame *element, QListEx<Evaluation> &list);
    /// Adds to list the values of this set that a formula of element moves.
    void accumulateEvaluationsInfluencedGeometrically(BaseFrame *element, QListEx<Evaluation> &list);

    /// Orders and reevaluates all values, then specs and charts.
    bool revalued(eFrameReevaluate mode);
    /// Fits all value lists to the gradation of the document; a single value each without a nest. Sizes are
    /// adjusted before any reevaluation.
    void adjustMeasuresLevels();

    /// Records a formula that was given up, unless the name has one with that flag already.
    void markRemovedFormula(const QString &name, bool flag, const QString &text);
    /// The formulas given up since the list was last cleared, oldest first. Not stored with the document.
    QListEx<RemovedFormula> removedFormulas() const { return mRemovedFormulas; }
    /// Forgets the records; formulas are not touched.
    void clearRemovedFormulas() { mRemovedFormulas.clear(); }

    /// The manager's group mapping, owned by it; null without a manager.
    const std::map<CDbGroupObject *, std::pair<CDbGroupObject *, bool>> *getGroupMapping() const;
    /// What the manager answers, null without one.
    CDbGroupObject *getMappedGroup(CDbGroupObject *group) const;
    /// Tells the manager; nothing without one.
    void notifyGroupChanged(CDbGroupObject *group) const;
    /// Hands the set to another manager. The name stays, even where the new manager has it. Always true.
    /// Raises AssertionError for null.
    bool aTransferredManager(GestFrames *manager);

    /// Copies what belongs to the selected groups into target; see GestFrames::CopyFrameSetsInManager. This
    /// set may be deleted on the way, when it is itself a destination to which nothing was contributed.
    void copyElements(GestFrames *target, boost::function<bool(CDbGroupObject *)> selectGroup,
                      bool withValues, EquivalenceSets &equivalences);
    /// Merges what belongs to the selected groups into target; see GestFrames::MergeFrameSetsInManager. This
    /// set may be deleted on the way, as above.
    void mergeElements(GestFrames *target, boost::function<bool(CDbGroupObject *)> selectGroup,
                       bool withValues, EquivalenceSets &equivalences, bool renameSource);

protected:
    ControlBase *skeletonElementPointedAtUs(ControlSkeleton *skeleton) override;

private:
    friend class ClearingOut;
    friend class FrameFrame;   // asks whether it is read with its set
    friend class FrameSegment; // tries the order when it takes a formula
    friend class GestFrames;
    friend class NameIndex;
    friend class NamesAtHand;
    friend class ElementNames;
    /// The host's door to the removal of formulas: a class of this name, defined by the host, may call the
    /// three private operations below.
    friend class FormulaRemovalAccess;

    bool reevaluateSpecsAndCharts(eFrameReevaluate mode);
    /// out = holder and true when formula is there and mentions element.
    bool testfFormulaMentions(BaseFrame *holder, TreeEquations *formula, BaseFrame *element, BaseFrame *&out);
    /// Gives up at most one formula of the element and one of its link: reported, recorded, dropped.
    bool removeFormulaOfGroup(BaseFrame *element);
    /// Gives up formulas of the segments and frames tied to the group.
    bool removeFormulaOfGroup(CDbGroupObject *group);
    /// Asks, and removes nothing: does an element tied to the group have a formula?
    bool removeForm(CDbGroupObject *group);

    /// Reports and records the measure formula of holder, or else its level formula, and drops it; false when
    /// it has neither.
    bool giveUpFormula(BaseFrame &holder, bool levelFlag);

    QListEx<FrameCenter *> mFrameCenters;                     ///< owned
    QListEx<FrameLink *> mFrameLinks;                         ///< owned
    QListEx<FrameSegment *> mFrameSegments;                   ///< owned
    QListEx<FrameFrame *> mFrames;                            ///< owned, of every center
    QListEx<FrameSpec *> mFrameSpecs;                         ///< owned
    QListEx<FrameMeasurementChart *> mFrameMeasurementCharts; ///< owned
    GestFrames *mFrameManager = nullptr;                      ///< not owned
    OrderEvaluation mOrderEvaluation;
    QListEx<RemovedFormula> mRemovedFormulas;
    const NameIndex *mNamesAtHand = nullptr; ///< answers for the lists while they are filled in bulk
};

#pragma GCC diagnostic pop

/// The one comparison of names: case and white space, wherever it stands, do not count.
VORFRAMES_EXPORT bool Noms_Identiques(const QString &a, const QString &b);

} // namespace VorSystem
