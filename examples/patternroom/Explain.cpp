// Why a change fails: the move is made once more on a copy, and values between the present and the wanted
// ones are tried.
#include "Console.h"
#include "Road.h"

#include <algorithm>
#include <cmath>

namespace room
{

using namespace VorSystem;

namespace
{

constexpr int kTrials = 20;            // halvings of the way from present to wanted
constexpr double kWorthTelling = 1e-3; // part of the way; less is the tolerance of a move
constexpr int kFirstPasses = 5;        // shown before the last one

ValuesAccordingSizes listOf(const QListEx<double> &values, const PatternDocument &document)
{
    ValuesAccordingSizes list;
    list.mValues = values;
    list.mNestIndex = static_cast<short>(nestIndex(document));
    return list;
}

QListEx<double> between(const QListEx<double> &present, const QListEx<double> &wanted, double part)
{
    QListEx<double> values;
    for (int size = 0; size < std::min(present.size(), wanted.size()); ++size)
        values.append(present.at(size) + part * (wanted.at(size) - present.at(size)));
    return values;
}

// The wish gone only a part of the way from where the element stands.
Wish shortened(const Wish &wish, const QListEx<double> &measures, const QListEx<double> &levels, int nest,
               double part)
{
    Wish shorter = wish;
    if (wish.measures)
        shorter.measures = between(measures, *wish.measures, part);
    if (wish.levels)
        shorter.levels = between(levels, *wish.levels, part);
    if (wish.measure)
        shorter.measure = measures.value(nest) + part * (*wish.measure - measures.value(nest));
    if (wish.level)
        shorter.level = levels.value(nest) + part * (*wish.level - levels.value(nest));
    return shorter;
}

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
        texts << QStringLiteral("--measure %1").arg(style.show(*wish.measure));
    if (wish.level)
        texts << QStringLiteral("--level %1").arg(style.show(*wish.level));
    if (wish.measures)
        texts << QStringLiteral("--measures \"%1\"").arg(list(*wish.measures));
    if (wish.levels)
        texts << QStringLiteral("--levels \"%1\"").arg(list(*wish.levels));
    return texts.join(QLatin1Char(' '));
}

// The move alone, without what follows from it. Nothing for an element without a body of its own.
QString moveInWords(const PatternDocument &document, const Wish &wish, const LengthStyle &style)
{
    const DocumentPtr copy = copyOf(document);
    const Rehearsal rehearsal(VorCoreApplication::instance().lengthUnit());
    const Element target = elementAt(*copy, wish.element);
    ControlBase *body =
        target.place.kind == Element_Link ? nullptr : target.element->objectControlCorresponding();
    if (!body)
        return QString();

    QListEx<double> measures = readMeasures(target, *copy);
    QListEx<double> levels = readLevels(target, *copy);
    const QListEx<double> present = wish.measure || wish.measures ? measures : levels;
    const bool isMeasure = wish.measure || wish.measures;
    if (wish.measures)
        measures = *wish.measures;
    if (wish.levels)
        levels = *wish.levels;
    if (wish.measure)
        measures[nestIndex(*copy)] = *wish.measure;
    if (wish.level)
        levels[nestIndex(*copy)] = *wish.level;

    CDbGroupObject *piece = target.element->groupCorrespondent();
    QStringList passes;
    if (piece) {
        const QListEx<double> goal = isMeasure ? measures : levels;
        piece->mRebuilt = [&passes, &target, &copy, &style, goal, isMeasure] {
            const QListEx<double> seen = isMeasure ? readMeasures(target, *copy) : readLevels(target, *copy);
            passes << QStringLiteral("  pass %1: %2 left\n")
                          .arg(QString::number(passes.size() + 1), style.show(largestOf(minus(goal, seen))));
        };
    }
    ValuesAccordingSizes wantedMeasures = listOf(measures, *copy);
    ValuesAccordingSizes wantedLevels = listOf(levels, *copy);
    const bool nestAlone = wish.measure || wish.level;
    const eMsgConvergence result =
        body->changeMeasureLevel(ControlBase::MeasureLevel_Both, &wantedMeasures, &wantedLevels,
                                 copy->gradationData(), nestAlone ? ModifyLevel_Nest : ModifyLevel_AllSizes);
    if (piece)
        piece->mRebuilt = nullptr;
    while (passes.size() > kFirstPasses + 2)
        passes.removeAt(kFirstPasses);
    if (passes.size() == kFirstPasses + 2)
        passes[kFirstPasses] = QStringLiteral("  ...\n");
    return QStringLiteral("Result %1: %2.\n%3")
        .arg(QString::number(result), inWords(result), passes.join(QString()));
}

} // namespace

QString inWords(eMsgConvergence result)
{
    switch (result) {
    case Msg_NothingDone: return QStringLiteral("nothing on a piece is tied to it, so nothing moved");
    case Msg_Converged: return QStringLiteral("the piece obeyed");
    case Msg_Moved: return QStringLiteral("it moved, but was not read back");
    case Msg_NotConverged:
        return QStringLiteral("it did not settle: the passes were used up before the piece read as wanted");
    case Msg_MoveFailed: return QStringLiteral("the contour could not give what was asked of it");
    case Msg_Diverged: return QStringLiteral("it moved away from what was wanted with every pass");
    case Msg_Impossible: return QStringLiteral("a length would become less than nothing");
    }
    return QStringLiteral("an answer without words");
}

QString explain(const PatternDocument &document, const Wish &wish, const LengthStyle &style)
{
    const Element target = elementAt(document, wish.element);
    const QListEx<double> measures = readMeasures(target, document);
    const QListEx<double> levels = readLevels(target, document);
    const int nest = nestIndex(document);
    QString text = moveInWords(document, wish, style);

    double works = 0.0;
    double fails = 1.0;
    for (int trial = 0; trial < kTrials; ++trial) {
        const double part = 0.5 * (works + fails);
        const Outcome outcome = rehearse(document, shortened(wish, measures, levels, nest, part));
        (outcome.isObeyed() ? works : fails) = part;
    }
    if (works > kWorthTelling) {
        text += QStringLiteral("As far as this it works: %1\n")
                    .arg(shown(shortened(wish, measures, levels, nest, works), style));
    } else {
        text += QStringLiteral("Nothing on the way from the present values to these works.\n");
    }
    return text;
}

} // namespace room
