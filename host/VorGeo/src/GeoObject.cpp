// GeoObject: the root that the classes of the plane geometry share.
#include <VorGeo/GeoObject.h>

namespace VorSystem
{

GeoObject::~GeoObject() = default;

} // namespace VorSystem
