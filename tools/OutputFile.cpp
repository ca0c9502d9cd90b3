#include "tools/OutputFile.h"

#include "tools/CommandOutput.h"
#include "tools/ExitStatus.h"
#include "tools/FileFailure.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <optional>
#include <utility>

#include <sys/stat.h>
#include <unistd.h>

namespace Orvida::Tools {

namespace {

using Identity = std::pair<dev_t, ino_t>;

const QString stream = QStringLiteral("-");

// What all names of one regular file have in common; none for what is no such file.
std::optional<Identity> identityOf(const QString &name, int streamDescriptor)
{
    struct stat status = {};
    const int result = name == stream ? fstat(streamDescriptor, &status)
                                      : stat(QFile::encodeName(name).constData(), &status);
    if (result != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    return Identity(status.st_dev, status.st_ino);
}

// What kept `document` from being written; empty when nothing did.
template <typename File, typename Finish>
QString errorOfWriting(File &file, const QByteArray &document, Finish finish)
{
    const bool isWritten =
        file.open(QIODevice::WriteOnly) && file.write(document) == document.size() && (file.*finish)();
    return isWritten ? QString() : errorTextOf(file);
}

} // namespace

QString OutputFile::name() const
{
    return isStandardOutput() ? QStringLiteral("<standard output>") : m_name;
}

bool OutputFile::isStream() const
{
    const QFileInfo place(m_name);
    return isStandardOutput() || (place.exists() && !place.isFile() && !place.isDir());
}

bool OutputFile::isSameAs(const QString &input) const
{
    const auto identity = identityOf(m_name, STDOUT_FILENO);
    return identity && identity == identityOf(input, STDIN_FILENO);
}

int OutputFile::write(const QByteArray &document, int status) const
{
    if (isStandardOutput()) {
        CommandOutput output;
        output.write(document);
        return output.finish(status);
    }
    QFile device(m_name);
    QSaveFile file(m_name);
    const QString errorText = isStream() ? errorOfWriting(device, document, &QFile::flush)
                                         : errorOfWriting(file, document, &QSaveFile::commit);
    if (errorText.isEmpty())
        return status;
    printFailure(m_name, {{},
                          QStringLiteral("cannot write the file: ") + errorText,
                          QStringLiteral("check the name of the file, the right to write there, and the room "
                                         "that is left")});
    return NotReadable;
}

bool OutputFile::isStandardOutput() const
{
    return m_name == stream;
}

} // namespace Orvida::Tools
