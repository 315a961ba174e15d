// The errors that the library raises, and the end of the program that a wrong index brings.
#pragma once

#include <VorFrames/VorFramesExport.h>

#include <QString>
#include <boost/exception/exception.hpp>
#include <stdexcept>

namespace VorSystem
{

/// An error after which the document is still usable.
///
/// what() is the text in UTF-8. Thrown objects carry function, source unit and line, readable through
/// boost::get_error_info with boost::throw_function, throw_file and throw_line. Catch by reference.
class VORFRAMES_EXPORT NonFatalError : public boost::exception, public std::logic_error
{
public:
    /// The text is "Unexpected Data".
    NonFatalError();
    /// An error of that text, which ends at a null character.
    explicit NonFatalError(const QString &text);
    /// A copy tells the same text and the same place.
    ///@{
    NonFatalError(const NonFatalError &) = default;
    NonFatalError &operator=(const NonFatalError &) = default;
    ///@}
    ~NonFatalError() noexcept override;
};

/// A precondition that the caller broke; the text is the translated "Invalid Operation".
///
/// Made without a text it keeps "Unexpected Data": a stored identity that the piece does not hold.
class VORFRAMES_EXPORT AssertionError : public NonFatalError
{
public:
    /// The text is "Unexpected Data".
    AssertionError();
    /// An error of that text, which ends at a null character.
    explicit AssertionError(const QString &text);
    /// A copy tells the same text and the same place.
    ///@{
    AssertionError(const AssertionError &) = default;
    AssertionError &operator=(const AssertionError &) = default;
    ///@}
    ~AssertionError() noexcept override;
};

/// An enumerator outside its range where no default makes sense; the text is "Unexpected value".
class VORFRAMES_EXPORT FatalError : public boost::exception, public std::runtime_error
{
public:
    /// The text is "Unexpected value".
    FatalError();
    /// An error of that text, which ends at a null character.
    explicit FatalError(const QString &text);
    /// A copy tells the same text and the same place.
    ///@{
    FatalError(const FatalError &) = default;
    FatalError &operator=(const FatalError &) = default;
    ///@}
    ~FatalError() noexcept override;
};

/// Ends the program through qFatal, in every build: an index outside a list is a programming error.
[[noreturn]] VORFRAMES_EXPORT void indexOutOfRange(const char *operation, int index, int size);

} // namespace VorSystem
