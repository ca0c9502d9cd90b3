#include "tools/ShowCommand.h"

#include "tools/CatalogSession.h"
#include "tools/ExitStatus.h"
#include "tools/TreeView.h"

#include <QStringList>
#include <QTextStream>

#include <cstdio>

namespace Orvida::Tools {

namespace {

QString counted(int count, const QString &noun)
{
    return QStringLiteral("%1 %2%3").arg(count).arg(noun, count == 1 ? QString() : QStringLiteral("s"));
}

QString summary(const CatalogSession &session, Catalogs::Catalog &catalog)
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

} // namespace

int show(const ShowOptions &options)
{
    CatalogSession session(options.fileName);
    const Catalogs::CatalogSptr catalog = session.load();
    if (!catalog)
        return NotReadable;

    const OutputStyle style(options.color);
    QTextStream out(stdout);
    out.setCodec("UTF-8");
    out << style.title(summary(session, *catalog)) << '\n';
    TreeView(out, style).print(catalog->getItemById(QString()));
    out.flush();
    if (out.status() == QTextStream::Ok)
        return Done;
    std::fputs("orvida-catalog: error: cannot write to standard output\n", stderr);
    return NotReadable;
}

} // namespace Orvida::Tools
