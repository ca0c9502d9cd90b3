#include "benchmarks/BenchmarkFiles.h"

#include <QBuffer>
#include <QFile>
#include <QTemporaryDir>

namespace Orvida::Benchmarks {

QString catalogFile(qint64 size, CatalogGenerator::StylePlace stylePlace)
{
    static const QTemporaryDir folder;
    const bool isStyleFirst = stylePlace == CatalogGenerator::StylePlace::First;
    QFile file(folder.filePath(QStringLiteral("%1-%2.xml").arg(size).arg(isStyleFirst)));
    if (!file.exists()) {
        constexpr quint32 seed = 1;
        QByteArray catalog;
        QBuffer buffer(&catalog);
        buffer.open(QIODevice::WriteOnly);
        CatalogGenerator(seed).write(buffer, size, stylePlace);
        if (!file.open(QIODevice::WriteOnly) || file.write(catalog) != catalog.size())
            qFatal("cannot write %s", qUtf8Printable(file.fileName()));
    }
    return file.fileName();
}

} // namespace Orvida::Benchmarks
