// Two documents without pieces, between which sets are copied and merged, and sets as text.
#pragma once

#include <gtest/gtest.h>
#include <support/TestDocument.h>

#include <memory>
#include <string>
#include <vector>

namespace transfers
{

/// Answers the questions in order, the ones beyond the list with true. A copy starts where its source stands.
class Answers
{
public:
    Answers() = default;
    Answers(std::initializer_list<bool> answers) : mAnswers(answers) {}
    explicit Answers(std::vector<bool> answers) : mAnswers(std::move(answers)) {}
    bool operator()(VorSystem::CDbGroupObject *)
    {
        const std::size_t question = mAsked++;
        return question < mAnswers.size() ? mAnswers[question] : true;
    }

private:
    std::vector<bool> mAnswers;
    std::size_t mAsked = 0;
};

inline bool nothing(VorSystem::CDbGroupObject *)
{
    return false;
}

inline bool everything(VorSystem::CDbGroupObject *)
{
    return true;
}

/// The whole set as text: every element with all that it holds, formulas with the places of what they name
/// ("outside" for an element of no list of the set). Two sets of equal texts cannot be told apart.
std::string describe(const VorSystem::FrameSet &set);
std::string describe(const VorSystem::GestFrames &manager);

/// True when no formula of the set, charts aside, names an element of another set or of none.
bool namesOwnElementsOnly(const VorSystem::FrameSet &set);

/// Gives the element a formula that text spells in its set.
void setMeasure(VorSystem::BaseFrame *element, const char *text);
void setLevel(VorSystem::BaseFrame *element, const char *text);
void setSpec(VorSystem::FrameSpec *spec, const char *text);

/// A set "Set" with the centers Front (frames Chest, Waist, Hip; Waist is the origin) and Back (Chest), the
/// segment Side, the link Girth over both chests, the spec Ease and the chart Bust, all with values.
class Transfer : public testing::Test
{
protected:
    Transfer();

    VorSystem::FrameFrame *frame(const VorSystem::FrameSet *set, const char *fullName) const;
    /// The formula as text, "-" for none.
    static std::string text(const VorSystem::TreeEquations *formula);

    support::TestDocument from{3, 2};
    support::TestDocument to{3, 2};
    VorSystem::FrameSet *source = nullptr;
    VorSystem::EquivalenceSets equivalences;
};

} // namespace transfers
