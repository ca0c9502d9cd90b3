#include "tools/InputFile.h"

#include <QFileInfo>
#include <QXmlStreamReader>

#include <cstdio>

#include <sys/stat.h>

namespace Orvida::Tools {

namespace {

constexpr int blockSize = 1 << 20;

// Whether no well-formed XML can begin like this, whatever follows. An error near its end may come from
// where it was cut.
bool isMalformed(const QByteArray &beginning)
{
    QXmlStreamReader reader(beginning);
    while (!reader.atEnd())
        reader.readNext();
    return reader.hasError() && reader.error() != QXmlStreamReader::PrematureEndOfDocumentError
           && reader.characterOffset() < beginning.size() / 8;
}

bool isRegular(const QFile &file)
{
    struct stat status;
    return fstat(file.handle(), &status) == 0 && S_ISREG(status.st_mode);
}

} // namespace

InputFile::InputFile(const QString &fileName) : m_fileName(fileName) {}

bool InputFile::read()
{
    QFile file;
    return open(file) && copy(file);
}

QString InputFile::name() const
{
    return isStandardInput() ? QStringLiteral("<standard input>") : m_fileName;
}

QString InputFile::shortName() const
{
    return isStandardInput() ? name() : QFileInfo(m_fileName).fileName();
}

bool InputFile::isStandardInput() const
{
    return m_fileName == QLatin1String("-");
}

bool InputFile::open(QFile &file)
{
    // Qt prints a warning of its own for no name.
    if (m_fileName.isEmpty())
        return fail(QStringLiteral("No such file or directory"));
    file.setFileName(m_fileName);
    if (isStandardInput() ? file.open(stdin, QIODevice::ReadOnly) : file.open(QIODevice::ReadOnly))
        return true;
    return fail(file.errorString());
}

bool InputFile::copy(QFile &file)
{
    bool isFirst = true;
    for (;;) {
        const QByteArray block = file.read(blockSize);
        if (file.error() != QFileDevice::NoError)
            return fail(file.errorString());
        if (!m_copy.append(block))
            return fail(m_copy.errorText());
        if (block.isEmpty())
            return true;
        if (isFirst && (block.size() == blockSize || !isRegular(file)) && isMalformed(block))
            return true;
        isFirst = false;
    }
}

bool InputFile::fail(const QString &errorText)
{
    m_failure = unreadable(errorText);
    return false;
}

} // namespace Orvida::Tools
