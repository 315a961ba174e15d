// RelayBaton: a token that undoes something when nobody holds it any more.
#include <VorCore/RelayBaton.h>

namespace VorSystem
{

RelayBaton::RelayBaton(const boost::function<void()> &atTheEnd)
{
    // Calling an empty function throws, and a destructor is no place for that.
    if (!atTheEnd.empty())
        mToken = std::shared_ptr<void>(nullptr, [atTheEnd](void *) { atTheEnd(); });
}

} // namespace VorSystem
