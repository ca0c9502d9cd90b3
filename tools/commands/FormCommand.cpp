#include "tools/commands/FormCommand.h"

#include "tools/CommandOutput.h"
#include "tools/ExitStatus.h"
#include "tools/InputFile.h"
#include "tools/Messages.h"
#include "tools/Options.h"
#include "tools/OutputFile.h"

#include <QFileInfo>

namespace Orvida::Tools {

namespace {

// Standard input or output.
const QString stream = QStringLiteral("-");

} // namespace

FormCommand::FormCommand(TextForm target)
    : Command(target == TextForm::Scrambled ? "scramble" : "unscramble",
              target == TextForm::Scrambled ? "Make the form that hosts load of a readable catalog file."
                                            : "Make a catalog file readable; scramble makes it as it was."),
      m_target(target)
{
}

void FormCommand::addOptions(CLI::App &command)
{
    addInputFile(command, m_fileName);
    const auto output =
        addTextOption(command, "-o,--output", m_output, "Write here, and not to standard output")
            ->option_text("OUT");
    command.add_flag("--in-place", m_isInPlace, "Write over FILE")->excludes(output);
    command.add_flag(
        "--force", m_isForced,
        "Change also a file that seems to be in this form, the first piece of a text of which a\n"
        "load takes no more, and digits in lower case");
}

int FormCommand::run()
{
    const QString error = usageError();
    if (!error.isEmpty()) {
        printMessage(error);
        return WrongUsage;
    }
    InputFile input(m_fileName);
    if (!input.read()) {
        printFailure(input.name(), input.failure());
        return NotReadable;
    }
    const FormChange change(input.bytes());
    if (change.failure()) {
        printFailure(input.name(), *change.failure());
        return NotReadable;
    }
    if (refuses(change, input.name()))
        return AnswerIsNo;
    int status = Done;
    const QByteArray document = changed(change, input.name(), status);
    return write(document, status);
}

// What is wrong with where the document is to go; empty when all is well.
QString FormCommand::usageError() const
{
    if (m_isInPlace && (m_fileName == stream || isSpecialFile(m_fileName)))
        return QStringLiteral("%1 cannot be written over; leave --in-place out").arg(m_fileName);
    if (!m_output || *m_output == stream || m_fileName == stream)
        return QString();
    const QString output = QFileInfo(*m_output).canonicalFilePath();
    if (output.isEmpty() || output != QFileInfo(m_fileName).canonicalFilePath())
        return QString();
    return QStringLiteral("%1 is the input itself; to write over it, use --in-place").arg(*m_output);
}

bool FormCommand::refuses(const FormChange &change, const QString &name) const
{
    if (!m_isForced && change.form() == m_target) {
        printMessage(QStringLiteral("%1 is %2 already; to go on all the same, use --force")
                         .arg(name, m_target == TextForm::Scrambled ? QStringLiteral("scrambled")
                                                                    : QStringLiteral("readable")));
        return true;
    }
    const auto obstacles = change.obstacles(m_isForced ? FieldText::NestedElement : FieldText::None);
    for (const FormChange::Note &note : obstacles)
        printError(name, note.position, note.text);
    if (!obstacles.isEmpty())
        printMessage(QStringLiteral("nothing is written; write each text in one piece"));
    return !obstacles.isEmpty();
}

// The file in its new form. Texts that are left as they are make the answer a no.
QByteArray FormCommand::changed(const FormChange &change, const QString &name, int &status) const
{
    if (m_target == TextForm::Scrambled)
        return change.scrambled();
    QVector<FormChange::Note> left;
    const QByteArray document = change.unscrambled(m_isForced, left);
    for (const FormChange::Note &note : qAsConst(left))
        printWarning(name, note.position, note.text);
    if (!left.isEmpty())
        status = AnswerIsNo;
    return document;
}

int FormCommand::write(const QByteArray &document, int status) const
{
    const QString name = m_isInPlace ? m_fileName : m_output.value_or(stream);
    if (name == stream) {
        CommandOutput output;
        output.write(document);
        return output.finish(status);
    }
    const QString errorText = errorOfWriting(name, document);
    if (errorText.isEmpty())
        return status;
    printError(name, {}, QStringLiteral("cannot write the file: ") + errorText);
    return NotReadable;
}

} // namespace Orvida::Tools
