#include "FindingsDock.h"

#include "checking/CatalogChecker.h"

#include <QHeaderView>
#include <QThread>
#include <QTreeWidget>

#include <memory>

using namespace Orvida::Checking;

namespace {

QString nameOf(CatalogSeverity severity)
{
    switch (severity) {
    case CatalogSeverity::Error: return QObject::tr("error");
    case CatalogSeverity::Warning: return QObject::tr("warning");
    case CatalogSeverity::Note: break;
    }
    return QObject::tr("note");
}

} // namespace

FindingsDock::FindingsDock(QWidget *parent)
    : QDockWidget(tr("Findings"), parent), m_list(new QTreeWidget(this))
{
    setObjectName("findings");
    m_list->setHeaderLabels({tr("Place"), tr("Severity"), tr("What is wrong"), tr("How to fix it")});
    m_list->setRootIsDecorated(false);
    m_list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    setWidget(m_list);
}

FindingsDock::~FindingsDock()
{
    for (QThread *thread : findChildren<QThread *>())
        thread->wait();
}

void FindingsDock::check(const QString &fileName)
{
    // What a check of an earlier file finds is not asked for any more: its thread ends by itself.
    auto checker = std::make_shared<CatalogChecker>();
    auto *thread = QThread::create([checker, fileName] { checker->check(fileName); });
    thread->setParent(this);
    connect(thread, &QThread::finished, this, [this, thread, checker] {
        if (thread == m_thread) {
            m_thread = nullptr;
            list(checker->findings());
            Q_EMIT checked();
        }
        thread->deleteLater();
    });
    m_thread = thread;
    thread->start();
}

void FindingsDock::list(const QVector<CatalogFinding> &findings)
{
    m_list->clear();
    for (const CatalogFinding &finding : findings)
        new QTreeWidgetItem(m_list, {QString("%1:%2").arg(finding.line).arg(finding.column),
                                     nameOf(finding.severity), finding.message, finding.hint});
    setWindowTitle(tr("Findings: %n", nullptr, findings.size()));
}
