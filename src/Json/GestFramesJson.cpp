// The sets of a document in their stored form.

#include <VorCore/VorCoreApplication.h>
#include <VorFrames/Errors.h>
#include <VorFrames/FrameSet.h>
#include <VorFrames/GestFrames.h>
#include <VorJson/VorJson.h>

#include <memory>

namespace VorSystem
{

namespace
{

// A set that was not read to its end goes without a word to the manager or its document, which never knew it.
struct DropUnread {
    void operator()(FrameSet *set) const
    {
        set->setFrameManager(nullptr);
        delete set;
    }
};

} // namespace

XJsonObject GestFrames::toJson() const
{
    XJsonArray sets;
    for (const FrameSet *set : mFrameSets)
        sets.append(set->toJson());

    XJsonObject object;
    object.insert(QStringLiteral("frames"), sets);
    return object;
}

void GestFrames::fromJson(const XJsonObject &object, bool adjust)
{
    const RelayBaton centimetres = VorCoreApplication::instance().resetAppUnitToCentimetre();

    const XJsonArray sets = object.value(QStringLiteral("frames")).toArray();
    for (const XJsonValue &item : sets) {
        std::unique_ptr<FrameSet, DropUnread> set(new FrameSet(QString(), this));
        try {
            set->fromJson(item.toObject());
            if (adjust)
                set->adjustMeasuresLevels();
            mFrameSets.append(set.get());
            static_cast<void>(set.release());
        } catch (const AssertionError &) {
            // Deliberate: a set that does not resolve costs no more than itself, and nobody is told.
        }
    }
}

} // namespace VorSystem
