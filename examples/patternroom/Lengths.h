// Lengths as the user types and reads them.
#pragma once

#include <VorCore/VorCore.h>
#include <VorFrames/QListEx.h>

#include <QString>

namespace room
{

/// How lengths are shown and what a typed number without a unit means.
struct LengthStyle {
    VorSystem::LengthUnit unit;
    bool fractions = false; ///< inches and their sixteenths: 12 3/16

    QString show(double centimetres) const;
    /// The same with its sign, for differences; "0" of either sign has none.
    QString showDifference(double centimetres) const;
    /// The value that show() can tell exactly and that lies nearest to length on the side of present.
    double typed(double length, double present) const;
    /// The sign of the unit: cm, mm, in.
    QString sign() const;
};

/// The style called cm, mm, inch or fraction; refuses any other name.
LengthStyle lengthStyle(const QString &name);

/// A length in centimetres from a number in the locale of the program, with a unit behind it or without:
/// "38", "38.5 mm", "15 1/2 in". what names the value in a refusal.
double lengthOf(const QString &text, const LengthStyle &style, const QString &what);

/// A length that is not negative, for --tolerance.
double toleranceOf(const QString &text, const LengthStyle &style);

/// Lengths with semicolons between; refuses another count than expected.
VorSystem::QListEx<double> lengthsOf(const QString &text, const LengthStyle &style, int expected,
                                     const QString &what);

/// A plain number in the locale of the program.
double numberOf(const QString &text, const QString &what);

} // namespace room
