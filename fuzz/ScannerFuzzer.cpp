// Fuzz target: any bytes as a document. What the scanner finds plain, QXmlStreamReader must read alike.
#include "fuzz/MemoryFile.h"
#include "support/ScannerComparison.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray document(reinterpret_cast<const char *>(data), static_cast<int>(size));
    // The document itself chooses, so that any XML file is an input.
    constexpr int blockSizes[] = {1, 2, 3, 7, 16, 61, 1000, 16 * 1024};
    const std::size_t choice = qChecksum(document.constData(), static_cast<uint>(size));
    const int skipped = static_cast<int>(choice / std::size(blockSizes) % 4);
    const auto comparison =
        Orvida::Tests::compareWithQt(document, blockSizes[choice % std::size(blockSizes)], skipped);
    Orvida::Fuzz::stopAt(comparison.difference);
    return 0;
}
