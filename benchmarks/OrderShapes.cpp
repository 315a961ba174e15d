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
    const t_Plan *plan() const override { return &pieces; }

    GradationData gradation;
    t_Plan pieces;
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
    else if (shape == "pieces")
        makePieces(values);
    else {
        std::fprintf(stderr, "unknown shape %s: wide, chain, random, followers, links, pieces\n",
                     shape.c_str());
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

void LargeSet::makePieces(int values)
{
    constexpr int perPiece = 12; // four frames with two values, four segments with one
    for (int made = 0; made + perPiece <= values; made += perPiece) {
        ControlSkeleton *const skeleton = addPiece(100.0 * made);
        const GabaritObject *const outline = skeleton->getGabarit();
        mCenter = new FrameCenter(QString::number(made));
        mCenter->setCharacteristic(FrameCenter::Characteristic_TwoSides);
        mSet->addCenter(mCenter, -1);
        new ControlCenter(outline->gabaritGetContourVector(1), outline->gabaritGetContourVector(8), skeleton,
                          mCenter, true);
        for (short i = 0; i < 4; ++i) {
            auto *const frame = new FrameFrame(QString::number(i));
            frame->addFrameCenter(mCenter, -1);
            mSet->addFrame(frame, -1);
            const auto right = static_cast<short>(3 + i);
            new ControlFrame(outline->gabaritGetContourVector(right),
                             outline->gabaritGetContourVector(static_cast<short>(13 - i)), skeleton, frame);
            if (i % 2 == 1)
                frame->setFormulaMeasurement(sum(nullptr, nullptr));
            new ControlSegment(outline->gabaritGetContourVector(right),
                               outline->gabaritGetContourVector(static_cast<short>(right + 1)), skeleton,
                               addSegment());
        }
    }
}

// 40 x 60 cm, fourteen vectors: the middle of the bottom is the first, the middle of the top the eighth, six
// on either side.
ControlSkeleton *LargeSet::addPiece(double x)
{
    auto *const group = new CDbGroupObject;
    GabaritObject *const outline = group->newGabarit();
    outline->addContourVector({x, 0.0});
    for (int i = 0; i < 6; ++i)
        outline->addContourVector({x + 20.0, 12.0 * i});
    outline->addContourVector({x, 60.0});
    for (int i = 5; i >= 0; --i)
        outline->addContourVector({x - 20.0, 12.0 * i});
    mDocument->pieces.addGroup(group);
    mSkeletons.push_back(std::make_unique<ControlSkeleton>(group, outline));
    return mSkeletons.back().get();
}

} // namespace shapes
