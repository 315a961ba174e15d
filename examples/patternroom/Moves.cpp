#include "Moves.h"

#include "Console.h"

#include <VorFrames/CDbFrameModifyMeasure.h>

#include <algorithm>

namespace room
{

using namespace VorSystem;

namespace
{

ValuesAccordingSizes listOf(const QListEx<double> &values, const PatternDocument &document)
{
    ValuesAccordingSizes list;
    list.mValues = values;
    list.mNestIndex = static_cast<short>(nestIndex(document));
    return list;
}

// The frames of a link with their shares, as the library hands them out.
std::vector<Move> sharesOf(const PatternDocument &document, const Wish &wish, const Move &whole)
{
    if (wish.level && makesOrigin(*wish.level))
        return {}; // the frames become origins, each by itself
    auto *link = static_cast<FrameLink *>(elementAt(document, wish.element).element);
    const ValuesAccordingSizes present = *link->getMeasureBySizes();
    CDbFrameModifyMeasure sharing(*link, listOf(whole.goal.measures, document), present,
                                  whole.isNestAlone ? ModifyLevel_Nest : ModifyLevel_AllSizes);
    const QListEx<double> raised = minus(whole.goal.levels, link->getLevelBySizes()->mValues);
    std::vector<Move> shares;
    for (const Element &element : elementsOf(document)) {
        auto *frame = dynamic_cast<FrameFrame *>(element.element);
        if (!frame || frame->getLink() != link)
            continue;
        ValuesAccordingSizes measures = *frame->getMeasureBySizes();
        sharing.calculateNewMeasure(*frame, &measures);
        QListEx<double> levels = frame->getLevelBySizes()->mValues;
        for (int size = 0; size < std::min(levels.size(), raised.size()); ++size)
            levels[size] += raised.at(size);
        Move share = whole;
        share.element = element.place;
        share.path = element.path();
        share.goal = {measures.mValues, levels};
        shares.push_back(share);
    }
    return shares;
}

} // namespace

std::vector<Move> movesOf(const PatternDocument &document, const Wish &wish)
{
    const Element target = elementAt(document, wish.element);
    Move move;
    move.element = wish.element;
    move.path = target.path();
    move.goal = goalOf(target, document, wish);
    move.isMeasure = wish.measure || wish.measures;
    move.isNestAlone = !wish.hasLists();
    if (target.place.kind == Element_Link)
        return sharesOf(document, wish, move);
    if (!target.element->objectControlCorresponding())
        return {};
    return {move};
}

Moved tryMove(const PatternDocument &document, const Move &move)
{
    const DocumentPtr copy = copyOf(document);
    const Rehearsal rehearsal(VorCoreApplication::instance().lengthUnit());
    const Element target = elementAt(*copy, move.element);
    Moved moved;
    ControlBase *body = target.element->objectControlCorresponding();
    if (!body)
        return moved;

    // A move to another level keeps the measure, and the other way round: both are watched.
    const int nest = nestIndex(*copy);
    const auto gapOf = [&](const QListEx<double> &read, const QListEx<double> &wanted) {
        const QListEx<double> gaps = minus(read, wanted);
        return move.isNestAlone ? std::abs(gaps.value(nest)) : largestOf(gaps);
    };
    const auto gap = [&] {
        return std::max(gapOf(readMeasures(target, *copy), move.goal.measures),
                        gapOf(readLevels(target, *copy), move.goal.levels));
    };
    CDbGroupObject *piece = target.element->groupCorrespondent();
    if (piece)
        piece->mRebuilt = [&moved, &gap] { moved.gaps.append(gap()); };
    ValuesAccordingSizes measures = listOf(move.goal.measures, *copy);
    ValuesAccordingSizes levels = listOf(move.goal.levels, *copy);
    moved.result =
        body->changeMeasureLevel(ControlBase::MeasureLevel_Both, &measures, &levels, copy->gradationData(),
                                 move.isNestAlone ? ModifyLevel_Nest : ModifyLevel_AllSizes);
    if (piece)
        piece->mRebuilt = nullptr;
    return moved;
}

QString inWords(eMsgConvergence result)
{
    switch (result) {
    case Msg_NothingDone: return QStringLiteral("nothing on a piece is tied to it, so nothing moved");
    case Msg_Converged: return QStringLiteral("the piece obeyed");
    case Msg_Moved: return QStringLiteral("it moved, but was not read back");
    case Msg_NotConverged:
        return QStringLiteral("it did not settle: the passes were used up before the piece read as wanted");
    case Msg_MoveFailed: return QStringLiteral("the contour could not give what was asked of it");
    case Msg_Diverged: return QStringLiteral("it came no nearer to what was wanted with the passes");
    case Msg_Impossible: return QStringLiteral("a length would become less than nothing");
    }
    return QStringLiteral("an answer without words");
}

} // namespace room
