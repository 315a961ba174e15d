// The text of a formula made ready for the grammar, in one pass from its first character to its last.

#include "VOREquations/FormulaScan.h"

#include <VorCore/VorCore.h>

#include <QLocale>
#include <algorithm>

namespace VorSystem
{

namespace
{

bool isAscii(const QString &text)
{
    return std::all_of(text.begin(), text.end(), [](QChar character) { return character.unicode() < 0x80; });
}

/// The code units of text.toLower().
FormulaScan::Text lowerCase(const QString &text)
{
    FormulaScan::Text lowered;
    if (!isAscii(text)) {
        Utility::stringConvert(text.toLower(), lowered);
        return lowered;
    }
    Utility::stringConvert(text, lowered);
    for (unsigned short &character : lowered) {
        if (character >= 'A' && character <= 'Z')
            character = static_cast<unsigned short>(character + ('a' - 'A'));
    }
    return lowered;
}

} // namespace

FormulaScan::FormulaScan(const QString &typed) : mTyped(typed), mText(lowerCase(typed))
{
    const QLocale locale;
    const unsigned short decimalPoint = locale.decimalPoint().unicode();
    const unsigned short groupSeparator = locale.groupSeparator().unicode();

    // A few letters grow longer in lower case. Positions count in the lower-case text, so that names behind
    // such a letter are cut out of the typed text that much too late.
    const int length = static_cast<int>(mText.size());
    mTypedPlaces.resize(length + 1);
    Text::iterator kept = mText.begin();
    int *keptPlace = mTypedPlaces.data();
    for (int place = 0; place < length; ++place) {
        const auto here = mText.cbegin() + place;
        unsigned short character = *here;
        if (character == decimalPoint && place + 1 < length && QChar::isDigit(here[1]))
            character = '.';
        // Deliberate: where the point groups digits, a decimal comma has just become a point and goes as
        // well, so that 3,5 reads as 35.
        if (QChar::isSpace(character) || character == groupSeparator)
            continue;
        *kept++ = character;
        *keptPlace++ = place;
    }
    *keptPlace++ = length;
    mText.erase(kept, mText.end());
    mTypedPlaces.resize(static_cast<int>(keptPlace - mTypedPlaces.data()));
}

QString FormulaScan::typedText(Place first, Place last) const
{
    const int start = mTypedPlaces[static_cast<int>(first - mText.begin())];
    const int end = mTypedPlaces[static_cast<int>(last - mText.begin())];
    return mTyped.mid(start, end - start);
}

FormulaScan::Text FormulaScan::keyword(const QString &word)
{
    return lowerCase(word);
}

} // namespace VorSystem
