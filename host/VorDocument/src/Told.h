// What there is to tell of one set or one skeleton, within bounds.
#pragma once

#include <QString>
#include <QStringList>

namespace VorSystem
{

/// Collects sentences about one thing; of a text that is wrong throughout only the first ones are kept.
class Told
{
public:
    /// Every sentence begins with about, a colon and a blank.
    explicit Told(const QString &about) : mAbout(about) {}

    void add(const QString &words)
    {
        if (mSentences.size() < kMost)
            mSentences << mAbout + QStringLiteral(": ") + words;
        else
            ++mMore;
    }
    /// The sentences, and how many more there would have been.
    QStringList sentences() const
    {
        if (mMore == 0)
            return mSentences;
        return mSentences + QStringList(QStringLiteral("%1: and %2 more.").arg(mAbout).arg(mMore));
    }

private:
    static constexpr int kMost = 20;

    QString mAbout;
    QStringList mSentences;
    int mMore = 0;
};

} // namespace VorSystem
