// A check says of any file what a load makes of it: of all files that tests and fuzzing have, and of every
// small damage to a small catalog.

#include "checking/LoadAgreement.h"

#include "fuzz/MemoryFile.h"
#include "support/TestSupport.h"

#include <QDirIterator>
#include <QtTest>

using namespace Orvida::Tests;

namespace {

// Loads report orphans on standard output.
QString disagreementOnFile(const QString &path)
{
    const StandardOutputTo quiet("/dev/null");
    return disagreementOn(path);
}

QString disagreementOnBytes(const QByteArray &bytes)
{
    return disagreementOnFile(Orvida::Fuzz::pathOfBytes(
        reinterpret_cast<const std::uint8_t *>(bytes.constData()), std::size_t(bytes.size())));
}

// Every kind of record, and something of each kind that may go wrong.
QByteArray smallCatalog()
{
    return "<?xml version='1.0'?><!DOCTYPE OVCAT [<!ENTITY e 'x'>]>"
           + catalogXml(
               recordsFrom("CATPRO PK=P\nCPX PK=1;Profile_FK=P;IsStart=true\n"
                           "COL Profile_FK=P;Column_ID=K;DataType=TXT;Visible=1\n"
                           "LC PK=L;Profile_FK=P;Class_ID=V\nLIST Class_FK=L\nCLASS PK=C\n"
                           "BASECODE PK=B;Class_FK=C;Code=B\nCHAREXT PK=D;CharExt_REF=D\n"
                           "CHAREXT PK=E;BaseCode_FK=F\nPARAM PK=Q;DataType=DEC\n"
                           "PARAMX PK=1;BaseCode_FK=B;Param_FK=Q;Column_ID=K;ListClass_ID=V\n"
                           "PARAMX PK=2;CharExt_FK=X")
               + "<!-- check: off no-item -->&e;<CLASS><CLASS_PK>&e;<b/><![CDATA[y]]></CLASS_PK></CLASS>");
}

} // namespace

class LoadAgreementTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void agreesOnFiles_data();
    void agreesOnFiles();
    void agreesOnFilesThatAreCut();
    void agreesOnFilesWithOneOtherBit();
};

void LoadAgreementTest::agreesOnFiles_data()
{
    QTest::addColumn<QString>("path");
    const QString root = QFileInfo(QFINDTESTDATA("LoadAgreementTest.cpp")).dir().filePath(text("../.."));
    for (const char *folder : {"fuzz/corpus", "tests/catalogs", "tests/checking", "samples"}) {
        QDirIterator files(QDir(root).filePath(QLatin1String(folder)), QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            files.next();
            QTest::newRow(qPrintable(QLatin1String(folder) + QLatin1Char('/') + files.fileName()))
                << files.filePath();
        }
    }
    QTest::newRow("no file") << text("/nonexistent");
    QTest::newRow("no name") << QString();
    QTest::newRow("a folder") << text("/");
}

void LoadAgreementTest::agreesOnFiles()
{
    QFETCH(QString, path);
    QCOMPARE(disagreementOnFile(path), QString());
    if (path.endsWith(text(".xml"))) // most of these are in the clear
        QCOMPARE(disagreementOnBytes(scrambledCatalog(path)), QString());
}

void LoadAgreementTest::agreesOnFilesThatAreCut()
{
    const QByteArray whole = smallCatalog();
    for (int size = 0; size <= whole.size(); ++size)
        QVERIFY2(
            disagreementOnBytes(whole.left(size)).isEmpty(),
            qPrintable(disagreementOnBytes(whole.left(size)) + QLatin1Char(' ') + QString::number(size)));
}

void LoadAgreementTest::agreesOnFilesWithOneOtherBit()
{
    QByteArray bytes = smallCatalog();
    for (int bit = 0; bit < bytes.size() * 8; ++bit) {
        const char original = bytes.at(bit / 8);
        bytes[bit / 8] = char(original ^ 1 << bit % 8);
        QVERIFY2(disagreementOnBytes(bytes).isEmpty(),
                 qPrintable(disagreementOnBytes(bytes) + QLatin1Char('\n') + QString::fromUtf8(bytes)));
        bytes[bit / 8] = original;
    }
}

QTEST_GUILESS_MAIN(LoadAgreementTest)
#include "LoadAgreementTest.moc"
