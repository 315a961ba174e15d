// The one comparison of names, held against the rule told word for word, and the hash that stands in for it.

#include "VORFrames/Names.h"
#include "VORFrames/NameIndex.h"

#include <support/TestDocument.h>

#include <QRegExp>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

using namespace VorSystem;

namespace
{

// White space of any kind goes, then Qt compares without case.
bool identicalByTheRule(QString a, QString b)
{
    const QRegExp space(QStringLiteral("\\s"));
    a.remove(space);
    b.remove(space);
    return QString::compare(a, b, Qt::CaseInsensitive) == 0;
}

bool identicalByKey(const QString &a, const QString &b)
{
    return nameKey(a) == nameKey(b);
}

bool identicalByMatcher(const QString &a, const QString &b)
{
    return NameMatcher(a).matches(b);
}

// Letters, spaces of every kind, surrogates whole and broken, and letters whose case folds in odd ways.
rc::Gen<QString> texts()
{
    const std::vector<ushort> units = {'a',    'A',    'b',    'B',    ' ',    '\t',   '\n',   0x00a0,
                                       0x202f, 0x3000, 0x0085, 0x200b, 0x03c3, 0x03c2, 0x03a3, 0x0130,
                                       0x0131, 0x00df, 0x1e9e, 0x212a, 'k',    'K',    0xd801, 0xdc00,
                                       0xdc28, 0xd83a, 0xdd00, 0xdd22, ':',    0x0000};
    return rc::gen::map(rc::gen::container<std::vector<ushort>>(rc::gen::elementOf(units)),
                        [](const std::vector<ushort> &drawn) {
                            return QString::fromUtf16(drawn.data(), static_cast<int>(drawn.size()));
                        });
}

TEST(Names, caseAndWhiteSpaceDoNotCount)
{
    struct Row {
        const char *a;
        const char *b;
        bool identical;
    };
    const Row rows[] = {
        {"Front Waist", "frontwaist", true},
        {" FRONT  WAIST", "Front Waist", true},
        {"A B", "ab", true},
        {"A-B", "AB", false},
        {"", "   \t\n", true},
        {"", "a", false},
        {"abc", "ab", false},
        {"Ärmel", "ÄRMEL", true},
        {"Straße", "STRASSE", false}, // one letter folds to one letter
    };
    for (const Row &row : rows) {
        const QString a = QString::fromUtf8(row.a);
        const QString b = QString::fromUtf8(row.b);
        EXPECT_EQ(Noms_Identiques(a, b), row.identical) << row.a << " and " << row.b;
        EXPECT_EQ(Noms_Identiques(b, a), row.identical) << row.b << " and " << row.a;
    }
}

TEST(Names, everySpaceOfTheBasicPlaneIsDroppedAndNothingElse)
{
    for (int unit = 0; unit < 0x10000; ++unit) {
        const QString text(QChar(static_cast<ushort>(unit)));
        ASSERT_EQ(Noms_Identiques(text, QString()), identicalByTheRule(text, QString())) << std::hex << unit;
    }
}

TEST(Names, everyLetterOfTheBasicPlaneFoldsAsInTheRule)
{
    for (int unit = 0; unit < 0x10000; ++unit) {
        const QString text(QChar(static_cast<ushort>(unit)));
        for (const QString &other : {text.toLower(), text.toUpper(), text.toCaseFolded()}) {
            ASSERT_EQ(Noms_Identiques(text, other), identicalByTheRule(text, other)) << std::hex << unit;
            ASSERT_EQ(identicalByKey(text, other), identicalByTheRule(text, other)) << std::hex << unit;
        }
    }
}

TEST(Names, everyCharacterBeyondTheBasicPlaneFoldsAsInTheRule)
{
    for (uint code = 0x10000; code < 0x20000; ++code) {
        const QString text = QString::fromUcs4(&code, 1);
        const uint folded = QChar::toCaseFolded(code);
        const QString other = QString::fromUcs4(&folded, 1);
        ASSERT_EQ(Noms_Identiques(text, other), identicalByTheRule(text, other)) << std::hex << code;
        ASSERT_EQ(identicalByKey(text, other), identicalByTheRule(text, other)) << std::hex << code;
    }
}

RC_GTEST_PROP(Names, answerAsTheRuleDoes, ())
{
    const QString a = *texts();
    const QString b =
        *rc::gen::oneOf(texts(), rc::gen::just(a.toUpper()), rc::gen::just(a + QLatin1Char(' ')));
    const bool expected = identicalByTheRule(a, b);
    RC_ASSERT(Noms_Identiques(a, b) == expected);
    RC_ASSERT(identicalByKey(a, b) == expected);
    RC_ASSERT(identicalByMatcher(a, b) == expected);
}

TEST(Names, aMillionLettersAreComparedInOnePass)
{
    const QString a(1000000, QLatin1Char('a'));
    const QString b = QString(1000000, QLatin1Char('A')) + QLatin1Char(' ');
    EXPECT_TRUE(Noms_Identiques(a, b));
    EXPECT_FALSE(Noms_Identiques(a, b + QLatin1Char('x')));
}

// Names of one length in which each letter is one of two; the bits of choice say which.
QString nameOfChoices(quint64 choice, int letters)
{
    QString name(letters, QLatin1Char('a'));
    for (int i = 0; i < letters; ++i) {
        if ((choice >> i & 1) != 0)
            name[i] = QLatin1Char('c');
    }
    return name;
}

// A checksum of bits is the sum of what its bits contribute, so whoever can add can make names that share
// one. A document full of such names must not bring a search by hash down to a walk.
TEST(Names, nobodyMakesNamesOfOneHashByAddingBits)
{
    const int letters = 42;
    const uint none = NameMatcher(nameOfChoices(0, letters)).hash();
    // Elimination: combinations of choices that would change nothing in the hash if it were a sum.
    std::vector<std::pair<uint, quint64>> basis;
    std::vector<quint64> changingNothing;
    for (int letter = 0; letter < letters; ++letter) {
        quint64 choice = quint64(1) << letter;
        uint change = NameMatcher(nameOfChoices(choice, letters)).hash() ^ none;
        for (const auto &row : basis) {
            if ((change ^ row.first) < change) {
                change ^= row.first;
                choice ^= row.second;
            }
        }
        if (change == 0)
            changingNothing.push_back(choice);
        else
            basis.emplace_back(change, choice);
    }
    ASSERT_GE(changingNothing.size(), std::size_t(letters - 32));

    int sharing = 0;
    for (uint combination = 0; combination < 1024; ++combination) {
        quint64 choice = 0;
        for (uint i = 0; i < 10; ++i)
            choice ^= (combination >> i & 1) != 0 ? changingNothing[i] : 0;
        sharing += NameMatcher(nameOfChoices(choice, letters)).hash() == none ? 1 : 0;
    }
    EXPECT_LT(sharing, 10);
}

// A set with colliding names of every kind, some of them with a colon.
class NameIndexes : public testing::Test
{
protected:
    void addSome(const std::vector<int> &drawn)
    {
        static const char *const kNames[] = {"A", "a ", "B", "b:c", "C", ":", "", "A:B", "c "};
        for (const int number : drawn) {
            const QString elementName = QString::fromLatin1(kNames[(number / 8) % 9]);
            switch (number % 8) {
            case 0: mSet.addCenter(entered(new FrameCenter(elementName)), -1); break;
            case 1: mSet.addLink(entered(new FrameLink(elementName)), -1); break;
            case 2: mSet.addSegment(entered(new FrameSegment(elementName)), -1); break;
            case 3: mSet.addSpec(entered(new FrameSpec(elementName)), -1); break;
            case 4: mSet.addMeasurementChart(entered(new FrameMeasurementChart(elementName)), -1); break;
            default: addFrame(elementName, number); break;
            }
        }
    }

    // The index that is kept in step knows the element as soon as the set has it.
    template<class Element>
    Element *entered(Element *element)
    {
        if (mKept != nullptr)
            mKept->add(element);
        return element;
    }

    void addFrame(const QString &frameName, int number)
    {
        const QListEx<FrameCenter *> centers = mSet.getFrameCenters();
        if (centers.isEmpty())
            return;
        auto *const frame = new FrameFrame(frameName);
        mSet.getFramesPtr()->append(frame);
        // The newest comes first on its center, where no index is kept that goes by the time of entering.
        frame->addFrameCenter(centers.at(number % centers.count()), mKept == nullptr ? 0 : -1);
        entered(frame);
    }

    void compareWithPlainSearch(const NameIndex &index);

    FrameSet mSet{QStringLiteral("S"), nullptr};
    NameIndex *mKept = nullptr;
};

void NameIndexes::compareWithPlainSearch(const NameIndex &index)
{
    for (const char *text :
         {"A", "a", "B", "b:c", "C", ":", "", "A:B", "a:a", "a:c", " C : b ", "x", "A:A:B", "b:c:a"}) {
        const QString wanted = QString::fromLatin1(text);
        RC_ASSERT(index.found(wanted, true) == mSet.foundElementAccordingName(wanted, true));
        RC_ASSERT(index.found(wanted, false) == mSet.foundElementAccordingName(wanted, false));
        RC_ASSERT(index.center(wanted) == mSet.findFrameCenterAccordingName(wanted));
        RC_ASSERT(index.link(wanted) == mSet.findFrameLinkAccordingName(wanted));
        RC_ASSERT(index.segment(wanted) == mSet.findFrameSegmentAccordingName(wanted));
        RC_ASSERT(index.spec(wanted) == mSet.findFrameSpecAccordingName(wanted));
        RC_ASSERT(index.chart(wanted) == mSet.findFrameMeasurementChartAccordingName(wanted));
    }
    for (FrameCenter *center : mSet.getFrameCenters())
        RC_ASSERT(index.frameOf(center, QStringLiteral(" B")) ==
                  center->foundFrameAccordingName(QStringLiteral("b")));
}

using Drawn = std::vector<int>;

RC_GTEST_FIXTURE_PROP(NameIndexes, findWhatThePlainSearchFinds, ())
{
    addSome(*rc::gen::container<Drawn>(rc::gen::inRange(0, 1000)));
    compareWithPlainSearch(NameIndex(mSet));
}

RC_GTEST_FIXTURE_PROP(NameIndexes, findWhatEnteredSinceTheyWereMade, ())
{
    addSome(*rc::gen::container<Drawn>(rc::gen::inRange(0, 1000)));
    NameIndex index(mSet);
    mKept = &index;
    for (int round = 0; round < 3; ++round) { // each question may add to what the index prepared
        addSome(*rc::gen::container<Drawn>(rc::gen::inRange(0, 1000)));
        compareWithPlainSearch(index);
    }
}

TEST_F(NameIndexes, findEachOfManyAndNoOther)
{
    constexpr int many = 5000;
    NameIndex index;
    mKept = &index;
    for (int i = 0; i < many; ++i)
        mSet.addSpec(entered(new FrameSpec(QString::number(i))), -1);
    const QListEx<FrameSpec *> specs = mSet.getFrameSpecs();
    for (int i = 0; i < many; ++i)
        ASSERT_EQ(index.spec(QString::number(i)), specs.at(i)) << i;
    EXPECT_EQ(index.spec(QString::number(many)), nullptr);
    EXPECT_EQ(index.segment(QStringLiteral("1")), nullptr);
}

} // namespace
