// Utility: small conversions.
#include <VorCore/Utility.h>

#include <QString>

#include <algorithm>

namespace VorSystem
{

void Utility::stringConvert(const QString &text, std::basic_string<unsigned short> &converted)
{
    converted.resize(static_cast<std::size_t>(text.size()));
    std::transform(text.cbegin(), text.cend(), converted.begin(),
                   [](QChar character) { return character.unicode(); });
}

} // namespace VorSystem
