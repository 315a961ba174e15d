// The manager: its sets, their names, and what is asked of all of them.

#include <VorFrames/GestFrames.h>

#include "Preconditions.h"
#include "VORFrames/Names.h"

#include <VorConjoin/VorConjoin.h>
#include <VorFrames/FrameSet.h>

#include <QCoreApplication>
#include <QSet>
#include <boost/make_shared.hpp>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Frames\VORFrames)";

} // namespace

GestFrames::GestFrames() : mSelf(boost::make_shared<GestFrames *>(this)) {}

GestFrames::GestFrames(const GestFrames &other)
    : mDocument(other.mDocument), mFrameSets(other.mFrameSets), mWorkId(other.mWorkId), mName(other.mName),
      mDesc(other.mDesc), mGroupMapping(other.mGroupMapping), mSelf(boost::make_shared<GestFrames *>(this))
{
}

GestFrames &GestFrames::operator=(const GestFrames &other)
{
    // mSelf stays: a baton of this manager clears this manager.
    mDocument = other.mDocument;
    mFrameSets = other.mFrameSets;
    mWorkId = other.mWorkId;
    mName = other.mName;
    mDesc = other.mDesc;
    mGroupMapping = other.mGroupMapping;
    return *this;
}

GestFrames::~GestFrames()
{
    // A set that is listed twice is deleted once, and none is searched for in the list.
    QListEx<FrameSet *> doomed;
    QSet<FrameSet *> seen;
    for (FrameSet *set : qAsConst(mFrameSets)) {
        if (!seen.contains(set))
            doomed.append(set);
        seen.insert(set);
    }
    mFrameSets = doomed;
    while (!mFrameSets.isEmpty()) {
        FrameSet *const set = mFrameSets.takeFirst();
        // It does not look for itself, nor for a document that may be dying.
        set->setFrameManager(nullptr);
        delete set;
    }
}

GestFrames *GestFrames::managerFramesDocument(Document *document)
{
    return document == nullptr ? nullptr : document->framesManager();
}

QString GestFrames::tr(const char *source, const char *comment, int n)
{
    return QCoreApplication::translate("VorSystem::Frames", source, comment, n);
}

QString GestFrames::trUtf8(const char *source, const char *comment, int n)
{
    return tr(source, comment, n);
}

// --- Sets ---

short GestFrames::numberOfFrameSets() const
{
    return static_cast<short>(mFrameSets.count());
}

FrameSet *GestFrames::getFrameSetAccordingName(const QString &name) const
{
    const NameMatcher wanted(name);
    for (FrameSet *set : mFrameSets) {
        if (wanted.matches(set->name()))
            return set;
    }
    return nullptr;
}

QString GestFrames::getFrameSetValidName(const QString &name) const
{
    QString stem = name;
    qint64 counter = 0; // a user's number may be the largest int
    const int blank = name.lastIndexOf(QLatin1Char(' '), -1, Qt::CaseSensitive);
    if (blank >= 0) {
        bool isNumber = false;
        const int number = name.mid(blank + 1).trimmed().toInt(&isNumber, 10);
        if (isNumber) {
            counter = number;
            stem = name.left(blank).trimmed();
        }
    }

    QSet<QString> taken;
    for (FrameSet *set : mFrameSets)
        taken.insert(nameKey(set->name()));
    QString candidate = name;
    while (taken.contains(nameKey(candidate))) {
        ++counter;
        candidate = stem + QLatin1Char(' ') + QString::number(counter);
    }
    return candidate;
}

void GestFrames::addFrameSet(FrameSet *set, int index)
{
    VOR_REQUIRE(set != nullptr);
    if (mFrameSets.contains(set))
        return;
    if (index < 0)
        mFrameSets.append(set);
    else
        mFrameSets.insert(index, set);
}

void GestFrames::removeFrameSet(FrameSet *set)
{
    mFrameSets.removeAll(set);
}

// --- All sets. Their operations may call the host, which may change the list: it is walked by index. ---

bool GestFrames::areSetPartiallyDefined()
{
    for (int i = 0; i < mFrameSets.count(); ++i) {
        if (mFrameSets.at(i)->Au_Moins_Partiellement_Defini())
            return true;
    }
    return false;
}

bool GestFrames::areFrameSpecDefined()
{
    for (int i = 0; i < mFrameSets.count(); ++i) {
        if (mFrameSets.at(i)->containsSpecDefined())
            return true;
    }
    return false;
}

bool GestFrames::reevaluateFrameSets(eFrameReevaluate mode)
{
    bool changed = false;
    for (int i = 0; i < mFrameSets.count(); ++i) {
        const bool setChanged = mFrameSets.at(i)->reevaluate(mode);
        changed = changed || setChanged;
    }
    return changed;
}

void GestFrames::adjustFrameSetsANest()
{
    for (int i = 0; i < mFrameSets.count(); ++i)
        mFrameSets.at(i)->adjustMeasuresLevels();
}

void GestFrames::destroyAllFramesUndefined()
{
    int i = 0;
    while (i < mFrameSets.count()) {
        FrameSet *const set = mFrameSets.at(i);
        set->destroyFramesUndefined();
        if (set->Au_Moins_Partiellement_Defini()) {
            ++i;
            continue;
        }
        // A set that names another manager does not take itself out of this list.
        mFrameSets.removeAll(set);
        delete set;
    }
}

} // namespace VorSystem
