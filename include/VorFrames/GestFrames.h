// The frame manager of a document: the root of the element model.
#pragma once

#include <VorFrames/Enumerations.h>
#include <VorFrames/EquivalenceSets.h>
#include <VorFrames/QListEx.h>
#include <VorFrames/VorFramesExport.h>

#include <QString>
#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>
#include <map>
#include <utility>

namespace VorSystem
{

class CDbGroupObject;
class Document;
class FrameSet;
class RelayBaton;
class XJsonObject;

/// Owns the frame sets of a document, in the user's order. The host makes it, gives it out through
/// Document::framesManager and deletes it; deleting it tells nobody.
///
/// A copy points at the same sets: take them out of it before it dies. The three texts are not stored with
/// the sets.
class VORFRAMES_EXPORT GestFrames
{
public:
    /// A manager without sets and document.
    GestFrames();
    /// Copy every field as it stands, the group mapping too: both managers then own the same sets. A baton
    /// stays with the manager that gave it.
    ///@{
    GestFrames(const GestFrames &other);
    GestFrames &operator=(const GestFrames &other);
    ///@}
    /// Deletes the sets, first to last; they no longer reach the document by then.
    ~GestFrames();

    /// The manager of a document, null for null: how a call enters the library.
    static GestFrames *managerFramesDocument(Document *document);

    /// The document, not owned; null until the host sets it. Without one no element is tied to a piece.
    ///@{
    Document *document() const { return mDocument; }
    void setDocument(Document *document) { mDocument = document; }
    ///@}
    /// Three texts for the host's own use; the library only keeps them.
    ///@{
    QString name() const { return mName; }
    QString desc() const { return mDesc; }
    QString workId() const { return mWorkId; }
    void setName(const QString &name) { mName = name; }
    void setDesc(const QString &desc) { mDesc = desc; }
    void setWorkId(const QString &workId) { mWorkId = workId; }
    ///@}

    /// The sets in the user's order, owned by the manager.
    QListEx<FrameSet *> getFrameSets() const { return mFrameSets; }
    /// Their number, cut to what a short holds.
    short numberOfFrameSets() const;
    /// The first set whose name matches, or null.
    FrameSet *getFrameSetAccordingName(const QString &name) const;
    /// The proposal itself when it is free, else the proposal with a number, after a blank, that makes it so.
    QString getFrameSetValidName(const QString &name) const;
    /// Enters the set, which is owned from then on, before index, at the end when index is negative; nothing
    /// when it is in the list. The set's manager pointer is not touched. An index beyond the end ends the
    /// program. Raises AssertionError for null.
    void addFrameSet(FrameSet *set, int index);
    /// Takes the set off the list; it is neither deleted nor told.
    void removeFrameSet(FrameSet *set);
    /// True when some set is at least partially defined.
    bool areSetPartiallyDefined();
    /// True when some set has a spec that is defined, as one without a formula always is.
    bool areFrameSpecDefined();
    /// Reevaluates every set; true when any of them changed or would change.
    bool reevaluateFrameSets(eFrameReevaluate mode);
    /// Fits all value lists to the gradation of the document; to a single value each where there is none.
    void adjustFrameSetsANest();
    /// Clears every set of what no piece uses and deletes the sets of which nothing defined is left.
    void destroyAllFramesUndefined();

    /// The translation of a user text in the library's context, "VorSystem::Frames"; the text itself without
    /// one.
    ///@{
    static QString tr(const char *source, const char *comment = nullptr, int n = -1);
    static QString trUtf8(const char *source, const char *comment = nullptr, int n = -1);
    ///@}

    /// All sets under the key "frames"; the group mapping and the removed formulas are left out. Raises what
    /// FrameSet::toJson() raises. What exceeds the room of an XJsonArray is left out with a warning: reading
    /// the object back shows whether it is whole.
    XJsonObject toJson() const;
    /// Adds the sets of object. A set that does not resolve is dropped without a sign. With adjust, each
    /// set's lists are fitted to the gradation: set the document first, or every list shrinks to its nest.
    /// Lengths in formula texts are centimetres while this runs.
    void fromJson(const XJsonObject &object, bool adjust);

    /// Puts a correspondence of groups in force until the last copy of the baton dies; an empty one clears
    /// what was there. A baton clears whatever mapping then stands, so let the old one go before setting the
    /// next.
    [[nodiscard]] RelayBaton setGroupMapping(const std::map<CDbGroupObject *, CDbGroupObject *> &mapping);
    /// The mapping with its changed marks, owned by the manager; never null.
    const std::map<CDbGroupObject *, std::pair<CDbGroupObject *, bool>> *getGroupMapping() const
    {
        return &mGroupMapping;
    }
    /// The group that corresponds to the key group, or null.
    CDbGroupObject *getMappedGroup(CDbGroupObject *group) const;
    /// Marks the entry of which group is the key, or else the first of which it is the value.
    void notifyGroupChanged(CDbGroupObject *group);
    /// The mark of the key group; false for a group that is only a value.
    bool groupHasChanged(CDbGroupObject *group) const;

    /// Copies the sets into target, without control objects: centers, frames and segments of selected groups,
    /// links whose frames all came along, specs and charts. selectGroup gets null for an undefined element.
    ///
    /// Formulas are bound to the copies, or dropped. Without withValues frames, links and segments hold no
    /// values until a reevaluation. A destination to which a source contributes nothing is removed and
    /// deleted, also one that was there before. Raises AssertionError for a null target or a destination of
    /// another manager.
    void CopyFrameSetsInManager(GestFrames *target, boost::function<bool(CDbGroupObject *)> selectGroup,
                                bool withValues, EquivalenceSets &equivalences);
    /// The same into sets of the same name where there are some; taken names get a number. With renameSource
    /// the sources take their new names too, and formulas follow them.
    void MergeFrameSetsInManager(GestFrames *target, boost::function<bool(CDbGroupObject *)> selectGroup,
                                 bool withValues, EquivalenceSets &equivalences, bool renameSource);

private:
    friend class FrameSet;

    Document *mDocument = nullptr;  ///< not owned
    QListEx<FrameSet *> mFrameSets; ///< owned
    QString mWorkId;
    QString mName;
    QString mDesc;
    std::map<CDbGroupObject *, std::pair<CDbGroupObject *, bool>> mGroupMapping;

    // Tells a baton that outlives the manager that there is nothing left to clear. Never copied.
    boost::shared_ptr<GestFrames *> mSelf;
};

} // namespace VorSystem
