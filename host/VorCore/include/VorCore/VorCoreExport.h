// What the library VorCore exports: all else stays hidden.
#pragma once

#include <QtGlobal>

#ifdef VORCORE_BUILD
#define VORCORE_EXPORT Q_DECL_EXPORT
#else
#define VORCORE_EXPORT Q_DECL_IMPORT
#endif
