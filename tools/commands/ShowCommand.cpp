#include "tools/commands/ShowCommand.h"

#include "tools/CodeForm.h"
#include "tools/DisplayOrder.h"
#include "tools/ExitStatus.h"
#include "tools/FieldProperties.h"
#include "tools/LoadReport.h"
#include "tools/Messages.h"
#include "tools/NearNames.h"
#include "tools/Options.h"
#include "tools/TreeView.h"

#include <CLI/CLI.hpp>
#include <QStringList>

namespace Orvida::Tools {

namespace {

using Catalogs::Catalog;
using Catalogs::CatalogInputField;
using Catalogs::CatalogItem;
using Items = QList<QSharedPointer<CatalogItem>>;

QString summary(const CatalogFile &file)
{
    Catalog &catalog = file.catalog();
    QStringList facts;
    if (!catalog.profile().isEmpty())
        facts << QStringLiteral("profile ") + catalog.profile();
    const int items = catalog.getCatalogItems().size() - 1; // without the root
    const int itemsInTree = countItems(catalog.getItemById(QString()));
    facts << counted(items, QStringLiteral("item"));
    if (itemsInTree != items)
        facts.last() += QStringLiteral(" (%1 outside the tree)").arg(items - itemsInTree);
    facts << (file.supports3D() ? QStringLiteral("3D") : QStringLiteral("not 3D"));
    return OutputStyle::singleLine(file.shortName() + QStringLiteral(": ")
                                   + facts.join(QStringLiteral(", ")));
}

Items itemsWithCode(const Items &items, const QString &code, Qt::CaseSensitivity caseSensitivity)
{
    Items found;
    for (const auto &item : items) {
        if (!code.isEmpty() && item->code().compare(code, caseSensitivity) == 0)
            found << item;
    }
    return found;
}

QStringList codesOf(const Items &items)
{
    QStringList codes;
    for (const auto &item : items)
        codes << item->code();
    codes.removeDuplicates();
    return codes;
}

// The items with the code `code`, or with the only one that differs from it in nothing but letter case.
Items itemsMeantBy(const QString &code, const Items &items)
{
    const Items exact = itemsWithCode(items, code, Qt::CaseSensitive);
    if (!exact.isEmpty())
        return exact;
    const Items similar = itemsWithCode(items, code, Qt::CaseInsensitive);
    return codesOf(similar).size() == 1 ? similar : Items();
}

} // namespace

void ShowCommand::addOptions(CLI::App &command)
{
    addFile(command, m_file);
    const auto code = addTextOption(command, "--code", m_code, "Print this code as a form instead");
    addTextOption(command, "--profile", m_profile,
                  "Look at the profile with this key, not at the one that the catalog chooses");
    command
        .add_flag("--why", m_showsSources, "Print beside each property where it comes from, with its line")
        ->needs(code);
    command.add_flag("--fields", m_showsFields, "Print the input fields under each code")->excludes(code);
    command.add_flag("--log", m_file.showsLog,
                     "Print all that the library says of the load on standard error");
    addColorOption(command, m_color);
}

int ShowCommand::run()
{
    CatalogFile file = CatalogFile::load(m_file);
    if (!reportLoad(file))
        return NotReadable;
    if (m_profile) {
        if (!file.profiles().contains(*m_profile))
            return reportUnknown(QStringLiteral("profile %1 in this catalog"), *m_profile, file.profiles());
        file.catalog().setProfile(*m_profile);
    }
    CommandOutput output;
    if (m_code)
        return output.finish(printCode(output, file));
    printTree(output, file);
    return output.finish(Done);
}

void ShowCommand::printTree(CommandOutput &output, CatalogFile &file) const
{
    const OutputStyle style(m_color);
    TreeView::Details details = [](CatalogItem &) { return QStringList(); };
    std::optional<FieldOrigins> origins;
    if (m_showsFields) {
        origins.emplace(file.records());
        details = [&origins](CatalogItem &item) {
            QStringList lines;
            for (const CatalogInputField &field : qAsConst(item.getFields()))
                lines << fieldLine(field, origins->listNameOf(item, field));
            return lines;
        };
    }
    output.stream() << style.title(summary(file)) << '\n';
    TreeView(output.stream(), style).print(file.catalog().getItemById(QString()), details);
}

int ShowCommand::printCode(CommandOutput &output, CatalogFile &file) const
{
    const Items items = displayedItems(file.catalog());
    const Items found = itemsMeantBy(*m_code, items);
    if (found.isEmpty())
        return reportUnknown(QStringLiteral("code %1 in this catalog"), *m_code, codesOf(items));
    const OutputStyle style(m_color);
    const FieldOrigins origins(file.records());
    const FieldSources sources(file, origins);
    CodeForm form(output.stream(), style, origins, m_showsSources ? &sources : nullptr);
    for (const auto &item : found) {
        if (item != found.first())
            output.stream() << '\n';
        form.print(file.catalog(), *item);
    }
    return Done;
}

} // namespace Orvida::Tools
