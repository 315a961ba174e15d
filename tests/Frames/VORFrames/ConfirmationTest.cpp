// The question about locked pieces: when it is asked, in which words, and what it is tried with.

#include <gtest/gtest.h>

#include <support/TestDocument.h>

using namespace VorSystem;
using support::formula;
using support::name;
using support::sizes;

namespace
{

// A frame that says what was tried with it, and answers what the test wants.
class TriedFrame : public FrameFrame
{
public:
    using FrameFrame::FrameFrame;
    bool reevaluate(eFrameReevaluate mode) override { return tried("reevaluate", nullptr, mode); }
    bool reevaluateUnder(BaseFrame *element, eFrameReevaluate mode) override
    {
        return tried("under", element, mode);
    }
    bool adjustFramesSameLevel(eFrameReevaluate mode) override { return tried("level", nullptr, mode); }

    QStringList calls;
    bool answer = false;

private:
    bool tried(const char *operation, BaseFrame *other, eFrameReevaluate mode)
    {
        calls << QStringLiteral("%1(%2%3)")
                     .arg(QLatin1String(operation))
                     .arg(mode)
                     .arg(other == nullptr ? QString() : QLatin1Char(' ') + other->name());
        return answer;
    }
};

class Confirmation : public testing::Test
{
protected:
    Confirmation()
    {
        document.mPlan.mLockState = 1;
        frame->addFrameCenter(set->newCenter(name("Front")), -1);
        set->addFrame(frame, -1);
    }
    bool confirm(int according, bool plainWording = false)
    {
        asked = false;
        application.mQuestions.clear();
        return BaseFrame::confirmChangesInFrames(frame, static_cast<eAccordingToReevaluate>(according), other,
                                                 plainWording, &asked);
    }
    int questions() const { return application.mQuestions.count(); }

    support::RecordingApplication application;
    support::TestDocument document{3, 2};
    FrameSet *set = document.newSet();
    TriedFrame *frame = new TriedFrame(name("Chest"));
    FrameSegment *other = set->newSegment(name("Side"));
    bool asked = false;
};

TEST_F(Confirmation, isTriedOutAsTheCallerSays)
{
    struct Row {
        int according;
        bool changes;
        const char *tried;
        bool asks;
    };
    const Row rows[] = {
        {0, false, "", true},               // at once
        {1, false, "reevaluate(2)", false}, // nothing would change
        {1, true, "reevaluate(2)", true},   //
        {2, false, "under(2 Side)", false}, //
        {2, true, "under(2 Side)", true},   //
        {3, true, "", false},               // never
        {4, false, "level(2)", false},      //
        {4, true, "level(2)", true},        //
        {6, true, "", false},               // no such way
        {-1, true, "", false},              //
        {1000000, true, "", false},         //
    };
    for (const Row &row : rows) {
        for (const bool answer : {true, false}) {
            application.mAnswer = answer;
            frame->answer = row.changes;
            frame->calls.clear();
            EXPECT_EQ(confirm(row.according), !row.asks || answer) << row.according;
            EXPECT_EQ(asked, row.asks) << row.according;
            EXPECT_EQ(questions(), row.asks ? 1 : 0) << row.according;
            EXPECT_EQ(frame->calls.join(QLatin1Char(' ')).toStdString(), row.tried);
        }
    }
}

TEST_F(Confirmation, triesAllSetsOfTheManager)
{
    FrameSpec *const spec = document.newSet("Other")->newSpec(name("P"));
    EXPECT_TRUE(confirm(AccordingTo_AllSets)); // the spec of the other set has no values yet
    EXPECT_TRUE(asked);
    EXPECT_EQ(spec->getMeasureBySizes()->mValues.count(), 0); // and it got none
    document.manager().reevaluateFrameSets(Reevaluate_Apply);
    EXPECT_TRUE(confirm(AccordingTo_AllSets));
    EXPECT_FALSE(asked);
}

TEST_F(Confirmation, asksInTheWordsOfTheLockState)
{
    struct Row {
        bool plainWording;
        int lockState;
        const char *text;
    };
    const Row rows[] = {
        {false, 2,
         "Some locked piece clones may be modified by activating the frame view. Do you want to continue?"},
        {false, 1,
         "Some locked pieces may be modified by activating the frame view. Do you want to continue?"},
        {true, 2, "Some locked piece clones may be modified. Do you want to continue?"},
        {true, 1, "Some locked pieces may be modified. Do you want to continue?"},
    };
    for (const Row &row : rows) {
        document.mPlan.mLockState = row.lockState;
        confirm(AccordingTo_AskAlways, row.plainWording);
        EXPECT_EQ(application.mQuestions.join(QLatin1Char('|')).toStdString(), row.text);
        EXPECT_TRUE(asked);
    }
}

TEST_F(Confirmation, withoutATextNothingIsAskedButItWasDue)
{
    application.mAnswer = false;
    for (const int lockState : {3, 17, -1}) {
        document.mPlan.mLockState = lockState;
        frame->answer = true;
        frame->calls.clear();
        EXPECT_TRUE(confirm(AccordingTo_Element));
        EXPECT_TRUE(asked);
        EXPECT_EQ(questions(), 0);
        EXPECT_EQ(frame->calls.count(), 1); // it was tried out all the same
    }
}

TEST_F(Confirmation, anUnlockedPieceIsAnsweredWithoutATrial)
{
    document.mPlan.mLockState = 0;
    frame->answer = true;
    for (int according = 0; according <= 5; ++according) {
        asked = false;
        EXPECT_TRUE(confirm(according));
        EXPECT_FALSE(asked);
    }
    EXPECT_TRUE(frame->calls.isEmpty());
    EXPECT_EQ(document.mPlan.mAsked, 6);
}

TEST_F(Confirmation, leavesAskedAloneWhereNothingWasDue)
{
    asked = true;
    EXPECT_TRUE(BaseFrame::confirmChangesInFrames(frame, AccordingTo_NeverAsk, nullptr, true, &asked));
    EXPECT_TRUE(asked);
    EXPECT_TRUE(BaseFrame::confirmChangesInFrames(frame, AccordingTo_NeverAsk, nullptr, true, nullptr));
    EXPECT_TRUE(BaseFrame::confirmChangesInFrames(frame, AccordingTo_Element, nullptr, true, nullptr));
}

TEST_F(Confirmation, needsAskedBeforeTheUserIsBothered)
{
    EXPECT_THROW(BaseFrame::confirmChangesInFrames(frame, AccordingTo_AskAlways, nullptr, true, nullptr),
                 AssertionError);
    EXPECT_EQ(questions(), 0);
}

TEST_F(Confirmation, needsAnElementWithASetAManagerADocumentAndAPlan)
{
    const auto confirmOf = [this](BaseFrame *element) {
        return BaseFrame::confirmChangesInFrames(element, AccordingTo_NeverAsk, nullptr, true, &asked);
    };
    EXPECT_THROW(confirmOf(nullptr), AssertionError);
    FrameSegment lonely(name("Lonely"));
    EXPECT_THROW(confirmOf(&lonely), AssertionError);

    FrameSet noManager(name("S"), nullptr);
    EXPECT_THROW(confirmOf(noManager.newSegment(name("A"))), AssertionError);
    GestFrames manager;
    FrameSet noDocument(name("S"), &manager);
    EXPECT_THROW(confirmOf(noDocument.newSegment(name("A"))), AssertionError);
    document.mHasPlan = false;
    EXPECT_THROW(confirmOf(frame), AssertionError);
    document.mHasPlan = true;
    EXPECT_TRUE(confirmOf(frame));

    const support::Thrown thrown = support::thrownBy<AssertionError>([&] { confirmOf(&lonely); });
    EXPECT_EQ(thrown.what, "Invalid Operation");
    EXPECT_NE(thrown.function.find("confirmChangesInFrames"), std::string::npos);
    EXPECT_EQ(thrown.file, "src\\Frames\\VORFrames");
}

TEST_F(Confirmation, whatHangsOnAFrameIsNeverAskedAboutThroughTheFrame)
{
    // Only a set knows what hangs on an element; a frame answers that nothing does.
    FrameFrame *const hip = set->newFrame(name("Hip"), set->getFrameCenters().at(0));
    EXPECT_TRUE(BaseFrame::confirmChangesInFrames(hip, AccordingTo_Under, other, true, &asked));
    EXPECT_FALSE(asked);
}

TEST_F(Confirmation, aSetHasNoSetThroughItsBaseUnlessItWasGivenOne)
{
    set->newSpec(name("P")); // its values would change
    delete frame;
    EXPECT_THROW(BaseFrame::confirmChangesInFrames(set, AccordingTo_Element, nullptr, true, &asked),
                 AssertionError);
    static_cast<BaseFrame *>(set)->setOrGetFrameSet() = set;
    for (const eAccordingToReevaluate according : {AccordingTo_Element, AccordingTo_Under}) {
        asked = false;
        EXPECT_TRUE(BaseFrame::confirmChangesInFrames(set, according, other, true, &asked));
        EXPECT_TRUE(asked);
    }
    static_cast<BaseFrame *>(set)->setOrGetFrameSet() = nullptr;
}

TEST_F(Confirmation, aNoChangesNothing)
{
    application.mAnswer = false;
    FrameFrame *const hip = set->newFrame(name("Hip"), set->getFrameCenters().at(0));
    *hip->getMeasureBySizes() = sizes({1, 2, 3}, 1);
    hip->setFormulaMeasurement(formula("5", set));
    EXPECT_FALSE(BaseFrame::confirmChangesInFrames(hip, AccordingTo_Element, nullptr, true, &asked));
    EXPECT_EQ(support::text(*hip->getMeasureBySizes()), "1 [2] 3");
    hip->reevaluate(Reevaluate_Store);
    EXPECT_TRUE(BaseFrame::confirmChangesInFrames(hip, AccordingTo_Element, nullptr, true, &asked));
}

} // namespace
