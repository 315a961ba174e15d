// A whole pattern document in memory: sizes, pieces with their skeletons, and the frame sets.
#pragma once

#include <VorConjoin/Document.h>
#include <VorConjoin/GradationData.h>
#include <VorDocument/VorDocumentExport.h>

#include <QJsonArray>
#include <QJsonValue>
#include <QString>
#include <QStringList>

#include <map>
#include <memory>
#include <vector>

namespace VorSystem
{

class CDbGroupObject;
class ControlSkeleton;
class FrameSet;
class GabaritObject;

/// The document of the reference host. Owns everything below it and frees it in the order skeletons, manager,
/// pieces, gradation. Lengths in centimetres, y upwards.
///
/// Pieces may be added to the plan and taken out of it directly; a skeleton that hangs on a gabarit of the
/// plan is the document's.
class VORDOCUMENT_EXPORT PatternDocument final : public Document
{
public:
    /// Without sizes and pieces, with an empty manager.
    PatternDocument();
    PatternDocument(const PatternDocument &) = delete;
    PatternDocument &operator=(const PatternDocument &) = delete;
    ~PatternDocument() override;

    /// Null while there are no sizes.
    const GradationData *gradationData() const override;
    /// The manager of the frame sets; never null, the document's.
    GestFrames *framesManager() const override;
    /// The pieces with their locks; never null, the document's.
    ///@{
    const t_Plan *plan() const override;
    t_Plan &plan();
    ///@}

    /// What a user calls the document: any text, empty at first, stored with it.
    ///@{
    QString name() const { return mName; }
    void setName(const QString &name) { mName = name; }
    ///@}

    /// Names of the sizes, smallest first; nestNumber counts from 1, 0 is no nest. No names: no gradation.
    /// The value lists of the frame sets are fitted to the new sizes, the vectors when they are next graded.
    /// False, and nothing changed, for names that repeat or are empty and for a nest outside the list.
    bool setSizes(const QStringList &names, short nestNumber);
    /// The names of setSizes; empty without sizes.
    const QStringList &sizeNames() const { return mSizeNames; }
    /// Name of a size counted from 1; empty for one that is not there.
    QString sizeName(short sizeNumber) const;

    /// The pieces in order, owned by the plan.
    const std::vector<CDbGroupObject *> &pieces() const;
    /// A new piece without a gabarit, as the last one. Names may be empty, and may repeat.
    CDbGroupObject *newPiece(const QString &name);
    /// A deep copy of a piece of this document, as the last one: identities are kept, and its skeletons are
    /// copied with it and point at the same elements. Null for null and for a stranger.
    CDbGroupObject *copyPiece(const CDbGroupObject *piece, const QString &name);
    /// A copy that names its source, and is not kept in step with it.
    CDbGroupObject *clonePiece(const CDbGroupObject *piece, const QString &name);
    /// Destroys a piece with its skeletons; false for null and for a stranger.
    bool removePiece(CDbGroupObject *piece);

    /// A new skeleton for a gabarit of this document; null for a stranger and where there is one already.
    ControlSkeleton *newSkeleton(GabaritObject *gabarit);
    /// Destroys a skeleton of this document; false for null and for a stranger.
    bool removeSkeleton(ControlSkeleton *skeleton);
    /// Destroys the control objects that point at elements of a set, so that the set may be deleted. Nothing
    /// for null.
    void detachSkeletons(const FrameSet *set);

    /// Stored forms that could not be read with the document, written again as they were: sets of which a
    /// name does not resolve, and the skeleton of a gabarit, unless that has got one since; undefined for
    /// none.
    ///@{
    const QJsonArray &lostSets() const { return mLostSets; }
    void keepLostSet(const QJsonValue &stored) { mLostSets.append(stored); }
    QJsonValue lostSkeleton(const GabaritObject *gabarit) const;
    void keepLostSkeleton(const GabaritObject *gabarit, const QJsonValue &stored);
    ///@}

    /// Exchanges everything with another document. Pointers to pieces, sets and elements stay good and now
    /// belong to the other one.
    void swap(PatternDocument &other);

private:
    QString mName;
    QStringList mSizeNames;
    QJsonArray mLostSets;
    std::map<const GabaritObject *, QJsonValue> mLostSkeletons;

    // Declared in the order opposite to that of destruction.
    std::unique_ptr<GradationData> mGradation;
    std::unique_ptr<t_Plan> mPlan;
    std::unique_ptr<GestFrames> mManager;
};

} // namespace VorSystem
