// Taking pieces over into another document.
//
// The library carries elements and leaves control objects alone. So the pieces are copied first, with
// skeletons that still point at elements of the source; while the sets are on their way, the source looks for
// its control objects on the copies only; at the end the copies are pointed at the receiving sets.

#include "PieceCopy.h"
#include "TransferRecord.h"

#include <VorConjoin/GradationData.h>
#include <VorConjoin/t_Plan.h>
#include <VorCore/VorCore.h>
#include <VorDocument/PatternDocument.h>
#include <VorDocument/Transfer.h>
#include <VorFrames/VorFrames.h>

#include <map>
#include <set>

namespace VorSystem
{

namespace
{

bool haveEqualSizes(const PatternDocument &a, const PatternDocument &b)
{
    const GradationData *const left = a.gradationData();
    const GradationData *const right = b.gradationData();
    if (left == nullptr || right == nullptr)
        return left == right;
    return left->gradationNum() == right->gradationNum() && left->mediumIndex() == right->mediumIndex() &&
           left->isGradationNestDefined() == right->isGradationNestDefined();
}

QString whatForbids(const PatternDocument &source, const std::vector<CDbGroupObject *> &pieces,
                    const PatternDocument &target, const TransferWish &wish)
{
    if (pieces.empty())
        return QStringLiteral("No piece is selected.");
    const std::set<CDbGroupObject *> own(source.pieces().begin(), source.pieces().end());
    std::set<CDbGroupObject *> seen;
    for (CDbGroupObject *piece : pieces) {
        if (own.count(piece) == 0)
            return QStringLiteral("A piece does not belong to the document.");
        if (!seen.insert(piece).second)
            return QStringLiteral("Piece '%1' is selected twice.").arg(piece->name());
    }
    if (!haveEqualSizes(source, target))
        return QStringLiteral("The documents have different sizes.");
    if (&source == &target && wish.merges)
        return QStringLiteral("A document cannot be merged into itself.");
    if (!source.framesManager()->getGroupMapping()->empty())
        return QStringLiteral("Another transfer of the document is under way.");
    return QString();
}

QString freePieceName(const PatternDocument &document, const QString &name)
{
    QString candidate = name;
    for (int n = 1; document.plan()->groupByName(candidate) != nullptr; ++n)
        candidate = name + QString::number(n);
    return candidate;
}

// The sets that the skeletons of a piece stand in.
void addSetsOf(const CDbGroupObject &piece, std::set<FrameSet *> &sets)
{
    for (GabaritObject *gabarit = piece.firstGabarit(); gabarit; gabarit = gabarit->mNextGabarit) {
        if (ControlSkeleton *const skeleton = gabarit->controlSkeleton()) {
            if (FrameSet *const set = skeleton->getFrameSet())
                sets.insert(set);
        }
    }
}

// Points the skeleton at the set that received its own; false when something of it stayed behind.
bool followsItsSet(ControlSkeleton &skeleton, const EquivalenceSets &received)
{
    try {
        FrameSet *const set = skeleton.getFrameSet();
        if (set == nullptr)
            return skeleton.getFrameLists().isEmpty();
        const auto entry = received.find(set);
        if (entry == received.end())
            return false;
        skeleton.adjustsANewFrameSet(entry->second);
        return true;
    } catch (const AssertionError &) {
        return false; // a name that is not there
    }
}

// A skeleton that would go on pointing into the source is deleted. False when one was.
bool pointAtReceivers(const CDbGroupObject &piece, const EquivalenceSets &received)
{
    bool complete = true;
    for (GabaritObject *gabarit = piece.firstGabarit(); gabarit; gabarit = gabarit->mNextGabarit) {
        ControlSkeleton *const skeleton = gabarit->controlSkeleton();
        if (skeleton == nullptr || followsItsSet(*skeleton, received))
            continue;
        delete skeleton;
        complete = false;
    }
    return complete;
}

// The source looks for its control objects on the copies while the sets are on their way.
void carrySets(GestFrames &source, const std::set<FrameSet *> &concerned,
               const std::map<CDbGroupObject *, CDbGroupObject *> &copies, PatternDocument &target,
               const TransferWish &wish, EquivalenceSets &received)
{
    const RelayBaton baton = source.setGroupMapping(copies);
    const auto isOnACopy = [](CDbGroupObject *group) { return group != nullptr; };
    for (FrameSet *set : source.getFrameSets()) {
        if (concerned.count(set) == 0)
            continue;
        // The source takes the new names as well, at least for now: formulas, links and skeletons follow an
        // element by its name.
        if (wish.merges)
            set->mergeElements(target.framesManager(), isOnACopy, wish.withValues, received, true);
        else
            set->copyElements(target.framesManager(), isOnACopy, wish.withValues, received);
    }
}

} // namespace

TransferReceipt transferPieces(PatternDocument &source, const std::vector<CDbGroupObject *> &pieces,
                               PatternDocument &target, const TransferWish &wish)
{
    TransferReceipt receipt;
    receipt.refusal = whatForbids(source, pieces, target, wish);
    if (receipt.isRefused())
        return receipt;

    const TransferRecord record(*source.framesManager(), *target.framesManager());
    std::set<FrameSet *> concerned;
    for (const CDbGroupObject *piece : pieces)
        addSetsOf(*piece, concerned);

    std::map<CDbGroupObject *, CDbGroupObject *> copies;
    for (CDbGroupObject *piece : pieces) {
        std::unique_ptr<CDbGroupObject> copy = copyWithSkeletons(*piece);
        copy->setName(freePieceName(target, piece->name()));
        receipt.pieces.push_back(copy.get());
        copies[piece] = copy.get();
        target.plan().addGroup(copy.release());
    }

    EquivalenceSets received;
    try {
        carrySets(*source.framesManager(), concerned, copies, target, wish, received);
    } catch (...) {
        record.giveBackSourceNames();
        for (CDbGroupObject *copy : receipt.pieces)
            target.removePiece(copy); // or its skeleton would go on pointing into the source
        throw;
    }
    for (const CDbGroupObject *copy : receipt.pieces) {
        if (!pointAtReceivers(*copy, received))
            receipt.piecesWithoutSkeleton << copy->name();
    }
    record.fill(receipt, received);
    if (!wish.renamesSource)
        record.giveBackSourceNames();

    if (!wish.withValues) {
        for (const auto &[from, to] : received)
            to->reevaluate(Reevaluate_Store);
    }
    return receipt;
}

} // namespace VorSystem
