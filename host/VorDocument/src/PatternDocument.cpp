// The document: who owns what, and in which order it goes.

#include "ControlPlan.h"
#include "PieceCopy.h"

#include <VorConjoin/CDbGroupObject.h>
#include <VorConjoin/GabaritObject.h>
#include <VorDocument/PatternDocument.h>
#include <VorFrames/ControlCenter.h>
#include <VorFrames/ControlFrame.h>
#include <VorFrames/ControlSegment.h>
#include <VorFrames/ControlSkeleton.h>
#include <VorFrames/FrameCenter.h>
#include <VorFrames/FrameFrame.h>
#include <VorFrames/FrameSegment.h>
#include <VorFrames/GestFrames.h>

#include <algorithm>
#include <limits>
#include <set>
#include <utility>

namespace VorSystem
{

namespace
{

void deleteSkeletons(const CDbGroupObject &piece)
{
    for (GabaritObject *gabarit = piece.firstGabarit(); gabarit; gabarit = gabarit->mNextGabarit)
        delete gabarit->controlSkeleton();
}

bool areSizeNames(const QStringList &names)
{
    if (names.size() > std::numeric_limits<short>::max())
        return false;
    std::set<QString> seen;
    return std::all_of(names.begin(), names.end(), [&](const QString &name) {
        return !name.trimmed().isEmpty() && seen.insert(name).second;
    });
}

// Takes out of the skeleton what points into the set.
void detach(ControlSkeleton &skeleton, const FrameSet *set)
{
    const QListEx<ControlSegment *> segments = skeleton.getSegmentLists();
    for (ControlSegment *segment : segments) {
        const FrameSegment *element = segment->getFrameSegment();
        if (element && element->getFrameSet() == set) {
            delete segment;
        }
    }
    const QListEx<ControlFrame *> frames = skeleton.getFrameLists();
    for (ControlFrame *frame : frames) {
        const FrameFrame *element = frame->getFrameFrame();
        if (element && element->getFrameSet() == set) {
            delete frame;
        }
    }
    ControlCenter *center = skeleton.getFrameCenter();
    if (center && center->Get_Frame_Centre() && center->Get_Frame_Centre()->getFrameSet() == set) {
        skeleton.setControlCenter(nullptr);
        delete center;
    }
}

} // namespace

PatternDocument::PatternDocument()
    : mPlan(std::make_unique<ControlPlan>()), mManager(std::make_unique<GestFrames>())
{
    mManager->setDocument(this);
}

PatternDocument::~PatternDocument()
{
    for (const CDbGroupObject *piece : pieces())
        deleteSkeletons(*piece);
    mManager.reset();
}

const GradationData *PatternDocument::gradationData() const
{
    return mGradation.get();
}

GestFrames *PatternDocument::framesManager() const
{
    return mManager.get();
}

const t_Plan *PatternDocument::plan() const
{
    return mPlan.get();
}

t_Plan &PatternDocument::plan()
{
    return *mPlan;
}

bool PatternDocument::setSizes(const QStringList &names, short nestNumber)
{
    if (!areSizeNames(names) || nestNumber < 0 || nestNumber > names.size())
        return false;

    mSizeNames = names;
    if (names.isEmpty())
        mGradation.reset();
    else if (mGradation)
        *mGradation = GradationData(static_cast<short>(names.size()), nestNumber);
    else
        mGradation = std::make_unique<GradationData>(static_cast<short>(names.size()), nestNumber);
    mManager->adjustFrameSetsANest();
    return true;
}

QString PatternDocument::sizeName(short sizeNumber) const
{
    return mSizeNames.value(sizeNumber - 1);
}

const std::vector<CDbGroupObject *> &PatternDocument::pieces() const
{
    return mPlan->groups();
}

CDbGroupObject *PatternDocument::newPiece(const QString &name)
{
    auto piece = std::make_unique<CDbGroupObject>(name);
    mPlan->addGroup(piece.get());
    return piece.release();
}

CDbGroupObject *PatternDocument::copyPiece(const CDbGroupObject *piece, const QString &name)
{
    if (std::find(pieces().begin(), pieces().end(), piece) == pieces().end())
        return nullptr;
    std::unique_ptr<CDbGroupObject> copy = copyWithSkeletons(*piece);
    copy->setName(name);
    mPlan->addGroup(copy.get());
    return copy.release();
}

CDbGroupObject *PatternDocument::clonePiece(const CDbGroupObject *piece, const QString &name)
{
    CDbGroupObject *clone = copyPiece(piece, name);
    if (clone)
        clone->setCloneOf(piece->name());
    return clone;
}

bool PatternDocument::removePiece(CDbGroupObject *piece)
{
    if (!mPlan->takeGroup(piece))
        return false;
    for (const GabaritObject *gabarit = piece->firstGabarit(); gabarit; gabarit = gabarit->mNextGabarit)
        mLostSkeletons.erase(gabarit);
    deleteSkeletons(*piece);
    delete piece;
    return true;
}

ControlSkeleton *PatternDocument::newSkeleton(GabaritObject *gabarit)
{
    if (!gabarit || gabarit->controlSkeleton() ||
        std::find(pieces().begin(), pieces().end(), gabarit->group()) == pieces().end())
        return nullptr;
    return new ControlSkeleton(gabarit->group(), gabarit);
}

bool PatternDocument::removeSkeleton(ControlSkeleton *skeleton)
{
    for (const CDbGroupObject *piece : pieces()) {
        for (GabaritObject *gabarit = piece->firstGabarit(); gabarit; gabarit = gabarit->mNextGabarit) {
            if (skeleton && gabarit->controlSkeleton() == skeleton) {
                delete skeleton;
                return true;
            }
        }
    }
    return false;
}

void PatternDocument::detachSkeletons(const FrameSet *set)
{
    if (!set)
        return;
    for (const CDbGroupObject *piece : pieces()) {
        for (GabaritObject *gabarit = piece->firstGabarit(); gabarit; gabarit = gabarit->mNextGabarit) {
            if (ControlSkeleton *skeleton = gabarit->controlSkeleton())
                detach(*skeleton, set);
        }
    }
}

QJsonValue PatternDocument::lostSkeleton(const GabaritObject *gabarit) const
{
    const auto place = mLostSkeletons.find(gabarit);
    return place == mLostSkeletons.end() ? QJsonValue(QJsonValue::Undefined) : place->second;
}

void PatternDocument::keepLostSkeleton(const GabaritObject *gabarit, const QJsonValue &stored)
{
    mLostSkeletons[gabarit] = stored;
}

void PatternDocument::swap(PatternDocument &other)
{
    std::swap(mName, other.mName);
    std::swap(mSizeNames, other.mSizeNames);
    std::swap(mLostSets, other.mLostSets);
    std::swap(mLostSkeletons, other.mLostSkeletons);
    std::swap(mGradation, other.mGradation);
    std::swap(mPlan, other.mPlan);
    std::swap(mManager, other.mManager);
    mManager->setDocument(this);
    other.mManager->setDocument(&other);
}

} // namespace VorSystem
