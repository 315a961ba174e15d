// What the library VorDocument exports: all else stays hidden.
#pragma once

#include <QtGlobal>

#ifdef VORDOCUMENT_BUILD
#define VORDOCUMENT_EXPORT Q_DECL_EXPORT
#else
#define VORDOCUMENT_EXPORT Q_DECL_IMPORT
#endif
