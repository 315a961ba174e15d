#include "RandomManagers.h"

#include <VorFrames/FormulaLimits.h>

#include <algorithm>
#include <memory>
#include <vector>

using namespace VorSystem;

namespace jsontest
{

int any(Random &random, int end)
{
    return static_cast<int>(random() % static_cast<unsigned>(end));
}

namespace
{

bool one(Random &random, int outOf)
{
    return any(random, outOf) == 0;
}

/// Fills one set.
class SetFiller
{
public:
    SetFiller(FrameSet &set, Random &random, Losses losses)
        : mSet(set), mRandom(random), mHaveLosses(losses == Losses::Known)
    {
    }

    void fill()
    {
        for (int count = upTo(4); count > 0; --count)
            addSegment();
        for (int count = upTo(4); count > 0; --count)
            valuesOf(mSet.newSpec(name('P')));
        for (int count = upTo(3); count > 0; --count)
            addChart();
        for (int count = upTo(4); count > 0; --count)
            mSet.newCenter(name('K'))->setCharacteristic(FrameCenter::eCharacteristicType(upTo(4)));
        for (int count = upTo(4); count > 0; --count)
            addLink();
        for (int count = mSet.getFrameCenters().isEmpty() ? 0 : upTo(8); count > 0; --count)
            addFrame();
        if (mHaveLosses)
            loseOrders();
        addFormulas();
    }

private:
    int upTo(int most) { return any(mRandom, most + 1); }
    double number() { return (any(mRandom, 2001) - 1000) / 8.0; }

    template<class Element>
    Element *anyOf(const QListEx<Element *> &elements)
    {
        return elements.isEmpty() ? nullptr : elements.at(any(mRandom, elements.count()));
    }

    // No two names are alike, and each is written in some odd way.
    QString name(char kind)
    {
        static const QString tails[] = {QString(), QStringLiteral(" waist"), QStringLiteral("\u00e9\u0130"),
                                        QStringLiteral("\t\"\\"), QStringLiteral("\U0001d11e %1")};
        return QLatin1Char(kind) + QString::number(++mNames) + tails[any(mRandom, 5)];
    }

    void fillList(ValuesAccordingSizes &values, int count, short nest)
    {
        for (int size = 0; size < count; ++size)
            values.mValues.append(number());
        values.mNestIndex = nest;
    }
    // As a reevaluation leaves them: nothing yet, or one value for each size.
    void valuesOf(BaseFrame *element)
    {
        const int count = one(mRandom, 4) ? 0 : 1 + upTo(4);
        const short nest = count == 0 ? short(0) : static_cast<short>(any(mRandom, count));
        fillList(*element->getMeasureBySizes(), count, nest);
        if (ValuesAccordingSizes *const levels = element->getLevelBySizes())
            fillList(*levels, count, mHaveLosses && count > 0 && one(mRandom, 4) ? short(0) : nest);
    }

    void addSegment()
    {
        FrameSegment *const segment = mSet.newSegment(name('S'));
        segment->getInfluenceAreaPercent() = number();
        segment->getDisplace() = FrameSegment::eDisplaceType(upTo(5));
        valuesOf(segment);
    }
    void addChart()
    {
        FrameMeasurementChart *const chart = mSet.newMeasurementChart(name('C'));
        valuesOf(chart);
        if (mHaveLosses)
            chart->setFormulaMeasurementChart(TreeEquations::parse(QStringLiteral("1+1"), &mSet, true));
    }
    void addLink()
    {
        FrameLink *const link = mSet.newLink(name('L'));
        link->setMeasureType(FrameLink::eMeasureType(upTo(3)));
        valuesOf(link);
    }
    void addFrame()
    {
        FrameCenter *const center = anyOf(mSet.getFrameCenters());
        const bool isTwin = mHaveLosses && one(mRandom, 2);
        FrameFrame *frame =
            mSet.newFrame(isTwin ? QStringLiteral("F twin %1").arg(upTo(1)) : name('F'), center);
        if (frame == nullptr) // the center has the twin already
            frame = mSet.newFrame(name('F'), center);
        frame->getPerimeterMeasurement() = one(mRandom, 2);
        frame->setMeasureType(FrameFrame::eMeasureType(upTo(2)));
        frame->setPercentageMeasureRating(number());
        frame->setRatio(number());
        valuesOf(frame);
        if (one(mRandom, 3))
            center->setFrameLevelZero(frame);
        FrameLink *const link = anyOf(mSet.getFrameLinks());
        if (link != nullptr && one(mRandom, 2))
            link->linkFrame(frame);
    }

    void loseOrders()
    {
        for (FrameCenter *center : mSet.getFrameCenters()) {
            QListEx<int> backwards;
            for (int i = center->getFrames().count(); i > 0; --i)
                backwards.append(i - 1);
            if (one(mRandom, 2))
                center->ChangeFrameFrames(backwards);
            if (one(mRandom, 4) && center->getFrameLevelZero() != nullptr)
                center->removeFrame(center->getFrameLevelZero());
        }
        for (FrameLink *link : mSet.getFrameLinks()) {
            const QListEx<FrameFrame *> frames = link->getFrames();
            if (frames.isEmpty() || one(mRandom, 2))
                continue;
            link->removeFrame(frames.first());
            link->linkFrame(frames.first());
        }
    }

    void addFormulas()
    {
        for (FrameSpec *spec : mSet.getFrameSpecs()) {
            if (one(mRandom, 2))
                spec->setFormulaSpec(formula());
        }
        for (FrameLink *link : mSet.getFrameLinks())
            addMeasureAndLevel(link);
        for (FrameFrame *frame : mSet.getFrames())
            addMeasureAndLevel(frame);
        for (FrameSegment *segment : mSet.getFrameSegments()) {
            if (one(mRandom, 2))
                segment->setFormulaMeasurement(formula());
        }
    }
    void addMeasureAndLevel(BaseFrame *element)
    {
        if (one(mRandom, 2))
            element->setFormulaMeasurement(formula());
        if (one(mRandom, 2))
            element->setFormulaLevel(formula());
    }

    // A formula whose units can be settled, as the host accepts no other.
    TreeEquations *formula()
    {
        auto tree = std::make_unique<TreeEquations>();
        fillNode(*tree->root, 1 + upTo(3));
        try {
            TreeEquations(*tree).determineImplicitUnits();
        } catch (const AssertionError &) {
            tree = std::make_unique<TreeEquations>();
            fillNode(*tree->root, 0);
        }
        return tree.release();
    }
    void fillNode(ElementEquation &node, int levels)
    {
        node.contents = ElemContent(levels == 0 ? 1 + upTo(2) : 1 + upTo(7));
        if (node.contents == ElemMeasure || node.contents == ElemLevel) {
            node.element = anyElement();
            if (node.element == nullptr)
                node.contents = ElemValue;
        }
        if (node.contents == ElemValue)
            node.value = number();
        if (node.contents >= ElemParenthesis)
            fillNode(*(node.sonLeft = new ElementEquation), levels - 1);
        if (node.contents >= ElemAdd)
            fillNode(*(node.sonRight = new ElementEquation), levels - 1);
    }
    BaseFrame *anyElement()
    {
        switch (any(mRandom, 6)) {
        case 0: return anyOf(mSet.getFrameSegments());
        case 1: return anyOf(mSet.getFrameSpecs());
        case 2: return anyOf(mSet.getFrameMeasurementCharts());
        case 3: return anyOf(mSet.getFrameCenters());
        case 4: return anyOf(mSet.getFrameLinks());
        default: return anyOf(mSet.getFrames());
        }
    }

    FrameSet &mSet;
    Random &mRandom;
    bool mHaveLosses;
    int mNames = 0;
};

void append(XJsonObject &set, const QString &list, const XJsonObject &item)
{
    XJsonArray items = set.value(list).toArray();
    items.append(item);
    set.insert(list, items);
}

} // namespace

void fill(GestFrames &manager, Random &random, int count, Losses losses)
{
    for (int i = 0; i < count; ++i) {
        auto *const set = new FrameSet(QStringLiteral("Set %1").arg(any(random, 3)), &manager);
        manager.addFrameSet(set, any(random, i + 1) - 1);
        SetFiller(*set, random, losses).fill();
    }
}

XJsonObject damaged(const XJsonObject &set, Random &random)
{
    const QString frames = QStringLiteral("frames"), formulas = QStringLiteral("formulars");
    XJsonObject result = set;
    append(result, QStringLiteral("centers"), object("{'name':'Damaged center'}"));
    append(result, QStringLiteral("links"), object("{'name':'Damaged link'}"));
    append(result, QStringLiteral("segments"), object("{'name':'Damaged segment'}"));
    switch (any(random, 9)) {
    case 0: append(result, frames, object("{'name':'Damaged','center_name':'nowhere'}")); break;
    case 1: append(result, frames, object("{'name':'Damaged','center_name':'Damaged link'}")); break;
    case 2: append(result, frames, XJsonObject()); break;
    case 3:
        append(result, frames,
               object("{'name':'Damaged','center_name':'Damaged center','link_name':'nobody'}"));
        break;
    case 4:
        append(result, frames, object("{'name':'Damaged','center_name':'Damaged center','link_name':null}"));
        break;
    case 5:
        append(
            result, formulas,
            object("{'name':'Damaged link','formular_level':{'root':{'contents':5,'son_left':"
                   "{'contents':1},'son_right':{'contents':3,'frame_element':'Damaged center:nobody'}}}}"));
        break;
    case 6:
        append(result, formulas,
               object("{'name':'Damaged link','formular_measure':{'root':{'contents':6,'son_left':"
                      "{'contents':9},'son_right':{'contents':1}}}}"));
        break;
    case 7:
        append(result, formulas,
               object("{'name':'Damaged segment','formular_measure':{'root':{'contents':0}}}"));
        break;
    default: {
        XJsonObject node = object("{'contents':1}");
        for (int level = 0; level < kMaxFormulaDepth; ++level)
            node = XJsonObject{{QStringLiteral("contents"), int(ElemParenthesis)},
                               {QStringLiteral("son_left"), node}};
        append(
            result, formulas,
            XJsonObject{{QStringLiteral("name"), QStringLiteral("Damaged link")},
                        {QStringLiteral("formular_measure"), XJsonObject{{QStringLiteral("root"), node}}}});
    }
    }
    return result;
}

namespace
{

XJsonValue changedValue(const XJsonValue &value, Random &random);

XJsonValue anotherValue(Random &random)
{
    static const XJsonValue values[] = {
        XJsonValue(),
        true,
        0,
        5,
        2.5,
        -1e300,
        QString(),
        QStringLiteral("K1"),
        QStringLiteral("F1"),
        XJsonArray(),
        XJsonArray{1, XJsonObject()},
        XJsonObject(),
        XJsonObject{{QStringLiteral("name"), QStringLiteral("K1")}},
        XJsonObject{{QStringLiteral("root"), XJsonObject{{QStringLiteral("contents"), 9}}}},
    };
    return values[static_cast<std::size_t>(any(random, int(std::size(values))))];
}

XJsonArray changedArray(XJsonArray array, Random &random)
{
    const int index = array.isEmpty() ? -1 : any(random, array.size());
    switch (index < 0 ? 2 : any(random, 12)) {
    case 0: array.removeAt(index); break;
    case 1: array.insert(index, array.at(any(random, array.size()))); break;
    case 2: array.append(anotherValue(random)); break;
    default: array.replace(index, changedValue(array.at(index), random));
    }
    return array;
}

XJsonValue changedValue(const XJsonValue &value, Random &random)
{
    const bool goesOn = !one(random, 12);
    if (goesOn && value.isArray())
        return changedArray(value.toArray(), random);
    if (goesOn && value.isObject() && !value.toObject().isEmpty())
        return changedSomewhere(value.toObject(), random);
    return anotherValue(random);
}

} // namespace

XJsonObject changedSomewhere(const XJsonObject &set, Random &random)
{
    if (set.isEmpty())
        return XJsonObject{{QStringLiteral("name"), QStringLiteral("K1")}};
    XJsonObject changed = set;
    const QString key = set.keys().at(any(random, set.size()));
    if (one(random, 10))
        changed.remove(key);
    else
        changed.insert(key, changedValue(set.value(key), random));
    return changed;
}

} // namespace jsontest
