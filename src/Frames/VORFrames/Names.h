// Names as the library compares them: case and white space do not count.
//
// Two names are the same exactly when their keys are equal, so that an index inside one call may hash what a
// plain search would compare.
#pragma once

#include <QString>
#include <QStringView>
#include <QVarLengthArray>

namespace VorSystem
{

/// The form of a name in which equal names are equal texts.
QString nameKey(const QString &name);

/// One name, prepared to be compared with many without an allocation each.
class NameMatcher
{
public:
    explicit NameMatcher(QStringView name);
    bool matches(const QString &other) const;
    /// Equal for equal names; differs from one run of the program to the next.
    uint hash() const;

private:
    QVarLengthArray<uint, 64> mFolded;
};

} // namespace VorSystem
