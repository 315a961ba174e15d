#include "SampleDocument.h"

#include <QJsonArray>
#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace
{

constexpr int kSizes = 10;
constexpr int kFramesPerCenter = 20;

QJsonArray numbers(double first)
{
    QJsonArray array;
    for (int size = 0; size < kSizes; ++size)
        array.append(first + 1.25 * size);
    return array;
}

QJsonObject measure(double first, bool withLevels)
{
    QJsonObject object{{QStringLiteral("index_medium"), 4}, {QStringLiteral("measures"), numbers(first)}};
    if (withLevels)
        object.insert(QStringLiteral("levels"), numbers(2.0 * first));
    return object;
}

QString numbered(const char *stem, int number)
{
    return QLatin1String(stem) + QLatin1Char(' ') + QString::number(number);
}

QJsonObject constant(double value)
{
    return {{QStringLiteral("contents"), 1}, {QStringLiteral("value"), value}};
}

QJsonObject sumOf(const QString &element, double value)
{
    const QJsonObject reference{{QStringLiteral("contents"), 2}, {QStringLiteral("frame_element"), element}};
    return {{QStringLiteral("contents"), 5},
            {QStringLiteral("son_left"), reference},
            {QStringLiteral("son_right"), constant(value)}};
}

QJsonObject record(const QString &name, const QString &key, const QJsonObject &root)
{
    return {{QStringLiteral("name"), name}, {key, QJsonObject{{QStringLiteral("root"), root}}}};
}

} // namespace

QJsonObject sampleDocument(const std::string &shape, int elements)
{
    if (shape != "usual" && shape != "axis" && shape != "segments") {
        std::fprintf(stderr, "unknown shape %s: usual, axis, segments\n", shape.c_str());
        std::exit(2);
    }
    const int framesPerCenter = shape == "axis" ? std::max(1, elements - 4) : kFramesPerCenter;
    const int centerCount = std::max(1, elements / (framesPerCenter + 4));
    QJsonArray centers, links, segments, specs, frames, segmentRecords, specRecords, frameRecords;
    for (int i = 0; i < centerCount; ++i) {
        centers.append(QJsonObject{{QStringLiteral("name"), numbered("Center", i)},
                                   {QStringLiteral("characteristic"), 2}});
        links.append(QJsonObject{{QStringLiteral("name"), numbered("Link", i)},
                                 {QStringLiteral("type"), 1},
                                 {QStringLiteral("measure"), measure(i, true)}});
        segments.append(QJsonObject{{QStringLiteral("name"), numbered("Segment", i)},
                                    {QStringLiteral("displace"), 4},
                                    {QStringLiteral("influence_area_percent"), 50.0},
                                    {QStringLiteral("measure"), measure(i, false)}});
        specs.append(QJsonObject{{QStringLiteral("name"), numbered("Spec", i)},
                                 {QStringLiteral("measure"), measure(i, false)}});
        specRecords.append(
            record(numbered("Spec", i), QStringLiteral("formular_spec"), sumOf(numbered("Link", i), 1.5)));
        if (shape == "segments")
            segmentRecords.append(record(numbered("Segment", i), QStringLiteral("formular_measure"),
                                         sumOf(numbered("Spec", i), 3.0)));
    }
    const int frameCount = std::min(elements - 4 * centerCount, framesPerCenter * centerCount);
    for (int i = 0; i < frameCount; ++i) {
        const int center = i / framesPerCenter;
        QJsonObject frame{{QStringLiteral("name"), numbered("Frame", i)},
                          {QStringLiteral("center_name"), numbered("Center", center)},
                          {QStringLiteral("perimeter_measurement"), false},
                          {QStringLiteral("level_zero"), i % framesPerCenter == 0},
                          {QStringLiteral("measure_type"), 1},
                          {QStringLiteral("percentage_measure_rating"), 40.0},
                          {QStringLiteral("ratio"), 1.0},
                          {QStringLiteral("measure"), measure(i, true)}};
        if (i % 3 == 0)
            frame.insert(QStringLiteral("link_name"), numbered("Link", center));
        frames.append(frame);
        if (i % 4 == 0)
            frameRecords.append(record(numbered("Frame", i), QStringLiteral("formular_measure"),
                                       sumOf(numbered("Spec", center), 2.0)));
    }
    QJsonArray records = segmentRecords;
    for (const QJsonArray &more : {specRecords, frameRecords}) {
        for (const QJsonValue formula : more)
            records.append(formula);
    }
    const QJsonObject set{{QStringLiteral("set_name"), QStringLiteral("Set")},
                          {QStringLiteral("centers"), centers},
                          {QStringLiteral("links"), links},
                          {QStringLiteral("segments"), segments},
                          {QStringLiteral("specs"), specs},
                          {QStringLiteral("measurementCharts"), QJsonArray()},
                          {QStringLiteral("frames"), frames},
                          {QStringLiteral("formulars"), records}};
    return {{QStringLiteral("frames"), QJsonArray{set}}};
}
