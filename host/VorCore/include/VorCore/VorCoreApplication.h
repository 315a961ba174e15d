// VorCoreApplication: what a program answers for as a whole: messages, questions and the length unit.
#pragma once

#include <VorCore/LengthUnit.h>
#include <VorCore/RelayBaton.h>
#include <VorCore/VorCoreExport.h>

#include <memory>

class QString;

namespace VorSystem
{

/// The application object.
///
/// There is always one. Until a program makes its own, a default one writes messages to Qt's log, answers
/// every question with no, and works in centimetres. An object of a subclass takes over when it is made and
/// stands until it dies; then the one that stood before it stands again.
class VORCORE_EXPORT VorCoreApplication
{
public:
    VorCoreApplication();
    virtual ~VorCoreApplication();

    VorCoreApplication(const VorCoreApplication &) = delete;
    VorCoreApplication &operator=(const VorCoreApplication &) = delete;

    /// The object made last among those alive, or the default one. Never to be destroyed by the caller.
    static VorCoreApplication &instance();

    /// The present unit: the centimetre while a baton of resetAppUnitToCentimetre lives, else the unit set.
    LengthUnit lengthUnit() const noexcept;

    /// Sets this application's unit. While a baton lives, the unit set waits until the last one is gone.
    void setLengthUnit(const LengthUnit &unit) noexcept;

    /// While the baton or a copy of it lives, this application's length unit is the centimetre.
    ///
    /// Batons may nest and may end in any order, also after this application.
    [[nodiscard]] RelayBaton resetAppUnitToCentimetre();

    /// Shows a message. The default writes it to Qt's log.
    virtual void showMessage(const QString &text, const QString &title, int flags);

    /// Asks a question, true for yes. The default writes it to Qt's log and answers no.
    virtual bool askQuestion(const QString &text, const QString &title, int flags);

private:
    class DefaultApplication;
    struct Standing {
    };

    explicit VorCoreApplication(Standing);

    VorCoreApplication *mPrevious = nullptr; // the one that stood before; null at the bottom
    LengthUnit mUnit;
    // Held by this object and by each baton of resetAppUnitToCentimetre: more than one holder resets the
    // unit.
    std::shared_ptr<const void> mResetToken;
};

} // namespace VorSystem
