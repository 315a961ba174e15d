// The text of a formula made ready for the grammar, in one pass from its first character to its last.

#include "VOREquations/FormulaScan.h"

#include <VorCore/VorCore.h>

#include <QLocale>

namespace VorSystem
{

FormulaScan::FormulaScan(const QString &typed) : mTyped(typed)
{
    const QLocale locale;
    const QChar decimalPoint = locale.decimalPoint();
    const QChar groupSeparator = locale.groupSeparator();

    // A few letters grow longer in lower case. Positions count in the lower-case text, so that names behind
    // such a letter are cut out of the typed text that much too late.
    const QString lowered = typed.toLower();
    const int length = lowered.size();
    QString kept(length, Qt::Uninitialized);
    QChar *write = kept.data();
    mTypedPlaces.reserve(length + 1);
    for (int place = 0; place < length; ++place) {
        QChar character = lowered.at(place);
        if (character == decimalPoint && place + 1 < length && lowered.at(place + 1).isDigit())
            character = QLatin1Char('.');
        // Deliberate: where the point groups digits, a decimal comma has just become a point and goes as
        // well, so that 3,5 reads as 35.
        if (character.isSpace() || character == groupSeparator)
            continue;
        *write++ = character;
        mTypedPlaces.append(place);
    }
    mTypedPlaces.append(length);
    kept.truncate(static_cast<int>(write - kept.constData()));
    Utility::stringConvert(kept, mText);
}

QString FormulaScan::typedText(Place first, Place last) const
{
    const int start = mTypedPlaces[static_cast<int>(first - mText.begin())];
    const int end = mTypedPlaces[static_cast<int>(last - mText.begin())];
    return mTyped.mid(start, end - start);
}

FormulaScan::Text FormulaScan::keyword(const QString &word)
{
    Text converted;
    Utility::stringConvert(word.toLower(), converted);
    return converted;
}

} // namespace VorSystem
