#include "tools/commands/ExportCommand.h"

#include "tools/ExitStatus.h"
#include "tools/InputFile.h"
#include "tools/Options.h"
#include "tools/OutputFile.h"
#include "tools/translation/CsvText.h"

#include <CLI/CLI.hpp>

#include <map>
#include <string>

namespace Orvida::Tools {

namespace {

const std::map<std::string, TranslatableTexts::Choice> choices = {{"captions", TranslatableTexts::Captions},
                                                                  {"all", TranslatableTexts::All}};

QVector<QStringList> rowsOf(const QVector<TranslatableText> &texts)
{
    QVector<QStringList> rows{{QStringLiteral("record"), QStringLiteral("key"), QStringLiteral("field"),
                               QStringLiteral("code"), QStringLiteral("context"), QStringLiteral("text"),
                               QStringLiteral("translation")}};
    for (const TranslatableText &text : texts)
        rows.append({text.name.record, text.name.key, text.name.field, text.code, text.place.field->meaning,
                     text.text, QString()});
    return rows;
}

} // namespace

void ExportCommand::addOptions(CLI::App &command)
{
    addInputFile(command, m_fileName);
    command
        .add_option_function<std::string>(
            "--csv",
            [this](const std::string &name) {
                m_output = name.empty() ? m_output : QString::fromStdString(name);
            },
            "Write the table here; without a name, to standard output")
        ->option_text("[OUT]")
        ->expected(0, 1)
        ->required();
    command
        .add_option_function<std::string>(
            "--fields", [this](const std::string &word) { m_choice = choices.at(word); },
            "Which texts: captions and what else people read, or all that are no keys")
        ->check(CLI::IsMember(choices))
        ->option_text("captions|all");
    command.add_flag("--excel", m_isForExcel, "With semicolons and a byte-order mark, which Excel needs");
}

int ExportCommand::run()
{
    InputFile input(m_fileName);
    if (!input.read()) {
        printFailure(input.name(), input.failure());
        return NotReadable;
    }
    const OutputFile output(m_output);
    if (output.isSameAs(m_fileName)) {
        printMessage(
            QStringLiteral("%1 is the catalog itself; give the table another name").arg(output.name()));
        return WrongUsage;
    }
    const TranslatableTexts texts(input.bytes(), input.form(), m_choice);
    if (texts.failure()) {
        printFailure(input.name(), explained(*texts.failure(), input.path()));
        return NotReadable;
    }
    const auto dialect = m_isForExcel ? CsvText::Dialect::Excel : CsvText::Dialect::Plain;
    return output.write(CsvText::written(rowsOf(texts.texts()), dialect), Done);
}

} // namespace Orvida::Tools
