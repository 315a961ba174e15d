// How a link shares a new total among its frames.

#include <support/TestDocument.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>

using namespace VorSystem;
using support::name;
using support::sizes;
using support::text;

namespace
{

// Three frames, the third on a center that doubles and moves two sides.
class Strategies : public testing::Test
{
protected:
    Strategies()
    {
        set.newCenter(name("D"))->setCharacteristic(FrameCenter::Characteristic_TwoSidesDoubled);
        FrameCenter *const plain = set.newCenter(name("C"));
        frames.append(set.newFrame(name("A"), plain));
        frames.append(set.newFrame(name("B"), plain));
        frames.append(set.newFrame(name("E"), set.findFrameCenterAccordingName(name("D"))));
        for (FrameFrame *frame : frames)
            link->linkFrame(frame);
    }

    // What each frame's list becomes, one after the other.
    std::string shared(const ValuesAccordingSizes &newTotal, const ValuesAccordingSizes &oldTotal,
                       eModifyLevelActionType action, const ValuesAccordingSizes &own)
    {
        CDbFrameModifyMeasure strategy(*link, newTotal, oldTotal, action);
        std::string result;
        for (FrameFrame *frame : frames) {
            ValuesAccordingSizes copy = own;
            strategy.calculateNewMeasure(*frame, &copy);
            result += (result.empty() ? "" : " | ") + text(copy);
        }
        return result;
    }

    FrameSet set{QStringLiteral("S"), nullptr};
    FrameLink *link = set.newLink(name("L"));
    QListEx<FrameFrame *> frames;
};

TEST_F(Strategies, proportionalKeepsTheShares)
{
    EXPECT_EQ(
        shared(sizes({20, 30, 60}, 1), sizes({10, 20, 30}, 1), ModifyLevel_AllSizes, sizes({5, 8, 10}, 1)),
        "10 [12] 20 | 10 [12] 20 | 10 [12] 20");
    EXPECT_EQ(shared(sizes({20, 30, 60}, 1), sizes({10, 20, 30}, 1), ModifyLevel_Nest, sizes({5, 8, 10}, 1)),
              "5 [12] 10 | 5 [12] 10 | 5 [12] 10"); // the nest alone
}

TEST_F(Strategies, proportionalOverATotalOfZeroIsZeroWhateverTheNewTotal)
{
    EXPECT_EQ(
        shared(sizes({20, 30, 60}, 1), sizes({0.0, 20, -0.0}, 1), ModifyLevel_AllSizes, sizes({5, 8, 10}, 1)),
        "0 [12] 0 | 0 [12] 0 | 0 [12] 0");
}

TEST_F(Strategies, proportionalInTheNestTestsTheSmallestSizeAndDividesAtTheNest)
{
    EXPECT_EQ(shared(sizes({20, 30, 60}, 1), sizes({0, 20, 30}, 1), ModifyLevel_Nest, sizes({5, 8, 10}, 1)),
              "5 [0] 10 | 5 [0] 10 | 5 [0] 10"); // a smallest size of zero gives the factor 0
    EXPECT_EQ(shared(sizes({20, 30, 60}, 1), sizes({10, 0, 30}, 1), ModifyLevel_Nest, sizes({5, 8, 10}, 1)),
              "5 [inf] 10 | 5 [inf] 10 | 5 [inf] 10"); // a nest of zero is divided by
}

TEST_F(Strategies, equalGivesEveryFrameTheSameChangeAndTheDoublingCenterTwoShares)
{
    link->setMeasureType(FrameLink::Measure_Equal);
    EXPECT_EQ(shared(sizes({14}, 0), sizes({10}, 0), ModifyLevel_AllSizes, sizes({5}, 0)), "[6] | [6] | [7]");
    EXPECT_EQ(shared(sizes({0, 14}, 1), sizes({9, 10}, 1), ModifyLevel_Nest, sizes({5, 5}, 1)),
              "5 [6] | 5 [6] | 5 [7]");
}

TEST_F(Strategies, fixedHandsOutByTheRatiosOfTheFrames)
{
    link->setMeasureType(FrameLink::Measure_Fixed);
    frames.at(0)->setRatio(3.0);
    EXPECT_EQ(shared(sizes({20}, 0), sizes({10}, 0), ModifyLevel_AllSizes, sizes({5}, 0)),
              "[11] | [7] | [7]");
    for (FrameFrame *frame : frames)
        frame->setRatio(0.0);
    EXPECT_EQ(shared(sizes({20}, 0), sizes({10}, 0), ModifyLevel_AllSizes, sizes({5}, 0)), "[5] | [5] | [5]");
}

TEST_F(Strategies, anEmptyLinkChangesNothing)
{
    link->unlinkFrames();
    for (const FrameLink::eMeasureType type : {FrameLink::Measure_Equal, FrameLink::Measure_Fixed}) {
        link->setMeasureType(type);
        EXPECT_EQ(shared(sizes({20}, 0), sizes({10}, 0), ModifyLevel_AllSizes, sizes({5}, 0)),
                  "[5] | [5] | [5]");
    }
}

TEST_F(Strategies, noValuesAndAFrameWithoutCenterAreErrors)
{
    for (const int type : {0, 1, 2}) {
        link->setMeasureType(static_cast<FrameLink::eMeasureType>(type));
        CDbFrameModifyMeasure strategy(*link, sizes({20}, 0), sizes({10}, 0), ModifyLevel_AllSizes);
        const support::Thrown thrown = support::thrownBy<AssertionError>(
            [&] { strategy.calculateNewMeasure(*frames.first(), nullptr); });
        EXPECT_EQ(thrown.what, "Invalid Operation") << type;
        EXPECT_EQ(thrown.file, R"(src\Frames\Fram_Mesure)") << type;
    }
    link->setMeasureType(FrameLink::Measure_Equal);
    FrameFrame stray(name("X"));
    link->linkFrame(&stray);
    EXPECT_THROW(CDbFrameModifyMeasure(*link, sizes({20}, 0), sizes({10}, 0), ModifyLevel_AllSizes),
                 AssertionError);
    link->removeFrame(&stray);
}

TEST_F(Strategies, actionsAndTypesOutsideTheirRangeAreFatal)
{
    for (const int action : {0, 2, 4, -1}) {
        const support::Thrown thrown = support::thrownBy<FatalError>([&] {
            CDbFrameModifyMeasure(*link, sizes({20}, 0), sizes({10}, 0),
                                  static_cast<eModifyLevelActionType>(action));
        });
        EXPECT_EQ(thrown.what, "Unexpected value") << action;
        EXPECT_EQ(thrown.file, R"(src\Frames\Fram_Mesure)") << action;
        EXPECT_NE(thrown.function.find("CDbFrameCalculateMeasure::CDbFrameCalculateMeasure"),
                  std::string::npos);
    }
    for (const int type : {3, -1, 77}) {
        link->setMeasureType(static_cast<FrameLink::eMeasureType>(type));
        const support::Thrown thrown = support::thrownBy<FatalError>(
            [&] { CDbFrameModifyMeasure(*link, sizes({20}, 0), sizes({10}, 0), ModifyLevel_AllSizes); });
        EXPECT_EQ(thrown.what, "Unexpected value") << type;
        EXPECT_NE(thrown.function.find("CDbFrameModifyMeasure::CDbFrameModifyMeasure"), std::string::npos);
    }
}

TEST_F(Strategies, aListThatIsTooShortEndsTheProgram)
{
    testing::FLAGS_gtest_death_test_style = "fast";
    EXPECT_DEATH(shared(sizes({20}, 0), sizes({10, 11}, 0), ModifyLevel_AllSizes, sizes({5, 5}, 0)),
                 "index 1");
    EXPECT_DEATH(shared(sizes({20, 21}, 0), sizes({10, 11}, 0), ModifyLevel_AllSizes, sizes({5}, 0)),
                 "index 1");
}

// The sum over the frames of what each gains in size i.
double gained(FrameLink &link, const QListEx<FrameFrame *> &frames, const ValuesAccordingSizes &newTotal,
              const ValuesAccordingSizes &oldTotal, const QList<double> &own)
{
    CDbFrameModifyMeasure strategy(link, newTotal, oldTotal, ModifyLevel_AllSizes);
    double sum = 0.0;
    for (int i = 0; i < frames.count(); ++i) {
        ValuesAccordingSizes values = sizes({own.at(i)}, 0);
        strategy.calculateNewMeasure(*frames.at(i), &values);
        sum += values.mValues.at(0) - own.at(i);
    }
    return sum;
}

RC_GTEST_FIXTURE_PROP(Strategies, theSharesAddUpToTheChange, ())
{
    const double oldTotal = *rc::gen::inRange(1, 1000) / 8.0;
    const double newTotal = *rc::gen::inRange(-1000, 1000) / 8.0;
    double ratios = 0.0;
    for (FrameFrame *frame : frames) {
        frame->setRatio(*rc::gen::inRange(-20, 20) / 4.0);
        ratios += frame->getRatio();
    }
    const QList<double> thirds{oldTotal / 4.0, oldTotal / 4.0, oldTotal / 2.0}; // their sum is the old total
    for (const int type : {0, 1, 2}) {
        if (type == 2 && ratios == 0.0)
            continue;
        link->setMeasureType(static_cast<FrameLink::eMeasureType>(type));
        const double change = gained(*link, frames, sizes({newTotal}, 0), sizes({oldTotal}, 0), thirds);
        const double scale = 1.0 + std::abs(newTotal) + oldTotal;
        const double spread = type == 2 ? 1.0 + 15.0 / std::abs(ratios) : 1.0; // ratios of both signs cancel
        RC_ASSERT(std::abs(change - (newTotal - oldTotal)) <= 1e-12 * scale * spread);
    }
}

} // namespace
