// VorLocale: how numbers and lengths look to the user.
#pragma once

#include <VorCore/LengthUnit.h>
#include <VorCore/VorCoreExport.h>

#include <QFlags>
#include <QLocale>
#include <QString>

namespace VorSystem
{

/// The user's locale: Qt's default locale at the time of construction, with the application's length unit.
class VORCORE_EXPORT VorLocale
{
public:
    /// What formatNumber adds to the bare digits.
    enum Option {
        NoOption = 0x0,    ///< nothing
        GroupDigits = 0x1, ///< the locale's group separator between thousands
    };
    Q_DECLARE_FLAGS(Options, Option)

    VorLocale();
    ~VorLocale();

    /// The unit that the application uses at this moment, not that of the construction.
    LengthUnit lengthUnit() const;

    /// The shortest digits that read back as the same double, with the locale's decimal sign.
    ///
    /// Digits, minus sign and exponent are those of every locale, so that a formula can be read again. From
    /// 1e-5 up to below 1e15 the text has no exponent; others have one, as in "2.5e-07". Without GroupDigits
    /// there is no grouping. Numbers that are not finite give "inf", "-inf" or "nan".
    QString formatNumber(double value, QFlags<VorLocale::Option> options) const;

private:
    QLocale mLocale;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(VorLocale::Options)

} // namespace VorSystem
