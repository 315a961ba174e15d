// What the library VorFrames exports: all else stays hidden.
#pragma once

#include <QtGlobal>

#ifdef VORFRAMES_BUILD
#define VORFRAMES_EXPORT Q_DECL_EXPORT
#else
#define VORFRAMES_EXPORT Q_DECL_IMPORT
#endif
