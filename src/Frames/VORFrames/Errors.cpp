// The error classes, and how a failed precondition becomes one.

#include <VorFrames/Errors.h>

#include "Preconditions.h"

#include <QCoreApplication>
#include <boost/throw_exception.hpp>

namespace VorSystem
{

NonFatalError::NonFatalError() : NonFatalError(QStringLiteral("Unexpected Data")) {}
NonFatalError::NonFatalError(const QString &text) : std::logic_error(text.toUtf8().constData()) {}
NonFatalError::~NonFatalError() noexcept = default;

AssertionError::AssertionError() = default;
AssertionError::AssertionError(const QString &text) : NonFatalError(text) {}
AssertionError::~AssertionError() noexcept = default;

FatalError::FatalError() : FatalError(QStringLiteral("Unexpected value")) {}
FatalError::FatalError(const QString &text) : std::runtime_error(text.toUtf8().constData()) {}
FatalError::~FatalError() noexcept = default;

void indexOutOfRange(const char *operation, int index, int size)
{
    qFatal("QListEx::%s: index %d is outside a list of size %d", operation, index, size);
}

namespace
{

boost::source_location placeOf(const char *unit, int line, const char *signature)
{
    return {unit, static_cast<boost::uint_least32_t>(line), signature};
}

} // namespace

void invalidOperation(const char *unit, int line, const char *signature)
{
    const QString text = QCoreApplication::translate("VorSystem::VorApplication", "Invalid Operation");
    boost::throw_exception(AssertionError(text), placeOf(unit, line, signature));
}

void unexpectedData(const char *unit, int line, const char *signature)
{
    boost::throw_exception(AssertionError(), placeOf(unit, line, signature));
}

void unexpectedValue(const char *unit, int line, const char *signature)
{
    boost::throw_exception(FatalError(), placeOf(unit, line, signature));
}

} // namespace VorSystem
