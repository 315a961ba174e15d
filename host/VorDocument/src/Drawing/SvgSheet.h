// A sheet of paper that SVG is drawn on: millimetres, y downwards, styles by class.
#pragma once

#include "PieceShape.h"

#include <QByteArray>
#include <QString>
#include <QXmlStreamWriter>

namespace VorSystem
{

/// Where a piece lies on the paper: turns centimetres of the piece into millimetres of the sheet.
struct SheetPlace {
    double x = 0.0; ///< of the piece's origin on the sheet, mm
    double y = 0.0;

    GeoPoint2D on(const GeoPoint2D &place) const
    {
        return GeoPoint2D(x + 10.0 * place.mX, y - 10.0 * place.mY);
    }
};

/// Writes one picture. Every begin has its end; the picture is complete after finish().
class SvgSheet
{
public:
    SvgSheet(double width, double height, const QString &title, const QByteArray &style);

    void beginGroup(const QString &classes, const QString &title = QString());
    void endGroup();
    /// The text lies along the paper; size is the height of its letters' line in mm.
    void text(const QString &classes, const GeoPoint2D &at, double size, const QString &words,
              const char *anchor = "middle", double turn = 0.0);
    /// Large letters from left on; smaller ones where the words would not fit into the width, mm.
    void heading(const QString &words, double left, double width);
    void line(const QString &classes, const GeoPoint2D &from, const GeoPoint2D &to);
    void circle(const QString &classes, const GeoPoint2D &middle, double radius);
    void path(const QString &classes, const QString &data);
    /// Ticks of 5 mm out of the piece.
    void notches(const std::vector<NotchTick> &notches, const SheetPlace &place);
    /// A ring with a cross.
    void drillHole(const GeoPoint2D &at);
    /// Crosses at those of the points that are of the piece.
    void stacks(const std::vector<const CDbPointVOR *> &points, const CDbGroupObject &piece,
                const PieceShape &shape, const SheetPlace &place);
    void strands(const QString &classes, const std::vector<Strand> &strands, const SheetPlace &place);
    /// Writes the name of a piece where it keeps off the points given; the middle of its foot on the sheet.
    GeoPoint2D name(const QString &name, const PieceShape &shape, const std::vector<GeoPoint2D> &obstacles,
                    const SheetPlace &place);
    QByteArray finish();

    static constexpr double kNameLetters = 11.0; ///< mm

    static QString number(double value);
    static QString pointText(const GeoPoint2D &point);

private:
    void attribute(const char *name, const QString &value);

    QByteArray mBytes;
    QXmlStreamWriter mXml;
};

} // namespace VorSystem
