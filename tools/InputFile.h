// A file that a command was told to read, or standard input.
#pragma once

#include "tools/FileFailure.h"
#include "tools/MemoryFile.h"
#include "tools/TextForm.h"

#include <QByteArray>
#include <QFile>
#include <QString>

#include <optional>

namespace Orvida::Tools {

/// The bytes of a file, read once: a pipe cannot be read again, and a file that is saved meanwhile would give
/// each reader different content.
class InputFile
{
public:
    /// For the file `fileName`; "-" stands for standard input.
    explicit InputFile(const QString &fileName);

    /// Reads the file; false when that fails, `failure` says why. A file that is no XML is read only
    /// until that is clear: a device may have no end.
    [[nodiscard]] bool read();
    const FileFailure &failure() const { return m_failure; }

    /// The form that the file seems to have.
    std::optional<TextForm> form() const { return m_form; }
    /// What to do about it when the file is taken to be in `form` and seems to be in the other one; else
    /// empty.
    QString otherFormText(TextForm form) const;

    /// The file as messages name it: as the user did, or "<standard input>".
    QString name() const;
    /// The same without its folders.
    QString shortName() const;

    /// Opens what was read from its start, any number of times while the object lives.
    QString path() const { return m_copy.path(); }
    QByteArray bytes() const { return m_copy.bytes(); }

private:
    bool isStandardInput() const;
    bool open(QFile &file);
    bool fail(const QString &errorText);

    QString m_fileName;
    FileFailure m_failure;
    std::optional<TextForm> m_form;
    MemoryFile m_copy;
};

} // namespace Orvida::Tools
