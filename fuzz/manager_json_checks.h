// What must hold for every stored manager, however damaged. Shared by the fuzzer, the replay of its corpus
// and the properties.
#pragma once

#include <VorFrames/VorFrames.h>
#include <VorJson/VorJson.h>

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QVector>
#include <cstdlib>
#include <limits>
#include <memory>

namespace manager_json_checks
{

using namespace VorSystem;

/// Ends the program: the fuzzer keeps the input, the test reports the crash.
inline void require(bool holds)
{
    if (!holds)
        std::abort();
}

/// Turns bytes into the object of a manager: nearly right, so that readings get far, and wrong in places.
class ManagerWriter
{
public:
    /// With sound names and references every set arrives whole.
    enum class Names { Sound, Hostile };

    ManagerWriter(const QByteArray &bytes, Names names) : mBytes(bytes), mSound(names == Names::Sound) {}

    XJsonObject manager()
    {
        XJsonArray sets;
        const int count = below(4);
        for (int i = 0; i < count; ++i)
            sets.append(odd() ? XJsonValue(below(3)) : XJsonValue(set()));
        XJsonObject object;
        object.insert(QStringLiteral("frames"), sets);
        return object;
    }

private:
    static constexpr int kKinds = 6; // segments, specs, charts, centers, links, frames
    static constexpr int kSpecs = 1, kCharts = 2, kCenters = 3, kLinks = 4, kFrames = 5;

    int next() { return mPosition < mBytes.size() ? static_cast<uchar>(mBytes.at(mPosition++)) : 0; }
    int below(int count) { return next() % count; }
    // Now and then, in hostile documents, something is not what it should be.
    bool odd() { return !mSound && below(16) == 15; }

    XJsonObject set()
    {
        static const QString keys[kKinds] = {
            QStringLiteral("segments"), QStringLiteral("specs"), QStringLiteral("measurementCharts"),
            QStringLiteral("centers"),  QStringLiteral("links"), QStringLiteral("frames")};
        XJsonObject object;
        object.insert(QStringLiteral("set_name"), QStringLiteral("Set") + QString::number(below(9)));
        for (int kind = 0; kind < kKinds; ++kind) {
            mCounts[kind] = below(5);
            if (mSound && kind == kFrames && mCounts[kCenters] == 0)
                mCounts[kind] = 0;
            XJsonArray elements;
            for (int index = 0; index < mCounts[kind]; ++index)
                elements.append(odd() ? XJsonValue() : XJsonValue(element(kind, index)));
            object.insert(keys[kind], odd() ? XJsonValue(1.5) : XJsonValue(elements));
        }
        XJsonArray records;
        const int count = below(6);
        for (int i = 0; i < count; ++i)
            records.append(record());
        object.insert(QStringLiteral("formulars"), records);
        return object;
    }

    QString name(int kind, int index)
    {
        static const char stems[kKinds] = {'S', 'P', 'C', 'K', 'L', 'F'};
        if (!odd())
            return QLatin1Char(stems[kind]) + QString::number(index);
        static const QString oddNames[] = {QString(),
                                           QStringLiteral("K0"),
                                           QStringLiteral(" k 0 "),
                                           QStringLiteral("K0:F0"),
                                           QStringLiteral(":"),
                                           QStringLiteral("L0"),
                                           QStringLiteral("\u00a0\u0130"),
                                           QString(QChar(0xd800)),
                                           QString(QChar(0))};
        return oddNames[below(9)];
    }
    QString anyOf(int kind) { return name(kind, mCounts[kind] == 0 ? 0 : below(mCounts[kind])); }

    double number()
    {
        static const double oddNumbers[] = {0.5,          -1.0,   40000.0,
                                            4294967301.0, 1e300,  std::numeric_limits<double>::quiet_NaN(),
                                            -1e-06,       1e-320, 1e17};
        return odd() ? oddNumbers[below(9)] : double(below(50)) / 4.0;
    }
    XJsonValue whole(int count) { return odd() ? XJsonValue(number()) : XJsonValue(below(count)); }
    XJsonValue flag() { return odd() ? XJsonValue(1) : XJsonValue(below(2) == 1); }

    XJsonArray numbers()
    {
        XJsonArray array;
        const int count = below(5);
        for (int i = 0; i < count; ++i)
            array.append(number());
        return array;
    }

    XJsonObject values(bool withLevels)
    {
        XJsonObject object;
        object.insert(QStringLiteral("index_medium"), whole(5));
        if (!odd())
            object.insert(QStringLiteral("measures"), numbers());
        if (withLevels && !odd())
            object.insert(QStringLiteral("levels"), numbers());
        return object;
    }

    XJsonObject element(int kind, int index)
    {
        XJsonObject object;
        object.insert(QStringLiteral("name"), name(kind, index));
        object.insert(QStringLiteral("characteristic"), whole(4));
        object.insert(QStringLiteral("displace"), whole(5));
        object.insert(QStringLiteral("type"), whole(3));
        object.insert(QStringLiteral("influence_area_percent"), number());
        object.insert(QStringLiteral("measure"), values(kind == kLinks || kind == kFrames));
        if (kind != kFrames)
            return object;
        object.insert(QStringLiteral("center_name"), anyOf(kCenters));
        if (mCounts[kLinks] > 0 && below(2) == 1)
            object.insert(QStringLiteral("link_name"), anyOf(kLinks));
        object.insert(QStringLiteral("perimeter_measurement"), flag());
        object.insert(QStringLiteral("level_zero"), flag());
        object.insert(QStringLiteral("measure_type"), whole(3));
        object.insert(QStringLiteral("percentage_measure_rating"), number());
        object.insert(QStringLiteral("ratio"), number());
        return object;
    }

    XJsonObject record()
    {
        XJsonObject object;
        object.insert(QStringLiteral("name"), anyOf(below(kKinds)));
        const int places = below(8);
        if (places % 2 == 1)
            object.insert(QStringLiteral("formular_measure"), formula());
        if (places / 2 % 2 == 1)
            object.insert(QStringLiteral("formular_level"), formula());
        if (places / 4 == 1)
            object.insert(QStringLiteral("formular_spec"), formula());
        return object;
    }

    XJsonValue formula()
    {
        static const QString texts[] = {QStringLiteral("1+2*Measure(S0)"), QStringLiteral("Level(K0:F0)/3"),
                                        QStringLiteral("Measure(nobody)"), QStringLiteral("1+"),
                                        QStringLiteral("-(P0)")};
        if (odd())
            return texts[below(5)];
        XJsonObject object;
        object.insert(QStringLiteral("root"), node(0));
        return object;
    }

    XJsonObject node(int depth)
    {
        XJsonObject object;
        const int contents = depth > 6 ? int(ElemValue) : 1 + below(8);
        object.insert(QStringLiteral("contents"), odd() ? XJsonValue(number()) : XJsonValue(contents));
        object.insert(QStringLiteral("value"), number());
        if (contents == ElemMeasure || contents == ElemLevel) {
            const int kind = below(mSound ? kFrames : kKinds);
            object.insert(QStringLiteral("frame_element"), fullName(kind));
            if (mSound && mCounts[kind] == 0)
                object.insert(QStringLiteral("contents"), int(ElemValue)); // nothing to refer to
        }
        if (contents >= ElemParenthesis && !odd())
            object.insert(QStringLiteral("son_left"), node(depth + 1));
        if (contents >= ElemAdd && !odd())
            object.insert(QStringLiteral("son_right"), node(depth + 1));
        return object;
    }

    QString fullName(int kind)
    {
        const QString bare = anyOf(kind);
        return kind == kFrames ? anyOf(kCenters) + QLatin1Char(':') + bare : bare;
    }

    QByteArray mBytes;
    bool mSound;
    int mPosition = 0;
    int mCounts[kKinds] = {};
};

/// Elements found while reading are those that a plain search of the set finds.
inline void checkNames(const XJsonObject &object, const FrameSet &set)
{
    const XJsonArray frames = object.value(QStringLiteral("frames")).toArray();
    const QListEx<FrameFrame *> read = set.getFrames();
    require(read.count() == frames.size());
    for (int i = 0; i < frames.size(); ++i) {
        const XJsonObject frame = frames.at(i).toObject();
        const QString center = frame.value(QStringLiteral("center_name")).toString();
        require(read.at(i)->getFrameCenter() == set.foundElementAccordingName(center, true));
        require(read.at(i)->getFrameSet() == &set);
        if (frame.contains(QStringLiteral("link_name"))) {
            const QString link = frame.value(QStringLiteral("link_name")).toString();
            require(read.at(i)->getLink() == set.foundElementAccordingName(link, true));
        } else {
            require(read.at(i)->getLink() == nullptr);
        }
    }
}

/// The sets of object that are sound on their own, each read alone.
inline QVector<XJsonObject> soundSets(const XJsonObject &object)
{
    QVector<XJsonObject> sound;
    for (const XJsonValue &item : object.value(QStringLiteral("frames")).toArray()) {
        FrameSet set(QString(), nullptr);
        try {
            set.fromJson(item.toObject());
        } catch (const AssertionError &) {
            continue;
        }
        checkNames(item.toObject(), set);
        sound.append(item.toObject());
    }
    return sound;
}

/// Reads the object and writes it, over and over; gives the object written last.
inline XJsonObject check(const XJsonObject &object, bool adjust)
{
    GestFrames manager;
    manager.fromJson(object, adjust);

    // Exactly the sound sets arrive, in their order.
    const QVector<XJsonObject> sound = soundSets(object);
    const QListEx<FrameSet *> sets = manager.getFrameSets();
    require(sets.count() == sound.count());
    for (int i = 0; i < sets.count(); ++i)
        require(sets.at(i)->name() == sound.at(i).value(QStringLiteral("set_name")).toString());

    XJsonObject written;
    try {
        written = manager.toJson();
    } catch (const AssertionError &) {
        return {}; // a formula text named an element that is not there
    }
    GestFrames again;
    again.fromJson(written, adjust);
    require(again.getFrameSets().count() <= sets.count());
    return again.toJson();
}

/// Bytes that steer the writer.
inline void check(const QByteArray &bytes)
{
    const bool adjust = !bytes.isEmpty() && static_cast<uchar>(bytes.at(0)) % 2 == 1;
    check(ManagerWriter(bytes.mid(1), ManagerWriter::Names::Hostile).manager(), adjust);
}

/// JSON text. Not for the fuzzer: Qt's parser loses memory over a key that occurs twice.
inline void checkText(const QByteArray &text)
{
    check(XJsonObject::fromJsonObject(QJsonDocument::fromJson(text).object()), false);
}

} // namespace manager_json_checks
