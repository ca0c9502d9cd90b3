#include "tools/LogOutput.h"

#include "tools/OutputStyle.h"

#include <QLoggingCategory>

#include <cstdio>

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

void print(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    std::fprintf(stderr, "%s: %s: %s\n", levelName(type), context.category,
                 OutputStyle::singleLine(message).toUtf8().constData());
}

} // namespace

LogOutput::LogOutput(bool showsEverything) : m_earlierHandler(qInstallMessageHandler(print))
{
    if (showsEverything)
        QLoggingCategory::setFilterRules(QStringLiteral("Catalog*=true\nDataConverter=true"));
}

LogOutput::~LogOutput()
{
    qInstallMessageHandler(m_earlierHandler);
}

} // namespace Orvida::Tools
