#include "shared/CLogger.h"

#include <QByteArray>
#include <QHash>
#include <QLoggingCategory>
#include <QMutex>
#include <QMutexLocker>

#include <memory>
#include <vector>

namespace Orvida::Logging {

namespace {

// A Qt logging category keeps a pointer to its name, and Qt keeps a pointer to the category.
struct NamedCategory
{
    explicit NamedCategory(const QString &categoryName)
        : name(categoryName.toUtf8()), category(name.constData(), QtWarningMsg)
    {
    }

    const QByteArray name;
    QLoggingCategory category; // not const: Qt switches its levels when the filter rules change
};

// The categories that were ever logged to, by name.
class CategoryRegistry
{
public:
    const QLoggingCategory &category(const QString &name)
    {
        const QMutexLocker lock(&m_mutex);
        if (const QLoggingCategory *known = m_byName.value(name))
            return *known;
        m_categories.push_back(std::make_unique<NamedCategory>(name));
        // The characters are copied: they may be a literal of a library that is unloaded one day.
        return *m_byName.insert(QString(name.constData(), name.size()), &m_categories.back()->category)
                    .value();
    }

private:
    QMutex m_mutex;
    std::vector<std::unique_ptr<NamedCategory>> m_categories;
    QHash<QString, const QLoggingCategory *> m_byName;
};

// Never destroyed, because static objects of the host may log while the process ends.
const QLoggingCategory &categoryOf(const QString &name)
{
    static CategoryRegistry &registry = *new CategoryRegistry;
    return registry.category(name);
}

QtMsgType messageTypeOf(CLogger::LogLevel level)
{
    switch (level) {
    case CLogger::Error: return QtCriticalMsg;
    case CLogger::Warning: return QtWarningMsg;
    case CLogger::Info: return QtInfoMsg;
    case CLogger::Debug: break;
    }
    return QtDebugMsg;
}

} // namespace

void CLogger::logMessage(LogLevel level, const QString &category, const QString &message)
{
    const QLoggingCategory &qtCategory = categoryOf(category);
    const QtMsgType type = messageTypeOf(level);
    if (!qtCategory.isEnabled(type))
        return;
    // Passed on as it is: a debug stream would quote it or trim its last space.
    qt_message_output(type, QMessageLogContext(nullptr, 0, nullptr, qtCategory.categoryName()), message);
}

} // namespace Orvida::Logging
