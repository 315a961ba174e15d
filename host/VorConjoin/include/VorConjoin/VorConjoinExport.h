// What the library VorConjoin exports: all else stays hidden.
#pragma once

#include <QtGlobal>

#ifdef VORCONJOIN_BUILD
#define VORCONJOIN_EXPORT Q_DECL_EXPORT
#else
#define VORCONJOIN_EXPORT Q_DECL_IMPORT
#endif
