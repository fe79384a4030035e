#pragma once

#include <QtGlobal>

/// Marks what users of the library may call; everything else stays hidden in it.
#ifdef FIGURA_BUILD
#define FIGURA_EXPORT Q_DECL_EXPORT
#else
#define FIGURA_EXPORT Q_DECL_IMPORT
#endif
