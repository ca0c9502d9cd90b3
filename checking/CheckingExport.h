// Export macro of the checking library, liborvidachecking.
#pragma once

#include <QtGlobal>

#ifdef ORVIDA_BUILDING_CHECKING
#define ORVIDA_CHECKING_EXPORT Q_DECL_EXPORT
#else
#define ORVIDA_CHECKING_EXPORT Q_DECL_IMPORT
#endif
