// VorCoreApplication: what a program answers for as a whole: messages, questions and the length unit.
#include <VorCore/VorCoreApplication.h>

#include <QDebug>
#include <QString>

namespace VorSystem
{

namespace
{

// The application that stands; null while it is the default one. Constant-initialised, so it is there before
// and after every other static object.
VorCoreApplication *current = nullptr;

} // namespace

// Stands below all others and is on no chain itself.
class VorCoreApplication::DefaultApplication : public VorCoreApplication
{
public:
    DefaultApplication() : VorCoreApplication(Standing()) {}
};

VorCoreApplication::VorCoreApplication() : VorCoreApplication(Standing())
{
    mPrevious = current;
    current = this;
}

VorCoreApplication::VorCoreApplication(Standing) : mResetToken(std::make_shared<char>()) {}

VorCoreApplication::~VorCoreApplication()
{
    // Usually the first link. Applications may also die out of turn: then the chain closes over the gap.
    for (VorCoreApplication **link = &current; *link != nullptr; link = &(*link)->mPrevious) {
        if (*link == this) {
            *link = mPrevious;
            break;
        }
    }
}

VorCoreApplication &VorCoreApplication::instance()
{
    if (current != nullptr)
        return *current;
    // Never destroyed: static objects of the program may still show a message at its end.
    static VorCoreApplication &standing = *new DefaultApplication;
    return standing;
}

LengthUnit VorCoreApplication::lengthUnit() const noexcept
{
    return mResetToken.use_count() > 1 ? LengthUnit::centimetre() : mUnit;
}

void VorCoreApplication::setLengthUnit(const LengthUnit &unit) noexcept
{
    mUnit = unit;
}

RelayBaton VorCoreApplication::resetAppUnitToCentimetre()
{
    // Nothing is left to do at the end: the function dies with the baton, and its hold of the token with it.
    return RelayBaton([token = mResetToken] { Q_UNUSED(token) });
}

void VorCoreApplication::showMessage(const QString &text, const QString &title, int)
{
    if (title.isEmpty())
        qInfo().noquote() << text;
    else
        qInfo().noquote() << title << text;
}

bool VorCoreApplication::askQuestion(const QString &text, const QString &title, int flags)
{
    VorCoreApplication::showMessage(text, title, flags);
    return false;
}

} // namespace VorSystem
