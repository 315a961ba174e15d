// Utility: small conversions.
#pragma once

#include <VorCore/VorCoreExport.h>

#include <string>

class QString;

namespace VorSystem
{

/// Functions that need no object; none can be made.
class VORCORE_EXPORT Utility
{
public:
    Utility() = delete;

    /// Replaces converted by the UTF-16 code units of text, one for one: lone surrogates and code 0 included.
    static void stringConvert(const QString &text, std::basic_string<unsigned short> &converted);
};

} // namespace VorSystem
