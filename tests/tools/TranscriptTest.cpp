// Transcripts of orvida-catalog: commands and their complete output.
//
// A transcript is a page of text that contains, indented by four spaces, shell commands ("$ ...", continued
// by "> ...") and below each its output: standard output, standard error with "! " before each line, and in
// brackets an exit status other than 0. ORVIDA_UPDATE=1 rewrites the pages; read the diff before you commit
// it.

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

namespace {

const QString margin = QStringLiteral("    ");

QString linesOf(const QByteArray &output, const QString &lead)
{
    QString result;
    QStringList lines = QString::fromUtf8(output).split(QLatin1Char('\n'));
    const QString rest = lines.takeLast();
    if (!rest.isEmpty())
        lines << rest + QStringLiteral("(no line break)");
    for (const QString &line : qAsConst(lines)) {
        QString shown = lead + line;
        while (shown.endsWith(QLatin1Char(' ')) && line.isEmpty())
            shown.chop(1);
        result += shown + QLatin1Char('\n');
    }
    return result;
}

// The output of a command in `folder`, as a transcript shows it.
QString outcomeOf(const QString &call, const QString &folder)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    const QString tool = QFileInfo(QStringLiteral(ORVIDA_CATALOG_TOOL)).absolutePath();
    environment.insert(QStringLiteral("PATH"),
                       tool + QLatin1Char(':') + environment.value(QStringLiteral("PATH")));
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    environment.remove(QStringLiteral("NO_COLOR"));
    QProcess shell;
    shell.setProcessEnvironment(environment);
    shell.setWorkingDirectory(folder);
    shell.setStandardInputFile(QProcess::nullDevice());
    shell.start(QStringLiteral("sh"), {QStringLiteral("-c"), call});
    if (!shell.waitForFinished(60000) || shell.exitStatus() != QProcess::NormalExit)
        return margin + QStringLiteral("(crashed, or did not end)\n");
    const QString status =
        shell.exitCode() == 0 ? QString() : QStringLiteral("    [%1]\n").arg(shell.exitCode());
    return linesOf(shell.readAllStandardOutput(), margin)
           + linesOf(shell.readAllStandardError(), margin + QStringLiteral("! ")) + status;
}

bool isCall(const QString &line)
{
    return line.startsWith(margin + QStringLiteral("$ "));
}

bool isContinuation(const QString &line)
{
    return line.startsWith(margin + QStringLiteral("> "));
}

// The page with the present output of its commands.
QString replayed(const QString &page, const QString &folder)
{
    QStringList lines = page.split(QLatin1Char('\n'));
    lines.removeLast();
    QString result;
    while (!lines.isEmpty()) {
        QString line = lines.takeFirst();
        result += line + QLatin1Char('\n');
        if (!isCall(line))
            continue;
        QString call = line.mid(6);
        while (!lines.isEmpty() && isContinuation(lines.first())) {
            line = lines.takeFirst();
            result += line + QLatin1Char('\n');
            call += QLatin1Char('\n') + line.mid(6);
        }
        result += outcomeOf(call, folder);
        bool wasBlank = false;
        while (!lines.isEmpty() && !isCall(lines.first())
               && (lines.first().isEmpty() || lines.first().startsWith(margin)))
            wasBlank = lines.takeFirst().isEmpty();
        if (wasBlank)
            result += QLatin1Char('\n');
    }
    return result;
}

QString contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

// Some lines of both pages, from the first difference on.
QString difference(const QString &expected, const QString &actual)
{
    const QStringList expectedLines = expected.split(QLatin1Char('\n'));
    const QStringList actualLines = actual.split(QLatin1Char('\n'));
    int line = 0;
    while (expectedLines.value(line) == actualLines.value(line))
        ++line;
    const auto excerpt = [line](const QStringList &lines, const QString &lead) {
        return lead + lines.mid(line, 8).join(QLatin1Char('\n') + lead) + QLatin1Char('\n');
    };
    return QStringLiteral("line %1:\n").arg(line + 1) + excerpt(expectedLines, QStringLiteral("-"))
           + excerpt(actualLines, QStringLiteral("+"));
}

} // namespace

class TranscriptTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isWhatTheToolPrints_data();
    void isWhatTheToolPrints();
    void reportsALackOfMemory();
};

void TranscriptTest::isWhatTheToolPrints_data()
{
    QTest::addColumn<QString>("path");

    const QDir folder(QFINDTESTDATA("transcripts"));
    const auto pages = folder.entryInfoList({QStringLiteral("*.md")}, QDir::Files, QDir::Name);
    QVERIFY(!pages.isEmpty());
    for (const QFileInfo &page : pages)
        QTest::newRow(qPrintable(page.baseName())) << page.filePath();
}

void TranscriptTest::isWhatTheToolPrints()
{
    QFETCH(QString, path);
    QTemporaryDir folder;
    for (const QString &source : {QFINDTESTDATA("transcripts/files"), QStringLiteral(ORVIDA_SAMPLES)}) {
        for (const QFileInfo &file : QDir(source).entryInfoList({QStringLiteral("*.xml")}, QDir::Files))
            QVERIFY(QFile::copy(file.filePath(), folder.filePath(file.fileName())));
    }
    QVERIFY(QFile::copy(QFINDTESTDATA("../../docs/format.md"), folder.filePath(QStringLiteral("format.md"))));
    const QString expected = contentOf(path);
    const QString actual = replayed(expected, folder.path());
    if (expected == actual)
        return;
    if (qEnvironmentVariableIsSet("ORVIDA_UPDATE")) {
        QFile page(path);
        QVERIFY(page.open(QIODevice::WriteOnly) && page.write(actual.toUtf8()) > 0);
        return;
    }
    QFAIL(qPrintable(difference(expected, actual)));
}

// Not a transcript: a sanitizer needs more address space than any limit would leave.
void TranscriptTest::reportsALackOfMemory()
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    QSKIP("a sanitizer is at work");
#endif
    const QString call =
        QStringLiteral("{ echo '<OVCAT><CLASS><CLASS_PK>'; head -c 40M /dev/zero | tr '\\0' x\n"
                       "  echo '</CLASS_PK></CLASS></OVCAT>'; } > large.xml\n"
                       "ulimit -v 200000; orvida-catalog show large.xml");
    QCOMPARE(outcomeOf(call, QTemporaryDir().path()),
             QStringLiteral("    ! orvida-catalog: error: not enough memory for this catalog\n    [2]\n"));
}

QTEST_GUILESS_MAIN(TranscriptTest)

#include "TranscriptTest.moc"
