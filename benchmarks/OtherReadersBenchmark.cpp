// The same files with other readers: what a host would do without the library (a document tree of Qt, and the
// catalog's tree built from it), the library's own steps after other parsers, and bare passes of these for
// comparison.
#include "benchmarks/BenchmarkFiles.h"
#include "benchmarks/DomCatalog.h"
#include "benchmarks/OtherCatalogs.h"

#include <QFile>

#include <benchmark/benchmark.h>
#include <expat.h>
#include <libxml/xmlreader.h>
#include <pugixml.hpp>

#include <memory>

using namespace Orvida::Benchmarks;

namespace {

void domCatalog(benchmark::State &state)
{
    const QString path = catalogFile(state.range(0));
    for (auto _ : state) {
        auto items = loadDomCatalog(path);
        if (items.isEmpty())
            state.SkipWithError("cannot load");
        state.PauseTiming();
        items.clear();
        state.ResumeTiming();
    }
}

void measureCatalog(benchmark::State &state, Orvida::Catalogs::CatalogSptr (*load)(const QString &),
                    bool isSame)
{
    if (!isSame)
        return state.SkipWithError("not the catalog that the library loads");
    const QString path = catalogFile(state.range(0));
    for (auto _ : state) {
        auto catalog = load(path);
        if (!catalog->IsValid())
            state.SkipWithError("cannot load");
        state.PauseTiming();
        catalog.reset();
        state.ResumeTiming();
    }
    state.SetBytesProcessed(state.iterations() * state.range(0));
}

void pugixmlCatalog(benchmark::State &state)
{
    static const bool isSame = isSameAsLoaded(loadPugixmlCatalog, catalogFile(1000000));
    measureCatalog(state, loadPugixmlCatalog, isSame);
}

void libxml2SaxCatalog(benchmark::State &state)
{
    static const bool isSame = isSameAsLoaded(loadLibxml2SaxCatalog, catalogFile(1000000));
    measureCatalog(state, loadLibxml2SaxCatalog, isSame);
}

void pugixmlParse(benchmark::State &state)
{
    const QByteArray path = QFile::encodeName(catalogFile(state.range(0)));
    for (auto _ : state) {
        pugi::xml_document document;
        if (!document.load_file(path.constData()))
            state.SkipWithError("cannot parse");
    }
}

void expatPass(benchmark::State &state)
{
    const QString path = catalogFile(state.range(0));
    for (auto _ : state) {
        QFile file(path);
        const std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> parser(XML_ParserCreate(nullptr),
                                                                                  XML_ParserFree);
        bool isGood = file.open(QIODevice::ReadOnly);
        while (isGood && !file.atEnd()) {
            const QByteArray block = file.read(1 << 16);
            isGood = XML_Parse(parser.get(), block.constData(), block.size(), file.atEnd()) == XML_STATUS_OK;
        }
        if (!isGood)
            state.SkipWithError("cannot parse");
    }
}

void libxml2ReaderPass(benchmark::State &state)
{
    const QByteArray path = QFile::encodeName(catalogFile(state.range(0)));
    for (auto _ : state) {
        const std::unique_ptr<xmlTextReader, decltype(&xmlFreeTextReader)> reader(
            xmlReaderForFile(path.constData(), nullptr, 0), xmlFreeTextReader);
        int result = 1;
        while (reader && result == 1)
            result = xmlTextReaderRead(reader.get());
        if (result != 0)
            state.SkipWithError("cannot parse");
    }
}

} // namespace

#define ORVIDA_SIZE ->Arg(10000000)->Unit(benchmark::kMillisecond)

BENCHMARK(domCatalog) ORVIDA_SIZE;
BENCHMARK(pugixmlCatalog)->Arg(1000000) ORVIDA_SIZE;
BENCHMARK(libxml2SaxCatalog)->Arg(1000000) ORVIDA_SIZE;
BENCHMARK(pugixmlParse) ORVIDA_SIZE;
BENCHMARK(expatPass) ORVIDA_SIZE;
BENCHMARK(libxml2ReaderPass) ORVIDA_SIZE;
