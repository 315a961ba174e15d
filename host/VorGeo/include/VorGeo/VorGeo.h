// Everything of the plane geometry.
#pragma once

#include <VorGeo/GeoAlgorithms.h>
#include <VorGeo/GeoCurve.h>
#include <VorGeo/GeoObject.h>
#include <VorGeo/GeoPoint2D.h>
#include <VorGeo/GeoRectangle.h>
#include <VorGeo/GeoSegment2D.h>
#include <VorGeo/PolygonProbe.h>
#include <VorGeo/TrianglePoint.h>
#include <VorGeo/TripletReal.h>
