// The grammar held against a plain reading of its rules: descent by hand, one function for each rule, and a
// stack of printed trees.

#include "FormulaFixture.h"
#include "RandomNumbers.h"

#include <rapidcheck/gtest.h>
#include <vector>

using namespace formulas;
using namespace VorSystem;

namespace
{

/// Reads a text in the C locale, where white space and commas count for nothing.
class PlainReader
{
public:
    PlainReader(const QString &typed, const FrameSet &set)
        : mTyped(typed), mSet(set), mMeasure(translated("Measure")), mLevel(translated("Level"))
    {
        for (int place = 0; place < typed.size(); ++place) {
            if (typed.at(place).isSpace() || typed.at(place) == QLatin1Char(','))
                continue;
            mText += typed.at(place).toLower();
            mTypedPlaces.push_back(place);
        }
        mTypedPlaces.push_back(typed.size());
    }

    /// The printed tree; "null" for no formula.
    QString read()
    {
        const bool whole = formula() && mPlace == mText.size() && mStack.size() == 1;
        return whole ? mStack.back().printed : QStringLiteral("null");
    }

private:
    struct Tree {
        QString printed;
        QString name; ///< of a bare name
    };

    static QString translated(const char *word)
    {
        return QCoreApplication::translate("VorSystem::Frames", word).toLower();
    }

    bool formula()
    {
        if (!term())
            return false;
        while (true) {
            const int before = mPlace;
            if (sign('+') && term())
                join("+");
            else if (back(before) && sign('-') && term())
                join("-");
            else
                return back(before);
        }
    }
    bool term()
    {
        if (!factor())
            return false;
        while (true) {
            const int before = mPlace;
            if (sign('*') && factor())
                join("*");
            else if (back(before) && sign('/') && factor())
                join("/");
            else
                return back(before);
        }
    }
    bool factor()
    {
        const int before = mPlace;
        return number() || (back(before) && reference(mMeasure, "M")) ||
               (back(before) && reference(mLevel, "L")) || (back(before) && name()) ||
               (back(before) && sign('(') && formula() && sign(')')) ||
               (back(before) && sign('-') && factor() && negated()) ||
               (back(before) && sign('+') && factor());
    }
    bool number()
    {
        const int start = mPlace;
        if (!sign('+'))
            sign('-');
        const bool hasWhole = digits();
        const bool hasFraction = sign('.') && digits();
        if (!hasWhole && !hasFraction)
            return false;
        if (sign('e')) {
            if (!sign('+'))
                sign('-');
            if (!digits())
                return false;
        }
        QString written = mText.mid(start, mPlace - start);
        if (written.startsWith(QLatin1Char('+')))
            written.remove(0, 1);
        mStack.push_back({QString::number(written.toDouble(), 'g', 12), {}});
        return true;
    }
    bool digits()
    {
        const int before = mPlace;
        while (mPlace < mText.size() && mText.at(mPlace) >= QLatin1Char('0') &&
               mText.at(mPlace) <= QLatin1Char('9'))
            ++mPlace;
        return mPlace > before;
    }
    bool reference(const QString &word, const char *letter)
    {
        if (mText.midRef(mPlace, word.size()) != word)
            return false;
        mPlace += word.size();
        if (!sign('(') || !name() || !sign(')'))
            return false;
        Tree &tree = mStack.back();
        BaseFrame *const element = mSet.foundElementAccordingName(tree.name, false);
        tree.printed = QStringLiteral("%1[%2]").arg(
            QString::fromLatin1(letter), element == nullptr ? QStringLiteral("?") : element->fullName());
        return true;
    }
    bool name()
    {
        const int start = mPlace;
        while (mPlace < mText.size() && !QStringLiteral("%()*/+-").contains(mText.at(mPlace)))
            ++mPlace;
        if (mPlace == start)
            return false;
        const int first = mTypedPlaces[static_cast<std::size_t>(start)];
        const int last = mTypedPlaces[static_cast<std::size_t>(mPlace)];
        const QString cut = mTyped.mid(first, last - first);
        mStack.push_back({QStringLiteral("<%1>").arg(cut), cut});
        return true;
    }

    bool sign(char wanted)
    {
        if (mPlace == mText.size() || mText.at(mPlace) != QLatin1Char(wanted))
            return false;
        ++mPlace;
        return true;
    }
    /// Goes back in the text; what lies on the stack stays there.
    bool back(int place)
    {
        mPlace = place;
        return true;
    }
    void join(const char *sign)
    {
        const QString right = mStack.back().printed;
        mStack.pop_back();
        mStack.back() = {
            QStringLiteral("(%1 %2 %3)").arg(mStack.back().printed, QString::fromLatin1(sign), right), {}};
    }
    bool negated()
    {
        mStack.back() = {QStringLiteral("(0 - %1)").arg(mStack.back().printed), {}};
        return true;
    }

    QString mTyped;
    const FrameSet &mSet;
    QString mMeasure;
    QString mLevel;
    QString mText;
    std::vector<int> mTypedPlaces;
    int mPlace = 0;
    std::vector<Tree> mStack;
};

class GrammarScene : public FormulaTest
{
public:
    void TestBody() override {}
};

/// Texts of whole tokens, so that many of them are formulas.
QString randomText()
{
    static const QStringList kTokens = {
        QStringLiteral("Measure"),
        QStringLiteral("LEVEL"),
        QStringLiteral("measure(a)"),
        QStringLiteral("Level( B )"),
        QStringLiteral("Measure(Front:Waist)"),
        QStringLiteral("Front Width"),
        QStringLiteral("("),
        QStringLiteral("("),
        QStringLiteral(")"),
        QStringLiteral(")"),
        QStringLiteral("+"),
        QStringLiteral("-"),
        QStringLiteral("*"),
        QStringLiteral("/"),
        QStringLiteral("%"),
        QStringLiteral("."),
        QStringLiteral(","),
        QStringLiteral("1"),
        QStringLiteral("20"),
        QStringLiteral("3.5"),
        QStringLiteral("e"),
        QStringLiteral("5e1"),
        QStringLiteral("a"),
        QStringLiteral("x"),
        QStringLiteral(" "),
        QStringLiteral("\t\u00a0"),
        QStringLiteral("\u4e2d"),
        QStringLiteral("\u0663"),
        QStringLiteral(":"),
        QString(QChar(0)),
    };
    QString text;
    const int length = anyBelow(12);
    for (int i = 0; i < length; ++i)
        text += kTokens.at(anyBelow(kTokens.size()));
    return text;
}

RC_GTEST_PROP(FormulaGrammarProperty, everyTextReadsAsByThePlainRules, ())
{
    GrammarScene scene;
    std::unique_ptr<Language> language;
    // Words that are names, numbers and signs too, and one that is both.
    switch (anyBelow(5)) {
    case 0: language = std::make_unique<Language>(QStringLiteral("a"), QStringLiteral("x")); break;
    case 1: language = std::make_unique<Language>(QStringLiteral("1"), QStringLiteral("(")); break;
    case 2: language = std::make_unique<Language>(QStringLiteral("-"), QStringLiteral("-")); break;
    default: break;
    }
    for (int i = 0; i < 50; ++i) {
        const QString typed = randomText();
        const std::string expected = text(PlainReader(typed, scene.mSet).read());
        RC_ASSERT(shape(scene.parsed(typed)) == expected);
    }
}

} // namespace
