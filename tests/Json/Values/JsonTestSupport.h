// What the tests of the JSON values share: printing, deep nesting, and warnings that are caught.
#pragma once

#include <QDebug>
#include <QStringList>
#include <VorJson/VorJson.h>
#include <ostream>
#include <string>

inline QString operator""_q(const char *text, std::size_t length)
{
    return QString::fromUtf8(text, static_cast<int>(length));
}

/// What a debug stream makes of the value.
template<class T>
std::string debugged(const T &value)
{
    QString text;
    QDebug(&text).nospace() << value;
    return text.toStdString();
}

namespace VorSystem
{

/// How a failed expectation shows the value.
inline void PrintTo(const XJsonValue &value, std::ostream *stream)
{
    *stream << debugged(value);
}

} // namespace VorSystem

/// The compact text form.
template<class Container>
std::string text(const Container &container)
{
    return container.toText().toStdString();
}

template<class Container>
std::string indented(const Container &container)
{
    return container.toText(VorSystem::XJsonFormat::Indented).toStdString();
}

/// An array in an array in ..., of as many levels.
inline VorSystem::XJsonArray nestedArrays(int levels)
{
    VorSystem::XJsonArray array;
    for (int level = 1; level < levels; ++level)
        array = VorSystem::XJsonArray({VorSystem::XJsonValue(array)});
    return array;
}

/// Collects the warnings of its lifetime instead of printing them.
class CaughtWarnings
{
public:
    CaughtWarnings()
    {
        texts().clear();
        mPrevious = qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext &, const QString &warning) { texts().append(warning); });
    }
    ~CaughtWarnings() { qInstallMessageHandler(mPrevious); }
    CaughtWarnings(const CaughtWarnings &) = delete;
    CaughtWarnings &operator=(const CaughtWarnings &) = delete;

    int count() const { return texts().size(); }
    std::string last() const { return texts().isEmpty() ? "none" : texts().last().toStdString(); }

private:
    static QStringList &texts()
    {
        static QStringList caught;
        return caught;
    }

    QtMessageHandler mPrevious;
};
