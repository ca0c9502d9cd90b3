#include "tools/LibraryOutput.h"

#include "tools/OutputStyle.h"

#include <QLoggingCategory>

#include <cstdio>
#include <cstring>
#include <new>

#include <fcntl.h>
#include <unistd.h>

namespace Orvida::Tools {

namespace {

const char *levelName(QtMsgType type)
{
    switch (type) {
    case QtDebugMsg: return "debug";
    case QtInfoMsg: return "info";
    case QtWarningMsg: return "warning";
    case QtCriticalMsg: return "error";
    case QtFatalMsg: break;
    }
    return "fatal";
}

void print(const QString &line)
{
    std::fputs((OutputStyle::singleLine(line) + QLatin1Char('\n')).toUtf8().constData(), stderr);
}

void showMessage(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    print(QStringLiteral("%1: %2: %3")
              .arg(QLatin1String(levelName(type)), QString::fromUtf8(context.category), message));
}

bool isOfLibrary(const QMessageLogContext &context)
{
    const QLatin1String category(context.category);
    return category == QLatin1String("CatalogLoader") || category == QLatin1String("CatalogListItem")
           || category == QLatin1String("DataConverter");
}

// An error of the library is only noted, in the diverted standard output, where hasHeldBack() finds it.
void showProblem(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (type == QtCriticalMsg && isOfLibrary(context))
        std::fputs("error\n", stdout);
    else
        showMessage(type, context, message);
}

void showNothing(QtMsgType, const QMessageLogContext &, const QString &) {}

const QtMessageHandler handlers[] = {showNothing, showProblem, showMessage};

} // namespace

LibraryOutput::LibraryOutput(Show show)
    : m_show(show), m_earlierHandler(qInstallMessageHandler(handlers[show]))
{
    if (m_show == Everything)
        QLoggingCategory::setFilterRules(QStringLiteral("Catalog*=true\nDataConverter=true"));
    std::fflush(stdout);
    m_standardOutput = dup(STDOUT_FILENO);
    const int diverted = open(m_diverted.path().toLatin1().constData(), O_WRONLY);
    // Without memory for it, it is written to standard error at once.
    if (m_standardOutput >= 0)
        dup2(diverted >= 0 ? diverted : STDERR_FILENO, STDOUT_FILENO);
    if (diverted >= 0)
        close(diverted);
}

LibraryOutput::~LibraryOutput()
{
    std::fflush(stdout);
    if (m_standardOutput >= 0) {
        dup2(m_standardOutput, STDOUT_FILENO);
        close(m_standardOutput);
    }
    if (m_show == Everything) {
        QLoggingCategory::setFilterRules(QString());
        showDiverted();
    }
    qInstallMessageHandler(m_earlierHandler);
}

bool LibraryOutput::hasHeldBack() const
{
    std::fflush(stdout);
    return m_show == Everything || m_diverted.size() > 0;
}

void LibraryOutput::showDiverted() const
{
    try {
        QByteArray text = m_diverted.bytes();
        if (text.endsWith('\n'))
            text.chop(1);
        if (text.isEmpty())
            return;
        for (const QByteArray &line : text.split('\n'))
            print(QString::fromUtf8(line));
    } catch (const std::bad_alloc &) {
        std::fputs("orvida-catalog: error: not enough memory to show all messages\n", stderr);
    }
}

} // namespace Orvida::Tools
