#include "tools/ShowCommand.h"

#include "tools/CatalogSession.h"
#include "tools/CodeForm.h"
#include "tools/CommandOutput.h"
#include "tools/DisplayOrder.h"
#include "tools/ExitStatus.h"
#include "tools/FieldText.h"
#include "tools/LogOutput.h"
#include "tools/NearNames.h"
#include "tools/TreeView.h"

#include <QStringList>

#include <cstdio>

namespace Orvida::Tools {

namespace {

using Catalogs::Catalog;
using Catalogs::CatalogInputField;
using Catalogs::CatalogItem;

QString counted(int count, const QString &noun)
{
    return QStringLiteral("%1 %2%3").arg(count).arg(noun, count == 1 ? QString() : QStringLiteral("s"));
}

QString summary(const CatalogSession &session, Catalog &catalog)
{
    QStringList facts;
    if (!catalog.profile().isEmpty())
        facts << QStringLiteral("profile ") + catalog.profile();
    const int items = catalog.getCatalogItems().size() - 1; // without the root
    const int itemsInTree = TreeView::countItems(catalog.getItemById(QString()));
    facts << counted(items, QStringLiteral("item"));
    if (itemsInTree != items)
        facts.last() += QStringLiteral(" (%1 outside the tree)").arg(items - itemsInTree);
    facts << (session.supports3D() ? QStringLiteral("3D") : QStringLiteral("not 3D"));
    return OutputStyle::singleLine(session.displayName() + QStringLiteral(": ")
                                   + facts.join(QStringLiteral(", ")));
}

// A file with another root element loads well, as an empty catalog; its author should know.
void warnOfEmptiness(Catalog &catalog)
{
    if (catalog.getCatalogItems().size() == 1)
        std::fputs("orvida-catalog: warning: no codes in this catalog; is its root element OVCAT?\n", stderr);
}

// Says that there is no such name, and which ones come near it.
int reportUnknown(const QString &kind, const QString &name, const QStringList &names)
{
    QStringList near = nearNames(name, names);
    QString text = QStringLiteral("orvida-catalog: no %1 %2 in this catalog").arg(kind, name);
    if (!near.isEmpty())
        text += QStringLiteral("; did you mean %1?").arg(near.join(QStringLiteral(", ")));
    std::fputs((OutputStyle::singleLine(text) + QLatin1Char('\n')).toUtf8().constData(), stderr);
    return AnswerIsNo;
}

void printTree(CommandOutput &output, const OutputStyle &style, CatalogSession &session, Catalog &catalog,
               bool showsFields)
{
    TreeView::Details details = [](CatalogItem &) { return QStringList(); };
    if (showsFields) {
        const ListNames listNames(session.records());
        details = [listNames](CatalogItem &item) {
            QStringList lines;
            for (const CatalogInputField &field : displayedFields(item))
                lines << fieldLine(field, listNames.nameOf(item, field));
            return lines;
        };
    }
    output.stream() << style.title(summary(session, catalog)) << '\n';
    TreeView(output.stream(), style).print(catalog.getItemById(QString()), details);
}

int printCode(CommandOutput &output, const OutputStyle &style, CatalogSession &session, Catalog &catalog,
              const QString &code)
{
    QStringList codes;
    QList<QSharedPointer<CatalogItem>> found;
    for (const auto &item : displayedItems(catalog)) {
        codes << item->code();
        if (item->code() == code && !code.isEmpty())
            found << item;
    }
    if (found.isEmpty())
        return reportUnknown(QStringLiteral("code"), code, codes);
    const ListNames listNames(session.records());
    CodeForm form(output.stream(), style, listNames);
    for (const auto &item : found) {
        if (item != found.first())
            output.stream() << '\n';
        form.print(catalog, *item);
    }
    return Done;
}

} // namespace

int show(const ShowOptions &options)
{
    const LogOutput log(options.showsLog);
    CatalogSession session(options.fileName);
    const Catalogs::CatalogSptr catalog = session.load();
    if (!catalog)
        return NotReadable;
    warnOfEmptiness(*catalog);
    if (options.hasProfile) {
        if (!session.profiles().contains(options.profile))
            return reportUnknown(QStringLiteral("profile"), options.profile, session.profiles());
        catalog->setProfile(options.profile);
    }

    const OutputStyle style(options.color);
    CommandOutput output;
    if (options.hasCode)
        return output.finish(printCode(output, style, session, *catalog, options.code));
    printTree(output, style, session, *catalog, options.showsFields);
    return output.finish(Done);
}

} // namespace Orvida::Tools
