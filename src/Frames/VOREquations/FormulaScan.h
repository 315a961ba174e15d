// The text of a formula made ready for the grammar.
#pragma once

#include <QString>
#include <QVarLengthArray>
#include <string>

namespace VorSystem
{

/// The text that the grammar sees, and where each of its characters stood in the text as typed.
///
/// Lower case, with a point for the decimal sign, without white space and group separators.
class FormulaScan
{
public:
    using Text = std::basic_string<unsigned short>;
    using Place = Text::const_iterator;

    explicit FormulaScan(const QString &typed);

    const Text &text() const { return mText; }

    /// The part of the typed text that the characters from first up to last stand for, with the case, the
    /// white space inside and the white space after it.
    QString typedText(Place first, Place last) const;

    /// The form in which the grammar compares a word with the text.
    static Text keyword(const QString &word);

private:
    const QString &mTyped;
    Text mText;
    QVarLengthArray<int, 128> mTypedPlaces; ///< of each character, and one past the end
};

} // namespace VorSystem
