// The short form of the obedience table: garment pieces asked for a tenth less and a tenth more.

#include <support/Obedience.h>

#include <gtest/gtest.h>

#include <algorithm>

using namespace support;

namespace
{

constexpr int kConverged = 1;

ObedienceOptions tenthLessAndMore()
{
    ObedienceOptions options;
    options.factors = {0.9, 1.1};
    return options;
}

int converged(const Obeyed &row)
{
    const auto found = row.results.find(kConverged);
    return found == row.results.end() ? 0 : found->second;
}

TEST(Obedience, framesAlongTheChordAndTheAxisAlwaysObey)
{
    const ObedienceTable table = obedienceOfFrames(garmentSubjects(), tenthLessAndMore());
    EXPECT_EQ(table.size(), 13u);
    for (const auto &[name, row] : table) {
        EXPECT_EQ(row.explanations.count("UNEXPLAINED"), 0u) << name;
        EXPECT_LE(row.medianOfPasses(), 2.0) << name;
        EXPECT_LE(row.largestGap, 5e-05) << name;
        if (name.find("perimeter") == std::string::npos) {
            EXPECT_EQ(converged(row), row.requests) << name;
            EXPECT_GT(row.requests, 10) << name;
        } else {
            EXPECT_GT(converged(row), 0) << name;
        }
    }
}

TEST(Obedience, segmentsAlongTheirLineOrContourAlwaysObey)
{
    const ObedienceTable table = obedienceOfSegments(garmentSubjects(), tenthLessAndMore());
    EXPECT_EQ(table.size(), 8u);
    for (const auto &[name, row] : table) {
        EXPECT_EQ(row.explanations.count("UNEXPLAINED"), 0u) << name;
        EXPECT_LE(row.largestGap, 3e-05) << name;
        if (name.find("along x") == std::string::npos && name.find("along y") == std::string::npos) {
            EXPECT_EQ(converged(row), row.requests) << name;
            EXPECT_LE(row.medianOfPasses(), 5.0) << name;
            EXPECT_LE(*std::max_element(row.passes.begin(), row.passes.end()), 40) << name;
        } else {
            EXPECT_GT(converged(row), row.requests / 3) << name;
        }
    }
}

TEST(Obedience, aPieceIsRegradedNearerToItsNestThanUngraded)
{
    for (const Subject &subject : garmentSubjects()) {
        const Regraded outcome = regrade(subject);
        EXPECT_GT(outcome.frames, 1) << subject.name;
        EXPECT_EQ(outcome.failures, 0) << subject.name;
        EXPECT_LT(outcome.atFrames, outcome.ungraded) << subject.name;
        EXPECT_LT(outcome.betweenFrames, outcome.ungraded) << subject.name;
    }
}

} // namespace
