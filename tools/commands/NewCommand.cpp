#include "tools/commands/NewCommand.h"

#include "tools/CommandOutput.h"
#include "tools/ExitStatus.h"
#include "tools/Messages.h"
#include "tools/NewCatalog.h"
#include "tools/Options.h"

#include <CLI/CLI.hpp>
#include <QStringList>
#include <QVector>

#include <algorithm>

namespace Orvida::Tools {

namespace {

// What is compared exactly should be seen exactly, and XML cannot hold every character. Bytes of the call
// that are no UTF-8 have become U+FFFD.
QString faultOf(const QString &key)
{
    if (key.isEmpty())
        return QStringLiteral("is empty");
    if (key != key.trimmed())
        return QStringLiteral("begins or ends with white space");
    const QVector<uint> characters = key.toUcs4();
    const bool isSeen = std::all_of(characters.cbegin(), characters.cend(), [](uint character) {
        return QChar::isPrint(character) && character != QChar::ReplacementCharacter;
    });
    return isSeen ? QString() : QStringLiteral("has a character that cannot be seen");
}

bool areGoodKeys(const QStringList &keys)
{
    for (const QString &key : keys) {
        const QString fault = faultOf(key);
        if (!fault.isEmpty()) {
            printMessage(QStringLiteral("%1 cannot be used: it %2").arg(quoted(key), fault));
            return false;
        }
    }
    return true;
}

int print(const QByteArray &text)
{
    CommandOutput output;
    output.write(text);
    return output.finish(Done);
}

} // namespace

void NewCommand::addOptions(CLI::App &command)
{
    const auto key = addTextOption(command, "--key", m_key, "Key of the new catalog")->option_text("KEY");
    addTextOption(command, "--language", m_language, "Its language; en when it is left out")
        ->option_text("LANG")
        ->needs(key);
    addTextOption(command, "--profile", m_profiles, "Keys of its profiles; STANDARD when they are left out")
        ->option_text("A,B")
        ->needs(key);
    const auto code = addTextOption(command, "--code", m_code, "Print the records of this code, to be pasted")
                          ->option_text("CODE")
                          ->excludes(key);
    addTextOption(command, "--class", m_class, "Key of the class of the code")
        ->option_text("KEY")
        ->needs(code);
}

int NewCommand::run()
{
    if (m_key)
        return printCatalog();
    if (!m_code || !m_class) {
        printMessage(
            QStringLiteral("give the --key of a new catalog, or the --code and the --class of a code"));
        return WrongUsage;
    }
    return areGoodKeys({*m_code, *m_class}) ? print(newCode(*m_class, *m_code)) : WrongUsage;
}

int NewCommand::printCatalog() const
{
    const QString language = m_language.value_or(QStringLiteral("en"));
    const QStringList profiles = m_profiles.value_or(QStringLiteral("STANDARD")).split(QLatin1Char(','));
    if (!areGoodKeys(QStringList{*m_key, language} + profiles))
        return WrongUsage;
    if (QStringList(profiles).removeDuplicates() > 0) {
        printMessage(QStringLiteral("the same profile is given twice"));
        return WrongUsage;
    }
    return print(newCatalog(*m_key, language, profiles));
}

} // namespace Orvida::Tools
