#include "SvgSheet.h"

#include <VorConjoin/CDbPointVOR.h>

#include <algorithm>
#include <cmath>

namespace VorSystem
{

namespace
{

constexpr double kNotchLength = 5.0; // mm

} // namespace

SvgSheet::SvgSheet(double width, double height, const QString &title, const QByteArray &style) : mXml(&mBytes)
{
    mXml.setAutoFormatting(true);
    mXml.setAutoFormattingIndent(1);
    mXml.writeStartDocument();
    mXml.writeStartElement(QStringLiteral("svg"));
    mXml.writeDefaultNamespace(QStringLiteral("http://www.w3.org/2000/svg"));
    attribute("width", number(width) + QStringLiteral("mm"));
    attribute("height", number(height) + QStringLiteral("mm"));
    attribute("viewBox", QStringLiteral("0 0 %1 %2").arg(number(width), number(height)));
    mXml.writeTextElement(QStringLiteral("title"), title);
    mXml.writeTextElement(QStringLiteral("style"), QString::fromUtf8(style));
    mXml.writeEmptyElement(QStringLiteral("rect"));
    attribute("class", QStringLiteral("sheet"));
    attribute("width", number(width));
    attribute("height", number(height));
}

void SvgSheet::attribute(const char *name, const QString &value)
{
    mXml.writeAttribute(QLatin1String(name), value);
}

QString SvgSheet::number(double value)
{
    // A hundredth of a millimetre is finer than any plotter.
    const double rounded = std::round(value * 100.0) / 100.0;
    return QString::number(rounded == 0.0 ? 0.0 : rounded, 'g', 10);
}

QString SvgSheet::pointText(const GeoPoint2D &point)
{
    return number(point.mX) + QLatin1Char(' ') + number(point.mY);
}

void SvgSheet::beginGroup(const QString &classes, const QString &title)
{
    mXml.writeStartElement(QStringLiteral("g"));
    attribute("class", classes);
    if (!title.isEmpty())
        mXml.writeTextElement(QStringLiteral("title"), title);
}

void SvgSheet::endGroup()
{
    mXml.writeEndElement();
}

void SvgSheet::text(const QString &classes, const GeoPoint2D &at, double size, const QString &words,
                    const char *anchor, double turn)
{
    mXml.writeStartElement(QStringLiteral("text"));
    attribute("class", classes);
    attribute("x", number(at.mX));
    attribute("y", number(at.mY));
    attribute("font-size", number(size));
    attribute("text-anchor", QLatin1String(anchor));
    if (turn != 0.0)
        attribute("transform", QStringLiteral("rotate(%1 %2)").arg(number(turn), pointText(at)));
    mXml.writeCharacters(words);
    mXml.writeEndElement();
}

void SvgSheet::heading(const QString &words, double left, double width)
{
    // Bold letters are hardly wider than two thirds of their height.
    const double fitting = width / (0.67 * std::max(words.size(), 1));
    text(QStringLiteral("heading"), GeoPoint2D(left, 30.0), std::min(16.0, fitting), words, "start");
}

void SvgSheet::line(const QString &classes, const GeoPoint2D &from, const GeoPoint2D &to)
{
    path(classes, QLatin1Char('M') + pointText(from) + QLatin1Char('L') + pointText(to));
}

void SvgSheet::circle(const QString &classes, const GeoPoint2D &middle, double radius)
{
    mXml.writeEmptyElement(QStringLiteral("circle"));
    attribute("class", classes);
    attribute("cx", number(middle.mX));
    attribute("cy", number(middle.mY));
    attribute("r", number(radius));
}

void SvgSheet::path(const QString &classes, const QString &data)
{
    mXml.writeEmptyElement(QStringLiteral("path"));
    attribute("class", classes);
    attribute("d", data);
}

namespace
{

bool isStraight(const CubicCurve &curve)
{
    const CubicCurve chord = CubicCurve::straight(curve.a, curve.d);
    return curve.b.distance(chord.b) + curve.c.distance(chord.c) < 1e-6;
}

} // namespace

void SvgSheet::strands(const QString &classes, const std::vector<Strand> &strands, const SheetPlace &place)
{
    QString data;
    for (const Strand &strand : strands) {
        if (strand.curves.empty())
            continue;
        data += QLatin1Char('M') + pointText(place.on(strand.curves.front().a));
        for (const CubicCurve &curve : strand.curves) {
            if (isStraight(curve)) {
                data += QLatin1Char('L') + pointText(place.on(curve.d));
            } else {
                data += QLatin1Char('C') + pointText(place.on(curve.b)) + QLatin1Char(' ') +
                        pointText(place.on(curve.c)) + QLatin1Char(' ') + pointText(place.on(curve.d));
            }
        }
        if (strand.isClosed)
            data += QLatin1Char('Z');
    }
    if (!data.isEmpty())
        path(classes, data);
}

void SvgSheet::notches(const std::vector<NotchTick> &notches, const SheetPlace &place)
{
    for (const NotchTick &notch : notches) {
        const GeoPoint2D foot = place.on(notch.foot);
        line(QStringLiteral("notch"), foot,
             GeoPoint2D(foot.mX + kNotchLength * notch.outwards.mX,
                        foot.mY - kNotchLength * notch.outwards.mY));
    }
}

void SvgSheet::drillHole(const GeoPoint2D &at)
{
    circle(QStringLiteral("mark"), at, 2.5);
    line(QStringLiteral("mark"), GeoPoint2D(at.mX - 4.0, at.mY), GeoPoint2D(at.mX + 4.0, at.mY));
    line(QStringLiteral("mark"), GeoPoint2D(at.mX, at.mY - 4.0), GeoPoint2D(at.mX, at.mY + 4.0));
}

void SvgSheet::stacks(const std::vector<const CDbPointVOR *> &points, const CDbGroupObject &piece,
                      const PieceShape &shape, const SheetPlace &place)
{
    for (const CDbPointVOR *point : points) {
        if (point->group() != &piece)
            continue;
        const GeoPoint2D at = place.on(shape.placeOf(point));
        beginGroup(QStringLiteral("stack"), QStringLiteral("Laid together here"));
        path(QStringLiteral("mark"), QStringLiteral("M%1L%2M%3L%4")
                                         .arg(pointText(GeoPoint2D(at.mX - 6.0, at.mY - 6.0)),
                                              pointText(GeoPoint2D(at.mX + 6.0, at.mY + 6.0)),
                                              pointText(GeoPoint2D(at.mX - 6.0, at.mY + 6.0)),
                                              pointText(GeoPoint2D(at.mX + 6.0, at.mY - 6.0))));
        endGroup();
    }
}

GeoPoint2D SvgSheet::name(const QString &name, const PieceShape &shape,
                          const std::vector<GeoPoint2D> &obstacles, const SheetPlace &place)
{
    // Bold letters are about 0.7 as wide as high; a line or two of small ones stand below.
    const double halfWidth = 0.036 * kNameLetters * std::max(name.size(), 10);
    const double halfHeight = 0.16 * kNameLetters;
    const GeoPoint2D at = place.on(shape.clearing(obstacles, halfWidth, halfHeight));
    text(QStringLiteral("name"), at, kNameLetters, name);
    return at;
}

QByteArray SvgSheet::finish()
{
    mXml.writeEndDocument();
    return mBytes;
}

} // namespace VorSystem
