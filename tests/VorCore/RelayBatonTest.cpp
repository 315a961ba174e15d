// The baton: its function runs once, when nobody holds it any more.
#include <VorCore/VorCore.h>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>
#include <utility>
#include <vector>

using namespace VorSystem;

namespace
{

class RelayBatonTest : public testing::Test
{
protected:
    RelayBaton counting()
    {
        return RelayBaton([this] { ++mRuns; });
    }

    int mRuns = 0;
};

} // namespace

TEST_F(RelayBatonTest, aDefaultMadeOneDoesNothing)
{
    RelayBaton baton;
    RelayBaton copy = baton;
    baton = copy;
    baton = RelayBaton();
}

TEST_F(RelayBatonTest, anEmptyFunctionIsNeverCalled)
{
    const RelayBaton baton{boost::function<void()>()};
    const RelayBaton copy = baton;
}

TEST_F(RelayBatonTest, theFunctionRunsOnceWhenTheLastCopyDies)
{
    {
        std::vector<RelayBaton> copies;
        {
            const RelayBaton baton = counting();
            copies.assign(5, baton);
        }
        EXPECT_EQ(mRuns, 0);
        copies.erase(copies.begin(), copies.begin() + 4);
        EXPECT_EQ(mRuns, 0);
    }
    EXPECT_EQ(mRuns, 1);
}

TEST_F(RelayBatonTest, assigningOverTheLastCopyRunsTheFunction)
{
    RelayBaton baton = counting();
    baton = RelayBaton();
    EXPECT_EQ(mRuns, 1);

    baton = counting();
    const RelayBaton &same = baton;
    baton = same;
    EXPECT_EQ(mRuns, 1);
    baton = counting();
    EXPECT_EQ(mRuns, 2);
}

TEST_F(RelayBatonTest, movingHandsTheBatonOn)
{
    RelayBaton first = counting();
    {
        const RelayBaton second = std::move(first);
        EXPECT_EQ(mRuns, 0);
    }
    EXPECT_EQ(mRuns, 1);
}

TEST_F(RelayBatonTest, runsWhenAnExceptionLeavesTheScope)
{
    EXPECT_THROW(
        {
            const RelayBaton baton = counting();
            throw std::runtime_error("left early");
        },
        std::runtime_error);
    EXPECT_EQ(mRuns, 1);
}

TEST_F(RelayBatonTest, whatTheFunctionHoldsIsFreedAfterItRan)
{
    const auto held = std::make_shared<int>(0);
    {
        const RelayBaton baton([held] { ++*held; });
        EXPECT_GT(held.use_count(), 1);
    }
    EXPECT_EQ(*held, 1);
    EXPECT_EQ(held.use_count(), 1);
}
