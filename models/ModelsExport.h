// Export macro of the models library, liborvidamodels.
#pragma once

#include <QtGlobal>

#ifdef ORVIDA_BUILDING_MODELS
#define ORVIDA_MODELS_EXPORT Q_DECL_EXPORT
#else
#define ORVIDA_MODELS_EXPORT Q_DECL_IMPORT
#endif
