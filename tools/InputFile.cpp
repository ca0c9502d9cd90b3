#include "tools/InputFile.h"

#include <QFileInfo>

#include <cstdio>

namespace Orvida::Tools {

namespace {

// Reads a file, and keeps a copy of what it reads.
class CopyingDevice : public QIODevice
{
public:
    CopyingDevice(QFile &file, MemoryFile &copy) : m_file(file), m_copy(copy)
    {
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }

    bool isSequential() const override { return true; }

    /// Why reading broke off before the end of the file; else empty.
    QString failureText() const { return m_failureText; }

protected:
    qint64 readData(char *data, qint64 maximumSize) override
    {
        const qint64 size = m_file.read(data, maximumSize);
        if (m_file.error() != QFileDevice::NoError)
            m_failureText = m_file.errorString();
        else if (!m_copy.append(QByteArray::fromRawData(data, static_cast<int>(size))))
            m_failureText = m_copy.errorText();
        return m_failureText.isEmpty() ? size : -1;
    }

    qint64 writeData(const char *, qint64) override { return -1; }

private:
    QFile &m_file;
    MemoryFile &m_copy;
    QString m_failureText;
};

} // namespace

InputFile::InputFile(const QString &fileName) : m_fileName(fileName) {}

bool InputFile::read()
{
    QFile file;
    if (!open(file))
        return false;
    CopyingDevice device(file, m_copy);
    m_form = formOf(device);
    return device.failureText().isEmpty() || fail(device.failureText());
}

QString InputFile::name() const
{
    return isStandardInput() ? QStringLiteral("<standard input>") : m_fileName;
}

QString InputFile::shortName() const
{
    return isStandardInput() ? name() : QFileInfo(m_fileName).fileName();
}

QString InputFile::otherFormText(TextForm form) const
{
    if (m_form.value_or(form) == form)
        return QString();
    if (form == TextForm::Readable)
        return QStringLiteral("the file is scrambled already; leave --readable out");
    return QStringLiteral(
        "this is the readable form of a catalog, and hosts read nothing of its captions and "
        "codes; use --readable, or scramble the file");
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

bool InputFile::fail(const QString &errorText)
{
    m_failure = unreadable(errorText);
    return false;
}

} // namespace Orvida::Tools
