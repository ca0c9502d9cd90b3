#include "catalogs/access/ICatalogFileNameProvider.h"

// Defined here so that the virtual table and the type information have one home, this library.
ICatalogFileNameProvider::~ICatalogFileNameProvider() = default;
