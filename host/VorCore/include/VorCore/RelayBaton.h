// RelayBaton: a token that undoes something when nobody holds it any more.
#pragma once

#include <VorCore/VorCoreExport.h>

#include <boost/function.hpp>

#include <memory>

namespace VorSystem
{

/// A shared token: its function runs once, when the last copy dies or is assigned over.
///
/// The function runs inside a destructor, so it must not throw. A default-made baton, and one made from an
/// empty function, does nothing.
class [[nodiscard]] RelayBaton
{
public:
    RelayBaton() noexcept = default;
    /// Keeps a copy of the function until it has run.
    VORCORE_EXPORT explicit RelayBaton(const boost::function<void()> &atTheEnd);

private:
    std::shared_ptr<void> mToken;
};

} // namespace VorSystem
