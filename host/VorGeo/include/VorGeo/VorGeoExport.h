// What the library VorGeo exports: all else stays hidden.
#pragma once

#include <QtGlobal>

#ifdef VORGEO_BUILD
#define VORGEO_EXPORT Q_DECL_EXPORT
#else
#define VORGEO_EXPORT Q_DECL_IMPORT
#endif
