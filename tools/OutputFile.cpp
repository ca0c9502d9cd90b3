#include "tools/OutputFile.h"

#include "tools/FileFailure.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace Orvida::Tools {

namespace {

QString errorOfReplacing(const QString &name, const QByteArray &document)
{
    QSaveFile file(name);
    const bool isWritten =
        file.open(QIODevice::WriteOnly) && file.write(document) == document.size() && file.commit();
    return isWritten ? QString() : errorTextOf(file);
}

// Replaced, what is special would be gone.
QString errorOfWritingInto(const QString &name, const QByteArray &document)
{
    QFile file(name);
    const bool isWritten =
        file.open(QIODevice::WriteOnly) && file.write(document) == document.size() && file.flush();
    return isWritten ? QString() : errorTextOf(file);
}

} // namespace

bool isSpecialFile(const QString &name)
{
    const QFileInfo place(name);
    return place.exists() && !place.isFile() && !place.isDir();
}

QString errorOfWriting(const QString &name, const QByteArray &document)
{
    return isSpecialFile(name) ? errorOfWritingInto(name, document) : errorOfReplacing(name, document);
}

} // namespace Orvida::Tools
