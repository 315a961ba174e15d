// The application object: who stands, what it is asked, which unit holds.
#include <QStringList>
#include <VorCore/VorCore.h>
#include <gtest/gtest.h>
#include <memory>
#include <support/RecordingApplication.h>
#include <type_traits>

using namespace VorSystem;
using support::RecordingApplication;

namespace
{

VorCoreApplication &standing()
{
    return VorCoreApplication::instance();
}

QStringList logged;

// Keeps what Qt's log gets while it lives.
class LogRecorder
{
public:
    LogRecorder()
    {
        logged.clear();
        mPrevious = qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext &, const QString &text) { logged << text; });
    }
    ~LogRecorder() { qInstallMessageHandler(mPrevious); }

private:
    QtMessageHandler mPrevious = nullptr;
};

} // namespace

TEST(VorCoreApplication, thereIsAlwaysOne)
{
    EXPECT_EQ(&standing(), &standing());
    EXPECT_EQ(standing().lengthUnit(), LengthUnit::centimetre());
    static_assert(!std::is_copy_constructible<VorCoreApplication>::value, "");
}

TEST(VorCoreApplication, theDefaultOneLogsAndAnswersNo)
{
    const LogRecorder recorder;
    standing().showMessage(QStringLiteral("Lost formula of '%1'"), QString(), 0);
    const bool answer = standing().askQuestion(QStringLiteral("Go on?"), QStringLiteral("Locked"), 0);

    EXPECT_FALSE(answer);
    EXPECT_EQ(logged, (QStringList{QStringLiteral("Lost formula of '%1'"), QStringLiteral("Locked Go on?")}));
}

TEST(VorCoreApplication, aProgramsOwnObjectTakesOver)
{
    RecordingApplication program;
    program.mAnswer = true;

    standing().showMessage(QStringLiteral("Saved"), QString(), 0);
    EXPECT_TRUE(standing().askQuestion(QStringLiteral("Go on?"), QString(), 0));

    EXPECT_EQ(&standing(), &program);
    EXPECT_EQ(program.mMessages, QStringList(QStringLiteral("Saved")));
    EXPECT_EQ(program.mQuestions, QStringList(QStringLiteral("Go on?")));
}

TEST(VorCoreApplication, destroyingTheOneThatStandsRestoresThePreviousOne)
{
    VorCoreApplication &atFirst = standing();
    {
        const RecordingApplication outer;
        {
            const RecordingApplication inner;
            EXPECT_EQ(&standing(), &inner);
        }
        EXPECT_EQ(&standing(), &outer);
    }
    EXPECT_EQ(&standing(), &atFirst);
}

TEST(VorCoreApplication, theOneThatStandsStaysWhenOneBelowItDies)
{
    VorCoreApplication &atFirst = standing();
    auto outer = std::make_unique<RecordingApplication>();
    auto inner = std::make_unique<RecordingApplication>();

    outer.reset();
    EXPECT_EQ(&standing(), inner.get());
    inner.reset();
    EXPECT_EQ(&standing(), &atFirst);
}

TEST(VorCoreApplication, theUnitIsTheCentimetreWhileABatonLives)
{
    RecordingApplication program;
    program.setLengthUnit(LengthUnit::inch());
    {
        const RelayBaton baton = program.resetAppUnitToCentimetre();
        EXPECT_EQ(program.lengthUnit(), LengthUnit::centimetre());
        const RelayBaton copy = baton;
    }
    EXPECT_EQ(program.lengthUnit(), LengthUnit::inch());
}

TEST(VorCoreApplication, nestedBatonsRestoreTheUnitInAnyOrder)
{
    RecordingApplication program;
    program.setLengthUnit(LengthUnit::millimetre());

    auto first = std::make_unique<RelayBaton>(program.resetAppUnitToCentimetre());
    auto second = std::make_unique<RelayBaton>(program.resetAppUnitToCentimetre());
    second.reset();
    EXPECT_EQ(program.lengthUnit(), LengthUnit::centimetre());
    second = std::make_unique<RelayBaton>(program.resetAppUnitToCentimetre());
    first.reset(); // before the one taken after it
    EXPECT_EQ(program.lengthUnit(), LengthUnit::centimetre());
    second.reset();
    EXPECT_EQ(program.lengthUnit(), LengthUnit::millimetre());
}

TEST(VorCoreApplication, aUnitSetUnderABatonHoldsAfterIt)
{
    RecordingApplication program;
    {
        const RelayBaton baton = program.resetAppUnitToCentimetre();
        program.setLengthUnit(LengthUnit::inch());
        EXPECT_EQ(program.lengthUnit(), LengthUnit::centimetre());
    }
    EXPECT_EQ(program.lengthUnit(), LengthUnit::inch());
}

TEST(VorCoreApplication, eachApplicationHasAUnitOfItsOwn)
{
    RecordingApplication outer;
    outer.setLengthUnit(LengthUnit::inch());
    {
        const RecordingApplication inner;
        EXPECT_EQ(standing().lengthUnit(), LengthUnit::centimetre());
    }
    EXPECT_EQ(standing().lengthUnit(), LengthUnit::inch());
}

TEST(VorCoreApplication, aBatonMayOutliveItsApplication)
{
    auto program = std::make_unique<RecordingApplication>();
    const RelayBaton baton = program->resetAppUnitToCentimetre();
    program.reset();
    EXPECT_EQ(standing().lengthUnit(), LengthUnit::centimetre());
}
