#include "catalogs/CatalogsVersion.h"

namespace Orvida::Catalogs {

QVersionNumber runtimeVersion()
{
    return {ORVIDA_CATALOGS_VERSION_MAJOR, ORVIDA_CATALOGS_VERSION_MINOR, ORVIDA_CATALOGS_VERSION_PATCH};
}

} // namespace Orvida::Catalogs
