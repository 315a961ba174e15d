#include "SetsFromJson.h"

#include "FormulaArrivals.h"
#include "JsonMembers.h"
#include "Told.h"
#include "UnreadValues.h"

#include <VorCore/VorCoreApplication.h>
#include <VorDocument/PatternDocument.h>
#include <VorFrames/Errors.h>
#include <VorFrames/FrameSet.h>
#include <VorFrames/GestFrames.h>
#include <VorJson/VorJson.h>

#include <QJsonArray>
#include <QJsonObject>
#include <boost/exception/get_error_info.hpp>

namespace VorSystem
{

namespace
{

// The reading of a set outside any manager's list, up to the place where it fails; the set arrives at a
// manager when and only when this does not fail.
class TrialReading
{
public:
    TrialReading(const QJsonObject &stored, GestFrames *manager) : mSet(QString(), manager)
    {
        const RelayBaton centimetres = VorCoreApplication::instance().resetAppUnitToCentimetre();
        try {
            mSet.fromJson(XJsonObject::fromJsonObject(stored));
            mSet.adjustMeasuresLevels();
        } catch (const AssertionError &) {
            mFails = true;
        }
    }
    TrialReading(const TrialReading &) = delete;
    TrialReading &operator=(const TrialReading &) = delete;
    ~TrialReading() { mSet.setFrameManager(nullptr); } // no document hears of it

    bool fails() const { return mFails; }
    /// With everything that was read before the failure.
    const FrameSet &set() const { return mSet; }

private:
    FrameSet mSet;
    bool mFails = false;
};

// The name, and what is wrong with it for a reader that looks for an element of another kind than a frame.
QString notFound(const FrameSet &set, const QString &name)
{
    const char *fault = "which is not there";
    if (name.contains(QLatin1Char(':')))
        fault = "a name that means a frame because of its colon";
    else if (set.foundElementAccordingName(name, true) != nullptr)
        fault = "a name that means another element";
    return QStringLiteral("\"%1\", %2").arg(name, QLatin1String(fault));
}

QString whyFrameFails(const QJsonObject &frame, const FrameSet &set)
{
    const QString name = textIn(frame, "name");
    const QString center = textIn(frame, "center_name");
    const BaseFrame *const found = set.foundElementAccordingName(center, true);
    if (found == nullptr || const_cast<BaseFrame *>(found)->elementType() != Element_Center)
        return QStringLiteral("the frame \"%1\" stands on the center %2").arg(name, notFound(set, center));
    return QStringLiteral("the frame \"%1\" belongs to the link %2")
        .arg(name, notFound(set, textIn(frame, "link_name")));
}

// The first record whose formulas end the reading; one of them does.
QJsonObject firstFailingRecord(QJsonObject stored, GestFrames *manager)
{
    const QJsonArray records = listIn(stored, "formulars");
    int passing = 0; // so many records are read to their end
    int failing = records.size();
    while (failing - passing > 1) {
        const int middle = passing + (failing - passing) / 2;
        QJsonArray some;
        for (int index = 0; index < middle; ++index)
            some.append(records.at(index));
        stored.insert(QStringLiteral("formulars"), some);
        (TrialReading(stored, manager).fails() ? failing : passing) = middle;
    }
    return records.at(failing - 1).toObject();
}

QString whyLeftOut(const QJsonObject &stored, GestFrames *manager)
{
    const TrialReading trial(stored, manager);
    const QJsonArray frames = listIn(stored, "frames");
    const int read = trial.set().getFrames().count();
    if (read < frames.size())
        return whyFrameFails(frames.at(read).toObject(), trial.set());
    if (trial.fails())
        return whyFormulaFails(firstFailingRecord(stored, manager), trial.set());
    return QStringLiteral("it cannot be read");
}

} // namespace

QStringList setsFromJson(const QJsonArray &stored, PatternDocument &document, QStringList &told)
{
    GestFrames *const manager = document.framesManager();
    QJsonArray objects;
    for (const QJsonValue set : stored) {
        if (set.isObject()) // the library would take anything else for a set without a name
            objects.append(set);
    }
    manager->fromJson(XJsonObject::fromJsonObject({{QStringLiteral("frames"), objects}}), true);
    const QListEx<FrameSet *> arrived = manager->getFrameSets();

    QStringList whyLeft;
    const bool allArrived = arrived.size() == objects.size();
    int next = 0;
    for (const QJsonValue set : stored) {
        const QJsonObject object = set.toObject();
        const QString name = QStringLiteral("The set \"%1\"").arg(textIn(object, "set_name"));
        if (!set.isObject()) {
            whyLeft << QStringLiteral("A set was left out: it is not an object.");
        } else if (!allArrived && TrialReading(object, manager).fails()) {
            whyLeft << QStringLiteral("%1 was left out: %2.").arg(name, whyLeftOut(object, manager));
        } else {
            whyLeft << QString();
            Told losses(name);
            tellUnreadOfSet(object, losses);
            tellFormulasThatDidNotArrive(listIn(object, "formulars"), *arrived.at(next), losses);
            told << losses.sentences();
            ++next;
            continue;
        }
        told << whyLeft.last();
        document.keepLostSet(set);
    }
    return whyLeft;
}

} // namespace VorSystem
