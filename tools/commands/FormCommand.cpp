#include "tools/commands/FormCommand.h"

#include "tools/CommandOutput.h"
#include "tools/ExitStatus.h"
#include "tools/InputFile.h"
#include "tools/Messages.h"
#include "tools/Options.h"

#include <QFileInfo>
#include <QSaveFile>

namespace Orvida::Tools {

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
    if (m_isInPlace && m_fileName == QLatin1String("-")) {
        printMessage(QStringLiteral("standard input cannot be written over; leave --in-place out"));
        return WrongUsage;
    }
    if (isOutputTheInput()) {
        printMessage(
            QStringLiteral("%1 is the input itself; to write over it, use --in-place").arg(*m_output));
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

bool FormCommand::isOutputTheInput() const
{
    const QFileInfo output(m_output.value_or(QString()));
    return m_output && output.exists()
           && output.canonicalFilePath() == QFileInfo(m_fileName).canonicalFilePath();
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
    const QString name = m_isInPlace ? m_fileName : m_output.value_or(QStringLiteral("-"));
    if (name == QLatin1String("-")) {
        CommandOutput output;
        output.write(document);
        return output.finish(status);
    }
    // Whole or not at all: a file that is there stays as it is until the new one is complete.
    QSaveFile file(name);
    if (file.open(QIODevice::WriteOnly) && file.write(document) == document.size() && file.commit())
        return status;
    printError(name, {}, QStringLiteral("cannot write the file: ") + errorTextOf(file));
    return NotReadable;
}

} // namespace Orvida::Tools
