// What the library VorJson exports: all else stays hidden.
#pragma once

#include <QtGlobal>

#ifdef VORJSON_BUILD
#define VORJSON_EXPORT Q_DECL_EXPORT
#else
#define VORJSON_EXPORT Q_DECL_IMPORT
#endif
