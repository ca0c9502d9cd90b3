// Export macro of the stand-in host library, liborvidashared.
#pragma once

#include <QtGlobal>

#ifdef ORVIDA_BUILDING_SHARED
#define ORVIDA_SHARED_EXPORT Q_DECL_EXPORT
#else
#define ORVIDA_SHARED_EXPORT Q_DECL_IMPORT
#endif
