// The errors: their texts, their bases, and what a host can read of a failed precondition.

#include <support/TestDocument.h>

#include <QCoreApplication>
#include <QTranslator>
#include <gtest/gtest.h>

using namespace VorSystem;

namespace
{

TEST(Errors, carryTheirTextsInUtf8)
{
    EXPECT_STREQ(NonFatalError().what(), "Unexpected Data");
    EXPECT_STREQ(AssertionError().what(), "Unexpected Data");
    EXPECT_STREQ(FatalError().what(), "Unexpected value");
    EXPECT_STREQ(NonFatalError(QString::fromUtf8("Ärmel")).what(), "Ärmel");
    EXPECT_STREQ(AssertionError(QString::fromUtf8("Bünd")).what(), "Bünd");
    EXPECT_STREQ(FatalError(QString::fromUtf8("größe")).what(), "größe");
}

TEST(Errors, areCaughtByTheirBases)
{
    const auto raise = [] { adjustValuesAccordingSizeToNest(nullptr, 0, 0); };
    EXPECT_THROW(raise(), AssertionError);
    EXPECT_THROW(raise(), NonFatalError);
    EXPECT_THROW(raise(), std::logic_error);
    EXPECT_THROW(raise(), boost::exception);
}

TEST(Errors, aFatalOneIsNoNonFatalOne)
{
    const auto raise = [] {
        const FrameLink link(support::name("L"));
        CDbFrameModifyMeasure(link, ValuesAccordingSizes(), ValuesAccordingSizes(), ModifyLevel_Nothing);
    };
    EXPECT_THROW(raise(), FatalError);
    EXPECT_THROW(raise(), std::runtime_error);
    EXPECT_EQ(support::thrownBy<FatalError>(raise).what, "Unexpected value");
    bool nonFatal = false;
    try {
        raise();
    } catch (const NonFatalError &) {
        nonFatal = true;
    } catch (...) {
        nonFatal = false;
    }
    EXPECT_FALSE(nonFatal);
}

// Says every text backwards, so that a test sees which texts were translated, and in which context.
class Backwards : public QTranslator
{
public:
    QString translate(const char *context, const char *source, const char *, int n) const override
    {
        const QString text = QString::fromUtf8(source);
        QString result;
        for (const QChar c : text)
            result.prepend(c);
        return QString::fromUtf8(context) + QLatin1Char('|') + result + QLatin1Char('|') + QString::number(n);
    }
    bool isEmpty() const override { return false; }
};

TEST(Errors, aFailedPreconditionIsTranslatedInItsOwnContext)
{
    Backwards translator;
    QCoreApplication::installTranslator(&translator);
    const support::Thrown thrown =
        support::thrownBy<AssertionError>([] { adjustValuesAccordingSizeToNest(nullptr, 0, 0); });
    QCoreApplication::removeTranslator(&translator);
    EXPECT_EQ(thrown.what, "VorSystem::VorApplication|noitarepO dilavnI|-1");
}

TEST(Errors, userTextsAreTranslatedInTheContextOfTheLibrary)
{
    Backwards translator;
    QCoreApplication::installTranslator(&translator);
    const QString plain = GestFrames::tr("Level", nullptr, -1);
    const QString utf8 = GestFrames::trUtf8("Level", nullptr, 3);
    QCoreApplication::removeTranslator(&translator);
    EXPECT_EQ(plain, QStringLiteral("VorSystem::Frames|leveL|-1"));
    EXPECT_EQ(utf8, QStringLiteral("VorSystem::Frames|leveL|3"));
    EXPECT_EQ(GestFrames::tr("%n sizes"),
              QStringLiteral("%n sizes")); // no number goes in unless one is given
}

} // namespace
