// What the checker finds in a catalog file.
#pragma once

#include "checking/CatalogFinding.h"

#include <QDockWidget>
#include <QVector>

class QThread;
class QTreeWidget;

/// Checks files on a thread of its own and lists the findings, so that the window stays usable meanwhile.
class FindingsDock : public QDockWidget
{
    Q_OBJECT

public:
    explicit FindingsDock(QWidget *parent = nullptr);
    /// Waits for the checks that are running.
    ~FindingsDock() override;

    /// Checks the file `fileName`; its findings replace those of the last file.
    void check(const QString &fileName);

Q_SIGNALS:
    /// The findings of the last file are listed.
    void checked();

private:
    void list(const QVector<Orvida::Checking::CatalogFinding> &findings);

    QTreeWidget *m_list;
    QThread *m_thread = nullptr; // of the last check, while it runs
};
