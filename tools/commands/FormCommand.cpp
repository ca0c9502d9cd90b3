#include "tools/commands/FormCommand.h"

#include "tools/ExitStatus.h"
#include "tools/InputFile.h"
#include "tools/Messages.h"

#include <CLI/CLI.hpp>

namespace Orvida::Tools {

namespace {

using Print = void (*)(const QString &file, FilePosition position, const QString &text);

// A hundred are enough when a file as a whole is not what it was taken for.
void report(const QString &name, const QVector<FormChange::Note> &notes, Print print)
{
    constexpr int most = 100;
    for (const FormChange::Note &note : notes.mid(0, most)) {
        print(name, note.position, note.text);
        if (!note.remedy.isEmpty())
            printRemedy(note.remedy);
    }
    if (notes.size() > most)
        printMessage(QStringLiteral("and %1 more like these").arg(notes.size() - most));
}

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
    m_options.addTo(command);
    command.add_flag(
        "--force", m_isForced,
        "Change what is refused otherwise: a file that seems to have this form already, the first piece\n"
        "of a text in pieces, digits in lower case");
}

int FormCommand::run()
{
    if (!m_options.areUsable())
        return WrongUsage;
    InputFile input(m_options.fileName());
    if (!input.read()) {
        printFailure(input.name(), input.failure());
        return NotReadable;
    }
    const FormChange change(input.bytes());
    if (change.failure()) {
        printFailure(input.name(), explained(*change.failure(), input.path()));
        return NotReadable;
    }
    if (refuses(change, input.name()))
        return AnswerIsNo;
    int status = Done;
    const QByteArray document = changed(change, input.name(), status);
    return m_options.output().write(document, status);
}

bool FormCommand::refuses(const FormChange &change, const QString &name) const
{
    if (!m_isForced && change.form() == m_target) {
        printMessage(QStringLiteral("%1 is %2 already; use --force to change it anyway")
                         .arg(name, m_target == TextForm::Scrambled ? QStringLiteral("scrambled")
                                                                    : QStringLiteral("readable")));
        return true;
    }
    const auto obstacles = change.obstacles(m_isForced ? FieldText::NestedElement : FieldText::None);
    report(name, obstacles, printError);
    if (!obstacles.isEmpty())
        printMessage(QStringLiteral("nothing is written"));
    return !obstacles.isEmpty();
}

// The file in its new form. Texts that are left as they are make the answer a no.
QByteArray FormCommand::changed(const FormChange &change, const QString &name, int &status) const
{
    if (m_target == TextForm::Scrambled) {
        if (change.form() == TextForm::Readable)
            report(name, change.scrambledTexts(), printWarning);
        return change.scrambled();
    }
    QVector<FormChange::Note> left;
    const QByteArray document = change.unscrambled(m_isForced, left);
    report(name, left, printWarning);
    if (!left.isEmpty())
        status = AnswerIsNo;
    return document;
}

} // namespace Orvida::Tools
