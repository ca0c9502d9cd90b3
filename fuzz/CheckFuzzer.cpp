// Fuzz target: any bytes as a catalog file. Compares what a check finds with what a load does.
#include "checking/LoadAgreement.h"
#include "fuzz/MemoryFile.h"

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    // The library reports orphans there.
    return std::freopen("/dev/null", "w", stdout) ? 0 : 1;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    Orvida::Fuzz::stopAt(Orvida::Tests::disagreementOn(Orvida::Fuzz::pathOfBytes(data, size)));
    return 0;
}
