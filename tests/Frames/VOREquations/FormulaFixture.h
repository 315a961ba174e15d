// What the tests of formulas share: a set with elements, the user's locale, language and unit, and a printed
// form of trees that shows every bracket.
#pragma once

#include <VorCore/VorCore.h>
#include <VorFrames/VorFrames.h>
#include <VorJson/VorJson.h>
#include <support/RecordingApplication.h>

#include <QCoreApplication>
#include <QHash>
#include <QLocale>
#include <QTranslator>
#include <boost/exception/get_error_info.hpp>
#include <boost/exception/info.hpp>
#include <gtest/gtest.h>
#include <memory>
#include <ostream>
#include <string>

namespace formulas
{

using Formula = std::unique_ptr<VorSystem::TreeEquations>;
using Node = std::unique_ptr<VorSystem::ElementEquation>;

inline std::string text(const QString &string)
{
    return string.toStdString();
}

/// An element that is no part of any set: its lists and formulas are in the test's hands, and it counts how
/// often it is asked for them.
class Probe : public VorSystem::BaseFrame
{
public:
    explicit Probe(const char *name) : BaseFrame(QString::fromLatin1(name)) {}
    ~Probe() override = default;

    VorSystem::XJsonObject toJson() const override { return {}; }
    void fromJson(const VorSystem::XJsonObject &) override {}
    VorSystem::eElementFrameType elementType() override { return VorSystem::Element_Spec; }
    VorSystem::ValuesAccordingSizes *getMeasureBySizes() override
    {
        ++mAsked;
        if (mLog != nullptr)
            *mLog += name();
        return &mMeasures;
    }
    VorSystem::ValuesAccordingSizes *getLevelBySizes() override { return &mLevels; }
    VorSystem::TreeEquations *measurementFormula() override { return mFormulaMeasure.get(); }
    VorSystem::TreeEquations *formulaLevel() override { return mFormulaLevel.get(); }
    bool isDefinedInDocument() override
    {
        ++mAskedDefined;
        return mDefined;
    }
    bool canBeDestroyedInBatch() override { return true; }

    VorSystem::ValuesAccordingSizes mMeasures;
    VorSystem::ValuesAccordingSizes mLevels;
    Formula mFormulaMeasure;
    Formula mFormulaLevel;
    QString *mLog = nullptr;
    bool mDefined = true;
    int mAsked = 0;
    int mAskedDefined = 0;

protected:
    VorSystem::ControlBase *skeletonElementPointedAtUs(VorSystem::ControlSkeleton *) override
    {
        return nullptr;
    }
};

inline Node constant(double value)
{
    return std::make_unique<VorSystem::ElementEquation>(ElemValue, value, nullptr);
}
inline Node measureOf(VorSystem::BaseFrame *element)
{
    return std::make_unique<VorSystem::ElementEquation>(ElemMeasure, 0.0, element);
}
inline Node levelOf(VorSystem::BaseFrame *element)
{
    return std::make_unique<VorSystem::ElementEquation>(ElemLevel, 0.0, element);
}
inline Node joined(ElemContent kind, Node left, Node right)
{
    auto node = std::make_unique<VorSystem::ElementEquation>(kind, 0.0, nullptr);
    node->sonLeft = left.release();
    node->sonRight = right.release();
    return node;
}
inline Formula formulaOf(Node root)
{
    auto formula = std::make_unique<VorSystem::TreeEquations>();
    delete formula->root;
    formula->root = root.release();
    return formula;
}

/// The tree with a bracket round every operation, M and L for references, ? for one without an element and
/// <name> for a bare name.
inline QString shape(const VorSystem::ElementEquation *node)
{
    if (node == nullptr)
        return QStringLiteral("none");
    const QString name = node->element != nullptr ? node->element->fullName() : QStringLiteral("?");
    const auto operation = [node](const char *sign) {
        return QStringLiteral("(%1 %2 %3)")
            .arg(shape(node->sonLeft), QString::fromLatin1(sign), shape(node->sonRight));
    };
    switch (node->contents) {
    case ElemNone: return QStringLiteral("<%1>").arg(node->pendingName);
    case ElemValue: return QString::number(node->value, 'g', 12);
    case ElemMeasure: return QStringLiteral("M[%1]").arg(name);
    case ElemLevel: return QStringLiteral("L[%1]").arg(name);
    case ElemParenthesis: return QStringLiteral("{%1}").arg(shape(node->sonLeft));
    case ElemAdd: return operation("+");
    case ElemSubtract: return operation("-");
    case ElemMultiply: return operation("*");
    case ElemDivide: return operation("/");
    }
    return QStringLiteral("kind %1").arg(node->contents);
}
inline std::string shape(const Formula &formula)
{
    return formula != nullptr ? text(shape(formula->root)) : "null";
}

/// Runs act, which must raise AssertionError, and tells the operation that it was raised in.
template<class Act>
std::string operationRefusing(Act act)
{
    try {
        act();
    } catch (const VorSystem::AssertionError &error) {
        EXPECT_STREQ(error.what(), "Invalid Operation");
        const char *const *function = boost::get_error_info<boost::throw_function>(error);
        const std::string signature = function != nullptr ? *function : "";
        const std::string::size_type end = signature.find('(');
        const std::string::size_type start = signature.find_last_of(" :", end);
        return signature.substr(start + 1, end - start - 1);
    }
    return "nothing refused";
}
#define EXPECT_REFUSED(act) EXPECT_THROW(act, VorSystem::AssertionError)

/// Words of another language, installed while the object lives.
class Language : public QTranslator
{
public:
    Language(const QString &measure, const QString &level)
        : mWords{{QStringLiteral("Measure"), measure}, {QStringLiteral("Level"), level}}
    {
        QCoreApplication::installTranslator(this);
    }
    ~Language() override { QCoreApplication::removeTranslator(this); }

    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *source, const char *, int) const override
    {
        return qstrcmp(context, "VorSystem::Frames") == 0 ? mWords.value(QString::fromLatin1(source))
                                                          : QString();
    }

private:
    QHash<QString, QString> mWords;
};

/// A set with the links a and b (measures and levels), the spec "Front Width", the center Front and its frame
/// Waist; no gradation, the C locale and centimetres unless a test says otherwise.
class FormulaTest : public testing::Test
{
public:
    FormulaTest()
    {
        mA = mSet.newLink(QStringLiteral("a"));
        mB = mSet.newLink(QStringLiteral("b"));
        mWidth = mSet.newSpec(QStringLiteral("Front Width"));
        mFront = mSet.newCenter(QStringLiteral("Front"));
        mWaist = mSet.newFrame(QStringLiteral("Waist"), mFront);
        store(mA, {7.0}, {70.0});
        store(mB, {3.0}, {30.0});
        store(mWidth, {40.0}, {});
        store(mWaist, {12.0}, {5.0});
    }
    ~FormulaTest() override { QLocale::setDefault(QLocale::c()); }

    static void store(VorSystem::BaseFrame *element, const VorSystem::QListEx<double> &measures,
                      const VorSystem::QListEx<double> &levels)
    {
        if (VorSystem::ValuesAccordingSizes *const values = element->getMeasureBySizes())
            values->mValues = measures;
        if (VorSystem::ValuesAccordingSizes *const values = element->getLevelBySizes())
            values->mValues = levels;
    }

    Formula parsed(const QString &typed, bool units = false)
    {
        return Formula(VorSystem::TreeEquations::parse(typed, &mSet, units));
    }
    Formula parsed(const char *utf8, bool units = false) { return parsed(QString::fromUtf8(utf8), units); }

    support::RecordingApplication mApplication;
    VorSystem::FrameSet mSet{QStringLiteral("Shirt"), nullptr};
    VorSystem::FrameLink *mA;
    VorSystem::FrameLink *mB;
    VorSystem::FrameSpec *mWidth;
    VorSystem::FrameCenter *mFront;
    VorSystem::FrameFrame *mWaist;
};

} // namespace formulas
