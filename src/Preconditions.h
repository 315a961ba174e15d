// The one way in which a failed precondition is reported: "Invalid Operation" with the function's signature,
// the source unit and the line, readable through Boost's throw information.
#pragma once

#include <boost/current_function.hpp>

namespace VorSystem
{

/// Throws AssertionError; unit and signature must be literals, since only their addresses are kept.
[[noreturn]] void invalidOperation(const char *unit, int line, const char *signature);

/// Throws AssertionError with "Unexpected Data": a stored identity that cannot be found.
[[noreturn]] void unexpectedData(const char *unit, int line, const char *signature);

/// Throws FatalError with "Unexpected value": an enumerator outside its range.
[[noreturn]] void unexpectedValue(const char *unit, int line, const char *signature);

} // namespace VorSystem

/// Requires condition. The file that uses it names its unit once: constexpr char kSourceUnit[] =
/// R"(src\Frames\...)".
#define VOR_REQUIRE(condition)                                                                               \
    ((condition) ? static_cast<void>(0)                                                                      \
                 : ::VorSystem::invalidOperation(kSourceUnit, __LINE__, BOOST_CURRENT_FUNCTION))

/// The same where hosts know the failure by a fixed line.
#define VOR_REQUIRE_AT(condition, line)                                                                      \
    ((condition) ? static_cast<void>(0)                                                                      \
                 : ::VorSystem::invalidOperation(kSourceUnit, line, BOOST_CURRENT_FUNCTION))
