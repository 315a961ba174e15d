// Formulas that are given up: what is said, what is recorded, what stays.

#include <gtest/gtest.h>

#include <support/ControlledPiece.h>
#include <support/TestDocument.h>

#include <functional>

namespace VorSystem
{

// The host's door to the removal of formulas, as a host defines it.
class FormulaRemovalAccess
{
public:
    static bool remove(FrameSet &set, BaseFrame *element) { return set.removeFormulaOfGroup(element); }
    static bool remove(FrameSet &set, CDbGroupObject *group) { return set.removeFormulaOfGroup(group); }
    static bool asks(FrameSet &set, CDbGroupObject *group) { return set.removeForm(group); }
};

} // namespace VorSystem

using namespace VorSystem;
using support::formula;
using support::name;

namespace
{

// An application that runs something of the host's while a message is shown.
class BusyApplication : public support::RecordingApplication
{
public:
    void showMessage(const QString &text, const QString &title, int icon) override
    {
        RecordingApplication::showMessage(text, title, icon);
        titles << title;
        if (onMessage)
            onMessage();
    }

    QStringList titles;
    std::function<void()> onMessage;
};

std::string records(const FrameSet &set)
{
    QStringList texts;
    for (const FrameSet::RemovedFormula &record : set.removedFormulas())
        texts << QStringLiteral("%1/%2/%3")
                     .arg(record.get<0>(), record.get<1>() ? QStringLiteral("true") : QStringLiteral("false"),
                          record.get<2>());
    return texts.join(QStringLiteral("; ")).toStdString();
}

std::string message(const char *element)
{
    return "Cannot apply formula for element '" + std::string(element) + "'. The formula has been deleted.";
}

// A frame Front:Chest in a link Girth, a segment Side, and no piece.
class FormulaRemoval : public testing::Test
{
protected:
    FormulaRemoval() { link->linkFrame(frame); }

    bool remove(BaseFrame *element) { return FormulaRemovalAccess::remove(*set, element); }
    static void give(BaseFrame *element, const char *measure, const char *level)
    {
        FrameSet *const own = element->getFrameSet();
        if (measure != nullptr)
            element->setFormulaMeasurement(formula(measure, own));
        if (level != nullptr)
            element->setFormulaLevel(formula(level, own));
    }
    static std::string kept(BaseFrame *element)
    {
        const auto text = [](const TreeEquations *tree) {
            return tree == nullptr ? std::string("-") : tree->toString().toStdString();
        };
        return text(element->measurementFormula()) + " " + text(element->formulaLevel());
    }
    std::string told() const { return application.mMessages.join(QLatin1Char('|')).toStdString(); }

    BusyApplication application;
    support::TestDocument document{3, 2};
    FrameSet *set = document.newSet();
    FrameFrame *frame = set->newFrame(name("Chest"), set->newCenter(name("Front")));
    FrameLink *link = set->newLink(name("Girth"));
    FrameSegment *segment = set->newSegment(name("Side"));
};

// --- Records ---

TEST_F(FormulaRemoval, aSecondRecordOfANameAndFlagIsNotTaken)
{
    set->markRemovedFormula(name("A"), true, name("1"));
    set->markRemovedFormula(name("A"), true, name("2"));
    set->markRemovedFormula(name("A"), false, name("3"));
    set->markRemovedFormula(name("a"), true, name("4")); // names are compared exactly here
    EXPECT_EQ(records(*set), "A/true/1; A/false/3; a/true/4");
    set->clearRemovedFormulas();
    EXPECT_EQ(records(*set), "");
    set->markRemovedFormula(name("A"), true, name("5"));
    EXPECT_EQ(records(*set), "A/true/5");
}

TEST_F(FormulaRemoval, theRecordsAreGivenOutAsACopy)
{
    set->markRemovedFormula(name("A"), true, name("1"));
    QListEx<FrameSet::RemovedFormula> copy = set->removedFormulas();
    copy.clear();
    EXPECT_EQ(records(*set), "A/true/1");
}

// --- One element ---

TEST_F(FormulaRemoval, takesOneFormulaOfTheElementAndOneOfItsLink)
{
    struct Row {
        const char *measure, *level, *linkMeasure, *linkLevel; // before
        const char *records;
        const char *kept, *linkKept;
        const char *told; // names in order
    };
    const Row rows[] = {
        {nullptr, nullptr, nullptr, nullptr, "", "- -", "- -", ""},
        {"1", nullptr, nullptr, nullptr, "Front:Chest/true/1", "- -", "- -", "Front:Chest"},
        {nullptr, "2", nullptr, nullptr, "Front:Chest/true/2", "- -", "- -", "Front:Chest"}, // true: meant
        {"1", "2", nullptr, nullptr, "Front:Chest/true/1", "- 2", "- -", "Front:Chest"},
        {nullptr, nullptr, "3", nullptr, "Girth/true/3", "- -", "- -", "Girth"},
        {nullptr, nullptr, nullptr, "4", "Girth/false/4", "- -", "- -", "Girth"},
        {nullptr, nullptr, "3", "4", "Girth/true/3", "- -", "- 4", "Girth"},
        {"1", nullptr, "3", nullptr, "Front:Chest/true/1; Girth/true/3", "- -", "- -", "Front:Chest Girth"},
        {nullptr, "2", nullptr, "4", "Front:Chest/true/2; Girth/false/4", "- -", "- -", "Front:Chest Girth"},
        {"1", "2", "3", "4", "Front:Chest/true/1; Girth/true/3", "- 2", "- 4", "Front:Chest Girth"},
    };
    for (const Row &row : rows) {
        set->clearRemovedFormulas();
        application.mMessages.clear();
        for (BaseFrame *element : {static_cast<BaseFrame *>(frame), static_cast<BaseFrame *>(link)}) {
            element->setFormulaMeasurement(nullptr);
            element->setFormulaLevel(nullptr);
        }
        give(frame, row.measure, row.level);
        give(link, row.linkMeasure, row.linkLevel);

        EXPECT_EQ(remove(frame), *row.records != '\0');
        EXPECT_EQ(records(*set), row.records);
        EXPECT_EQ(kept(frame), row.kept);
        EXPECT_EQ(kept(link), row.linkKept);
        QStringList expected;
        for (const QString &element : name(row.told).split(QLatin1Char(' '), Qt::SkipEmptyParts))
            expected << QString::fromStdString(message(element.toUtf8().constData()));
        EXPECT_EQ(told(), expected.join(QLatin1Char('|')).toStdString());
    }
    EXPECT_EQ(application.titles.join(QString()).toStdString(), ""); // no title, ever
}

TEST_F(FormulaRemoval, theSecondCallTakesTheLevelFormulaAndKeepsTheFirstRecord)
{
    give(frame, "1", "2");
    EXPECT_TRUE(remove(frame));
    EXPECT_TRUE(remove(frame));
    EXPECT_FALSE(remove(frame));
    EXPECT_EQ(kept(frame), "- -");
    EXPECT_EQ(records(*set), "Front:Chest/true/1"); // same name, same flag: the first text stays
    EXPECT_EQ(application.mMessages.count(), 2);
}

TEST_F(FormulaRemoval, aSegmentAndALinkLoseTheirOwn)
{
    segment->rememberFormula(formula("7", set));
    give(link, "3", "4");
    EXPECT_TRUE(remove(segment));
    EXPECT_TRUE(remove(link));
    EXPECT_TRUE(remove(link)); // its level formula, as an element of its own: true
    EXPECT_EQ(records(*set), "Side/true/7; Girth/true/3");
    EXPECT_EQ(kept(link), "- -");
}

TEST_F(FormulaRemoval, theElementIsStoredAnewAndTheLinkIsNot)
{
    *link->getMeasureBySizes() = support::sizes({9, 9, 9}, 1);
    give(link, "3", nullptr);
    EXPECT_TRUE(remove(frame));
    EXPECT_EQ(support::text(*frame->getMeasureBySizes()), "0 [0] 0");
    EXPECT_EQ(support::text(*link->getMeasureBySizes()), "9 [9] 9");
}

TEST_F(FormulaRemoval, theMessageComesBeforeTheFormulaGoes)
{
    give(frame, "1", nullptr);
    std::string then;
    application.onMessage = [&] { then = kept(frame) + records(*set); };
    EXPECT_TRUE(remove(frame));
    EXPECT_EQ(then, "1 -");
}

TEST_F(FormulaRemoval, theHostMayTakeTheFormulaOffWhileItIsTold)
{
    give(frame, "1", nullptr);
    application.onMessage = [&] { frame->setFormulaMeasurement(nullptr); };
    EXPECT_TRUE(remove(frame));
    EXPECT_EQ(records(*set), "");
}

TEST_F(FormulaRemoval, aFormulaWithoutATextIsReportedAndStays)
{
    frame->setFormulaMeasurement(new TreeEquations); // an empty root cannot be printed
    EXPECT_THROW(remove(frame), AssertionError);
    EXPECT_EQ(told(), message("Front:Chest"));
    EXPECT_NE(frame->measurementFormula(), nullptr);
    EXPECT_EQ(records(*set), "");
}

TEST_F(FormulaRemoval, refusesNull)
{
    EXPECT_THROW(remove(nullptr), AssertionError);
    CDbGroupObject *const none = nullptr;
    EXPECT_THROW(FormulaRemovalAccess::remove(*set, none), AssertionError);
    EXPECT_THROW(FormulaRemovalAccess::asks(*set, none), AssertionError);
}

// --- All of a group ---

// A rectangle with three chords and two segments, and a frame of the set that is on no piece.
class FormulaRemovalOfGroup : public testing::Test
{
protected:
    FormulaRemovalOfGroup()
    {
        for (const char *text : {"Hip", "Waist", "Chest"})
            piece.chord(text, ++mHeight);
        piece.segment("Left", piece.left(1), piece.left(3), FrameSegment::Displace_AlongY);
        piece.segment("Right", piece.right(1), piece.right(3), FrameSegment::Displace_AlongY);
        elsewhere = set->newFrame(name("Elsewhere"), set->newCenter(name("Other")));
    }
    FrameFrame *frame(int index) const { return set->getFrames().at(index); }
    FrameSegment *segment(int index) const { return set->getFrameSegments().at(index); }
    bool remove() { return FormulaRemovalAccess::remove(*set, piece.group()); }
    bool asks() { return FormulaRemovalAccess::asks(*set, piece.group()); }

    BusyApplication application;
    support::RectangleUnderControl piece;
    FrameSet *set = piece.set();
    FrameFrame *elsewhere = nullptr;

private:
    int mHeight = 1;
};

TEST_F(FormulaRemovalOfGroup, withoutFormulasNothingIsFoundAndNothingRemoved)
{
    EXPECT_FALSE(asks());
    EXPECT_FALSE(remove());
    EXPECT_TRUE(application.mMessages.isEmpty());
}

TEST_F(FormulaRemovalOfGroup, takesSegmentsFirstThenFramesAndLeavesNoneOut)
{
    frame(2)->setFormulaMeasurement(formula("30", set));
    frame(0)->setFormulaLevel(formula("5", set));
    segment(0)->rememberFormula(formula("20", set));
    segment(1)->rememberFormula(formula("21", set));
    elsewhere->setFormulaMeasurement(formula("40", set));
    EXPECT_TRUE(asks());
    EXPECT_TRUE(remove());
    EXPECT_EQ(records(*set), "Left/true/20; Right/true/21; Center:Hip/true/5; Center:Chest/true/30");
    EXPECT_NE(elsewhere->measurementFormula(), nullptr);
    EXPECT_EQ(application.mMessages.count(), 4);
    EXPECT_FALSE(asks());
    EXPECT_FALSE(remove());
}

TEST_F(FormulaRemovalOfGroup, asksWithoutRemoving)
{
    frame(1)->setFormulaLevel(formula("5", set));
    EXPECT_TRUE(asks());
    EXPECT_NE(frame(1)->formulaLevel(), nullptr);
    EXPECT_TRUE(set->removedFormulas().isEmpty());
    EXPECT_TRUE(application.mMessages.isEmpty());
}

TEST_F(FormulaRemovalOfGroup, theFormulaOfALinkIsRemovedThoughTheQuestionDoesNotSeeIt)
{
    FrameLink *const link = set->newLink(name("Girth"));
    link->linkFrame(frame(0));
    link->linkFrame(frame(1));
    link->setFormulaMeasurement(formula("60", set));
    link->setFormulaLevel(formula("6", set));
    EXPECT_FALSE(asks());
    EXPECT_TRUE(remove()); // through the first frame one, through the second the other
    EXPECT_EQ(records(*set), "Girth/true/60; Girth/false/6");
    EXPECT_EQ(link->measurementFormula(), nullptr);
    EXPECT_EQ(link->formulaLevel(), nullptr);
}

TEST_F(FormulaRemovalOfGroup, anotherGroupIsLeftAlone)
{
    support::RectangleUnderControl other;
    frame(1)->setFormulaMeasurement(formula("30", set));
    EXPECT_FALSE(FormulaRemovalAccess::asks(*set, other.group()));
    EXPECT_FALSE(FormulaRemovalAccess::remove(*set, other.group()));
    EXPECT_NE(frame(1)->measurementFormula(), nullptr);
}

TEST_F(FormulaRemovalOfGroup, theHostMayDeleteElementsThatAreStillToCome)
{
    segment(0)->rememberFormula(formula("20", set));
    segment(1)->rememberFormula(formula("21", set));
    application.onMessage = [this] {
        if (set->getFrameSegments().count() != 2)
            return;
        const FrameSegment *const doomed = segment(1);
        delete piece.skeleton()->segmentPointingToTheFrameSegment(doomed);
        delete doomed;
    };
    EXPECT_TRUE(remove());
    EXPECT_EQ(records(*set), "Left/true/20");
}

TEST_F(FormulaRemovalOfGroup, theHostMayTakeAnElementOffThePieceWhileItIsTold)
{
    segment(0)->rememberFormula(formula("20", set));
    frame(2)->setFormulaMeasurement(formula("30", set));
    application.onMessage = [this] { delete piece.skeleton()->framePointingToTheFrameFrame(frame(2)); };
    EXPECT_TRUE(remove());
    EXPECT_EQ(records(*set), "Left/true/20");
    EXPECT_NE(frame(2)->measurementFormula(), nullptr);
}

} // namespace
