// The version of the catalog library: what a host is compiled with, and what it runs with. The build takes
// the version of the whole project from here.
#pragma once

#include "catalogs/CatalogsExport.h"

#include <QVersionNumber>
#include <QtGlobal>

#define ORVIDA_CATALOGS_VERSION_MAJOR 0
#define ORVIDA_CATALOGS_VERSION_MINOR 1
#define ORVIDA_CATALOGS_VERSION_PATCH 0

/// The version of these headers as one number, for the preprocessor:
/// `#if ORVIDA_CATALOGS_VERSION >= QT_VERSION_CHECK(0, 1, 0)`.
#define ORVIDA_CATALOGS_VERSION                                                                              \
    QT_VERSION_CHECK(ORVIDA_CATALOGS_VERSION_MAJOR, ORVIDA_CATALOGS_VERSION_MINOR,                           \
                     ORVIDA_CATALOGS_VERSION_PATCH)

namespace Orvida::Catalogs {

/// The version of the library that runs. It differs from that of the headers when the library was replaced
/// by another one with the same soname. Any thread may call it.
ORVIDA_CATALOGS_EXPORT QVersionNumber runtimeVersion();

} // namespace Orvida::Catalogs
