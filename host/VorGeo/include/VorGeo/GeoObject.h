// GeoObject: the root that the classes of the plane geometry share.
#pragma once

#include <VorGeo/VorGeoExport.h>

namespace VorSystem
{

/// Polymorphic root of the geometry classes.
class VORGEO_EXPORT GeoObject
{
public:
    constexpr GeoObject() noexcept = default;
    virtual ~GeoObject() = default;

    /// A copy takes the mark along.
    ///@{
    GeoObject(const GeoObject &) noexcept = default;
    GeoObject &operator=(const GeoObject &) noexcept = default;
    ///@}

    /// The owner's mark: -1 in a new object, copied with the object, never read by the geometry itself.
    ///@{
    int mark() const noexcept { return mMark; }
    void setMark(int mark) noexcept { mMark = mark; }
    ///@}

private:
    int mMark = -1;
};

} // namespace VorSystem
