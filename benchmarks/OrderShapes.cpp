// Frame sets of a given number of values, in the shapes that documents have.

#include "OrderShapes.h"

#include <cstdio>
#include <cstdlib>
#include <random>
#include <vector>

using namespace VorSystem;

namespace shapes
{

namespace
{

constexpr int kFramesPerCenter = 50;

ElementEquation *leaf(BaseFrame *element)
{
    return element == nullptr ? new ElementEquation(ElemValue, 1.0, nullptr)
                              : new ElementEquation(ElemMeasure, 0.0, element);
}

} // namespace

TreeEquations *sum(BaseFrame *first, BaseFrame *second)
{
    auto *const formula = new TreeEquations;
    delete formula->root;
    formula->root = new ElementEquation(ElemAdd, 0.0, nullptr);
    formula->root->sonLeft = leaf(first);
    formula->root->sonRight = leaf(second);
    return formula;
}

class LargeSet::Bare : public Document
{
public:
    const GradationData *gradationData() const override { return &gradation; }
    GestFrames *framesManager() const override { return manager; }
    const t_Plan *plan() const override { return nullptr; }

    GradationData gradation;
    GestFrames *manager = nullptr;
};

LargeSet::LargeSet(const std::string &shape, int values) : mDocument(new Bare)
{
    mDocument->manager = &mManager;
    mManager.setDocument(mDocument.get());
    mSet = new FrameSet(QStringLiteral("Set"), &mManager);
    mManager.addFrameSet(mSet, -1);

    if (shape == "wide")
        makeWide(values);
    else if (shape == "chain")
        makeChain(values);
    else if (shape == "random")
        makeRandom(values);
    else if (shape == "followers")
        makeFollowers(values);
    else if (shape == "links")
        makeLinks(values);
    else {
        std::fprintf(stderr, "unknown shape %s: wide, chain, random, followers, links\n", shape.c_str());
        std::exit(2);
    }
}

LargeSet::~LargeSet() = default;

void LargeSet::fillSizes()
{
    constexpr short sizes = 10;
    mDocument->gradation = GradationData(sizes, 4);
    const auto fill = [](ValuesAccordingSizes *values) {
        if (values == nullptr)
            return;
        values->mValues.clear();
        for (int size = 0; size < sizes; ++size)
            values->mValues.append(20.0 + size);
        values->mNestIndex = 3;
    };
    const auto fillAll = [&](const auto &elements) {
        for (BaseFrame *element : elements) {
            fill(element->getMeasureBySizes());
            fill(element->getLevelBySizes());
        }
    };
    fillAll(mSet->getFrames());
    fillAll(mSet->getFrameLinks());
    fillAll(mSet->getFrameSegments());
}

FrameFrame *LargeSet::addFrame()
{
    if (mCount++ % kFramesPerCenter == 0) {
        mCenter = new FrameCenter(QString::number(mCount));
        mSet->addCenter(mCenter, -1);
    }
    auto *const frame = new FrameFrame(QString::number(mCount));
    frame->addFrameCenter(mCenter, -1);
    mSet->addFrame(frame, -1);
    return frame;
}

FrameSegment *LargeSet::addSegment()
{
    auto *const segment = new FrameSegment(QString::number(++mCount));
    mSet->addSegment(segment, -1);
    return segment;
}

void LargeSet::makeWide(int values)
{
    for (int made = 0; made + 3 <= values; made += 3) {
        addFrame();
        addSegment();
    }
}

void LargeSet::makeChain(int values)
{
    FrameSegment *last = nullptr;
    for (int made = 0; made < values; ++made) {
        FrameSegment *const segment = addSegment();
        segment->rememberFormula(sum(last, nullptr));
        last = segment;
    }
}

void LargeSet::makeRandom(int values)
{
    std::mt19937 engine(1);
    std::vector<BaseFrame *> made;
    const auto any = [&]() -> BaseFrame * {
        return made[std::uniform_int_distribution<std::size_t>(0, made.size() - 1)(engine)];
    };
    for (int count = 0; count + 3 <= values; count += 3) {
        FrameFrame *const frame = addFrame();
        FrameSegment *const segment = addSegment();
        if (!made.empty()) {
            frame->setFormulaMeasurement(sum(any(), any()));
            segment->rememberFormula(sum(any(), nullptr));
        }
        made.push_back(frame);
        made.push_back(segment);
    }
}

void LargeSet::makeFollowers(int values)
{
    FrameLink *const link = new FrameLink(QStringLiteral("Link"));
    mSet->addLink(link, -1);
    link->setFormulaMeasurement(sum(nullptr, nullptr));
    for (int made = 2; made + 2 <= values; made += 2)
        link->linkFrame(addFrame());
}

void LargeSet::makeLinks(int values)
{
    for (int made = 0; made + 24 <= values; made += 24) {
        FrameLink *const link = new FrameLink(QString::number(made));
        mSet->addLink(link, -1);
        for (int i = 0; i < 10; ++i)
            link->linkFrame(addFrame());
        addFrame()->setFormulaMeasurement(sum(link, nullptr));
    }
}

} // namespace shapes
