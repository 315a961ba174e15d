// A document for tests of the library: a gradation, a plan, a manager with one set, and what the user is
// told.
#pragma once

#include <VorFrames/VorFrames.h>
#include <support/RecordingApplication.h>

#include <QStringList>
#include <boost/exception/get_error_info.hpp>
#include <boost/exception/info.hpp>

#include <initializer_list>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace support
{

/// A plan whose answer about locks is what the test says.
class TestPlan : public VorSystem::t_Plan
{
public:
    int lockState(VorSystem::BaseFrame *) const override
    {
        ++mAsked;
        return mLockState;
    }

    int mLockState = 0;
    mutable int mAsked = 0;
};

class TestDocument : public VorSystem::Document
{
public:
    /// sizes of 0 means that no nest is defined.
    explicit TestDocument(short sizes = 0, short nestNumber = 1) : mManager(new VorSystem::GestFrames)
    {
        setSizes(sizes, nestNumber);
        mManager->setDocument(this);
    }
    ~TestDocument() override
    {
        // Skeletons first, then the elements they point at, then the pieces.
        for (VorSystem::ControlSkeleton *skeleton : mSkeletons)
            delete skeleton;
        mManager.reset();
    }
    TestDocument(const TestDocument &) = delete;
    TestDocument &operator=(const TestDocument &) = delete;

    const VorSystem::GradationData *gradationData() const override
    {
        return mHasGradation ? &mGradation : nullptr;
    }
    VorSystem::GestFrames *framesManager() const override { return mManager.get(); }
    const VorSystem::t_Plan *plan() const override { return mHasPlan ? &mPlan : nullptr; }

    void setSizes(short sizes, short nestNumber)
    {
        mGradation = sizes == 0 ? VorSystem::GradationData() : VorSystem::GradationData(sizes, nestNumber);
    }
    VorSystem::GestFrames &manager() { return *mManager; }
    /// A new set in the manager's list.
    VorSystem::FrameSet *newSet(const char *name = "Set")
    {
        auto *const set = new VorSystem::FrameSet(QString::fromUtf8(name), mManager.get());
        mManager->addFrameSet(set, -1);
        return set;
    }
    /// A skeleton of the gabarit, deleted with the document unless forget() was told.
    VorSystem::ControlSkeleton *newSkeleton(VorSystem::CDbGroupObject *group,
                                            VorSystem::GabaritObject *gabarit)
    {
        mSkeletons.push_back(new VorSystem::ControlSkeleton(group, gabarit));
        return mSkeletons.back();
    }
    /// The skeleton was deleted by the test.
    void forget(VorSystem::ControlSkeleton *skeleton)
    {
        for (VorSystem::ControlSkeleton *&entry : mSkeletons) {
            if (entry == skeleton)
                entry = nullptr;
        }
    }

    bool mHasGradation = true;
    bool mHasPlan = true;
    VorSystem::GradationData mGradation;
    TestPlan mPlan;

private:
    std::unique_ptr<VorSystem::GestFrames> mManager;
    std::vector<VorSystem::ControlSkeleton *> mSkeletons;
};

inline QString name(const char *text)
{
    return QString::fromUtf8(text);
}

inline VorSystem::QListEx<double> doubles(std::initializer_list<double> values)
{
    return VorSystem::QListEx<double>(values);
}

inline VorSystem::ValuesAccordingSizes sizes(std::initializer_list<double> values, short nestIndex)
{
    VorSystem::ValuesAccordingSizes list;
    list.mValues = VorSystem::QListEx<double>(values);
    list.mNestIndex = nestIndex;
    return list;
}

/// "10 [12] 14": the nest in brackets; "empty" for no value, and " nest N" where the nest is none of them.
inline std::string text(const VorSystem::ValuesAccordingSizes &values)
{
    QStringList texts;
    for (int size = 0; size < values.mValues.count(); ++size) {
        const QString value = QString::number(values.mValues.at(size), 'g', 10);
        texts.append(size == values.mNestIndex ? QLatin1Char('[') + value + QLatin1Char(']') : value);
    }
    if (values.mValues.isEmpty())
        texts.append(QStringLiteral("empty"));
    if (values.mNestIndex < 0 || values.mNestIndex >= values.mValues.count())
        texts.append(QStringLiteral("nest %1").arg(values.mNestIndex));
    return texts.join(QLatin1Char(' ')).toStdString();
}

/// The full names in order, separated by blanks; "-" for null.
template<class Element>
std::string names(const VorSystem::QListEx<Element *> &elements)
{
    QStringList texts;
    for (Element *element : elements)
        texts.append(element == nullptr ? QStringLiteral("-") : element->fullName());
    return texts.join(QLatin1Char(' ')).toStdString();
}

/// The formula that text spells in the set, in centimetres; the test fails on what is no formula.
inline VorSystem::TreeEquations *formula(const char *text, VorSystem::FrameSet *set)
{
    VorSystem::TreeEquations *const tree = VorSystem::TreeEquations::parse(name(text), set, true);
    if (tree == nullptr)
        throw std::invalid_argument(std::string("no formula: ") + text);
    return tree;
}

/// Function, unit and line of a failed precondition, as a host reads them.
struct Thrown {
    std::string what;
    std::string function;
    std::string file;
    int line = 0;
};

template<class Error, class Act>
Thrown thrownBy(Act act)
{
    try {
        act();
    } catch (const Error &error) {
        Thrown thrown;
        thrown.what = error.what();
        if (const char *const *function = boost::get_error_info<boost::throw_function>(error))
            thrown.function = *function;
        if (const char *const *file = boost::get_error_info<boost::throw_file>(error))
            thrown.file = *file;
        if (const int *line = boost::get_error_info<boost::throw_line>(error))
            thrown.line = *line;
        return thrown;
    }
    return {};
}

} // namespace support
