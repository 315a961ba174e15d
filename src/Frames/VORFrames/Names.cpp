// Names as the library compares them: case and white space do not count.
//
// The comparison is that of QString without regard to case, over the texts without their white space: code
// unit by code unit in simple case folding, where the second half of a surrogate pair stands for the whole
// character.

#include "VORFrames/Names.h"

#include <VorFrames/FrameSet.h>

#include <QHash>

namespace VorSystem
{

namespace
{

constexpr uint kNoMore = 0xffffffff; // no code point

uint foldedAscii(uint unit)
{
    return unit >= 'A' && unit <= 'Z' ? unit + ('a' - 'A') : unit;
}

// Walks the folded units of a name without its white space.
class FoldedUnits
{
public:
    explicit FoldedUnits(QStringView name)
        : mNext(reinterpret_cast<const ushort *>(name.utf16())), mEnd(mNext + name.size())
    {
    }

    // The next folded unit; kNoMore at the end.
    uint next()
    {
        while (mNext != mEnd) {
            const uint unit = *mNext++;
            if (QChar::isSpace(unit))
                continue;
            const uint previous = mLast;
            mLast = unit;
            if (unit < 0x80)
                return foldedAscii(unit);
            if (QChar::isLowSurrogate(unit) && QChar::isHighSurrogate(previous))
                return QChar::toCaseFolded(
                    QChar::surrogateToUcs4(static_cast<ushort>(previous), static_cast<ushort>(unit)));
            return QChar::toCaseFolded(unit);
        }
        return kNoMore;
    }

private:
    const ushort *mNext;
    const ushort *mEnd;
    uint mLast = 0;
};

// The hash of a name is a polynomial over its units modulo a prime, at a point that differs from run to run.
// Checksums are faster, but anybody can make names that share one, whatever the seed.
constexpr quint64 kPrime = (quint64(1) << 61) - 1;

quint64 productPlus(quint64 a, quint64 b, uint c)
{
    __extension__ using Wide = unsigned __int128;
    const Wide product = static_cast<Wide>(a) * b + c;
    const quint64 folded = (static_cast<quint64>(product) & kPrime) + static_cast<quint64>(product >> 61);
    return folded < kPrime ? folded : folded - kPrime;
}

quint64 secretBase()
{
    quint64 bits = static_cast<quint64>(qGlobalQHashSeed()) + 0x9e3779b97f4a7c15;
    bits = (bits ^ (bits >> 30)) * 0xbf58476d1ce4e5b9;
    bits = (bits ^ (bits >> 27)) * 0x94d049bb133111eb;
    return (bits ^ (bits >> 31)) % kPrime;
}

} // namespace

QString nameKey(const QString &name)
{
    QString key;
    key.reserve(name.size());
    FoldedUnits units(name);
    for (uint unit = units.next(); unit != kNoMore; unit = units.next()) {
        if (QChar::requiresSurrogates(unit)) {
            key.append(QChar(QChar::highSurrogate(unit)));
            key.append(QChar(QChar::lowSurrogate(unit)));
        } else {
            key.append(QChar(static_cast<ushort>(unit)));
        }
    }
    return key;
}

NameMatcher::NameMatcher(QStringView name)
{
    mFolded.reserve(static_cast<int>(name.size()));
    FoldedUnits units(name);
    for (uint unit = units.next(); unit != kNoMore; unit = units.next())
        mFolded.append(unit);
}

bool NameMatcher::matches(const QString &other) const
{
    // Names in a row mostly differ at their end: Waist 1, Waist 2.
    const ushort last = other.isEmpty() ? ushort(' ') : other.at(other.size() - 1).unicode();
    if (last < 0x80 && !QChar::isSpace(last) && (mFolded.isEmpty() || mFolded.last() != foldedAscii(last)))
        return false;

    FoldedUnits units(other);
    for (const uint wanted : mFolded) {
        if (units.next() != wanted)
            return false;
    }
    return units.next() == kNoMore;
}

uint NameMatcher::hash() const
{
    static const quint64 base = secretBase();
    quint64 sum = 1;
    for (const uint unit : mFolded)
        sum = productPlus(sum, base, unit);
    return static_cast<uint>(sum);
}

bool Noms_Identiques(const QString &a, const QString &b)
{
    FoldedUnits left(a);
    FoldedUnits right(b);
    for (;;) {
        const uint unit = left.next();
        if (unit != right.next())
            return false;
        if (unit == kNoMore)
            return true;
    }
}

} // namespace VorSystem
