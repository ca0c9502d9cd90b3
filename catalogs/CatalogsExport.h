// Export macro of the catalog library, liborvidacatalogs.
#pragma once

#include <QtGlobal>

#ifdef ORVIDA_BUILDING_CATALOGS
#define ORVIDA_CATALOGS_EXPORT Q_DECL_EXPORT
#else
#define ORVIDA_CATALOGS_EXPORT Q_DECL_IMPORT
#endif
