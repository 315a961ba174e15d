// Why a change fails: its moves are made once more, each alone on a copy, and values between the present and
// the wanted ones are tried.
#include "Console.h"
#include "Moves.h"

#include <algorithm>
#include <cmath>

namespace room
{

using namespace VorSystem;

namespace
{

constexpr int kTrials = 20;            // at the most, on the way from present to wanted
constexpr int kHalvings = 16;          // of them; the rest is for values that can be typed
constexpr double kBack = 0.995;        // of the way, where a rounded value does not work
constexpr double kWorthTelling = 1e-3; // part of the way; less is the tolerance of a move
constexpr int kFirstPasses = 5;        // shown before the last one

QString passesInWords(const QListEx<double> &gaps, const LengthStyle &style)
{
    QString text;
    for (int pass = 0; pass < gaps.size(); ++pass) {
        const bool isShown = pass < kFirstPasses || pass + 1 == gaps.size();
        if (isShown)
            text += QStringLiteral("  pass %1: %2 left\n")
                        .arg(QString::number(pass + 1), style.show(gaps.at(pass)));
        else if (pass == kFirstPasses)
            text += QStringLiteral("  ...\n");
    }
    return text;
}

// The moves of a wish, each by itself, without what follows from it. isObeyed stays as it was when all obey.
QString movesInWords(const PatternDocument &document, const Wish &wish, const LengthStyle &style,
                     bool &isObeyed)
{
    QString text;
    for (const Move &move : movesOf(document, wish)) {
        const Moved moved = tryMove(document, move);
        text += QStringLiteral("Result %1 for '%2': %3.\n")
                    .arg(QString::number(moved.result), move.path, inWords(moved.result));
        if (moved.result == Msg_Converged)
            continue;
        text += passesInWords(moved.gaps, style);
        isObeyed = false;
    }
    return text;
}

// What a formula drives, and could not follow it.
struct Follower {
    ElementPlace place;
    bool isLevel;
    std::unique_ptr<TreeEquations> formula;
};

// Takes the formula off its element.
Follower detached(const Element &element, bool isLevel)
{
    const TreeEquations *formula =
        isLevel ? element.element->formulaLevel() : element.element->measurementFormula();
    Follower follower{element.place, isLevel, nullptr};
    if (formula)
        follower.formula = std::make_unique<TreeEquations>(*formula);
    if (isLevel)
        element.element->setFormulaLevel(nullptr);
    else
        element.element->setFormulaMeasurement(nullptr);
    return follower;
}

// Everything but the elements that did not follow takes the road; then each of these is moved by itself.
QString followersInWords(const PatternDocument &document, const Wish &wish, const Outcome &failed,
                         const LengthStyle &style, bool &isObeyed)
{
    const DocumentPtr copy = copyOf(document);
    const Rehearsal rehearsal(VorCoreApplication::instance().lengthUnit());
    std::vector<Follower> followers;
    for (const LostFormula &lost : failed.difference.lostFormulas)
        followers.push_back(detached(elementAt(*copy, lost.place), lost.isLevel));
    for (const Readback &driven : failed.driven) {
        if (!driven.isObeyed())
            followers.push_back(detached(elementAt(*copy, driven.place), driven.isLevel));
    }
    if (followers.empty())
        return QString();

    takeTheRoad(*copy, wish);
    QString text;
    for (const Follower &follower : followers) {
        if (!follower.formula)
            continue;
        QListEx<double> wanted;
        for (int size = 0; size < sizeCount(*copy); ++size)
            wanted.append(follower.formula->evaluate(static_cast<short>(size)));
        Wish own;
        own.element = follower.place;
        (follower.isLevel ? own.levels : own.measures) = wanted;
        text += QStringLiteral("Then '%1' is to follow '%2':\n")
                    .arg(elementAt(*copy, follower.place).path(), follower.formula->toString()) +
                movesInWords(*copy, own, style, isObeyed);
    }
    return text;
}

// A wish on its way from where its element stands.
class Way
{
public:
    Way(const PatternDocument &document, const Wish &wish) : mWish(wish), mNest(nestIndex(document))
    {
        const Element target = elementAt(document, wish.element);
        mMeasures = readMeasures(target, document);
        mLevels = readLevels(target, document);
    }

    Wish at(double part) const
    {
        return changed(mWish,
                       [part](double value, double present) { return present + part * (value - present); });
    }

    // As it can be typed: no value is farther from where the element stands.
    Wish typed(double part, const LengthStyle &style) const
    {
        return changed(at(part),
                       [&style](double value, double present) { return style.typed(value, present); });
    }

private:
    template<class Change>
    Wish changed(Wish wish, const Change &change) const
    {
        const auto changeAll = [&](QListEx<double> &values, const QListEx<double> &present) {
            for (int size = 0; size < values.size(); ++size)
                values[size] = change(values.at(size), present.value(size));
        };
        if (wish.measures)
            changeAll(*wish.measures, mMeasures);
        if (wish.levels)
            changeAll(*wish.levels, mLevels);
        if (wish.measure)
            wish.measure = change(*wish.measure, mMeasures.value(mNest));
        if (wish.level)
            wish.level = change(*wish.level, mLevels.value(mNest));
        return wish;
    }

    Wish mWish;
    int mNest;
    QListEx<double> mMeasures;
    QListEx<double> mLevels;
};

QString shown(const Wish &wish, const LengthStyle &style)
{
    QStringList texts;
    const auto list = [&](const QListEx<double> &values) {
        QStringList parts;
        for (const double value : values)
            parts << style.show(value);
        return parts.join(QLatin1Char(';'));
    };
    if (wish.measure)
        texts << QStringLiteral("--measure \"%1\"").arg(style.show(*wish.measure));
    if (wish.level)
        texts << QStringLiteral("--level \"%1\"").arg(style.show(*wish.level));
    if (wish.measures)
        texts << QStringLiteral("--measures \"%1\"").arg(list(*wish.measures));
    if (wish.levels)
        texts << QStringLiteral("--levels \"%1\"").arg(list(*wish.levels));
    return texts.join(QLatin1Char(' '));
}

// By bisection; then a little back until the value, rounded as it is shown, works as well.
QString whatWorks(const PatternDocument &document, const Wish &wish, const LengthStyle &style)
{
    const Way way(document, wish);
    double works = 0.0;
    double fails = 1.0;
    for (int trial = 0; trial < kHalvings; ++trial) {
        const double part = 0.5 * (works + fails);
        (rehearse(document, way.at(part)).isObeyed() ? works : fails) = part;
    }
    for (int trial = kHalvings; trial < kTrials && works > kWorthTelling; ++trial) {
        const Wish typed = way.typed(works, style);
        if (rehearse(document, typed).isObeyed())
            return QStringLiteral("As far as this it works: %1\n").arg(shown(typed, style));
        works *= kBack;
    }
    return QStringLiteral("Nothing on the way from the present values to these works.\n");
}

} // namespace

QString explain(const PatternDocument &document, const Wish &wish, const Outcome &failed,
                const LengthStyle &style)
{
    QString text;
    bool isObeyed = true;
    if (failed.isRefused) {
        text = QStringLiteral("Result: refused before anything moved.\n");
    } else {
        text = movesInWords(document, wish, style, isObeyed) +
               followersInWords(document, wish, failed, style, isObeyed);
        if (isObeyed)
            text += QStringLiteral("Each of these moves is obeyed by itself; together they are not.\n");
    }
    return text + whatWorks(document, wish, style);
}

} // namespace room
