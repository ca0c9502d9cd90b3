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
               scrambledForm(
                   "<CATPRO><PRO_PK>P</PRO_PK></CATPRO>"
                   "<CPX><CPX_PK>1</CPX_PK><CPX_Profile_FK>P</CPX_Profile_FK><CPX_IsStart>true</"
                   "CPX_IsStart></CPX>"
                   "<COL><COL_Profile_FK>P</COL_Profile_FK><COL_Column_ID>K</COL_Column_ID>"
                   "<COL_DataType>TXT</COL_DataType><COL_Visible>1</COL_Visible></COL>"
                   "<LC><LC_PK>L</LC_PK><LC_Profile_FK>P</LC_Profile_FK><LC_Class_ID>V</LC_Class_ID></LC>"
                   "<LIST><LIST_Class_FK>L</LIST_Class_FK></LIST><CLASS><CLASS_PK>C</CLASS_PK></CLASS>"
                   "<BASECODE><BC_PK>B</BC_PK><BC_Class_FK>C</BC_Class_FK><BC_Code>B</BC_Code></BASECODE>"
                   "<CHAREXT><CE_PK>D</CE_PK><CE_CharExt_REF>D</CE_CharExt_REF></CHAREXT>"
                   "<CHAREXT><CE_PK>E</CE_PK><CE_BaseCode_FK>F</CE_BaseCode_FK></CHAREXT>"
                   "<PARAM><PARAM_PK>Q</PARAM_PK><PARAM_DataType>DEC</PARAM_DataType></PARAM>"
                   "<PARAMX><PX_PK>1</PX_PK><PX_BaseCode_FK>B</PX_BaseCode_FK><PX_Param_FK>Q</PX_Param_FK>"
                   "<PX_Column_ID>K</PX_Column_ID><PX_ListClass_ID>V</PX_ListClass_ID></PARAMX>"
                   "<PARAMX><PX_PK>2</PX_PK><PX_CharExt_FK>X</PX_CharExt_FK></PARAMX>")
               + "<!-- check: off no-item -->&e;<CLASS><CLASS_PK>&e;<b/><![CDATA[y]]></CLASS_PK></CLASS>");
}

// The scanner reads it.
QByteArray plainCatalog()
{
    return catalogXml(scrambledForm(
        "<CATPRO><PRO_PK>P</PRO_PK></CATPRO>\r\n<COL><COL_Profile_FK>P</COL_Profile_FK>"
        "<COL_Column_ID>K</COL_Column_ID><COL_DataType>TXT</COL_DataType></COL><!-- check: off no-item -->"
        "<CLASS a='b'><CLASS_PK>C&amp;</CLASS_PK><CLASS_Remarks>\xC3\xA9</CLASS_Remarks></CLASS>x"
        "<BASECODE><BC_PK>B</BC_PK><BC_Class_FK>C</BC_Class_FK></BASECODE>"
        "<PARAMX><PX_PK>1</PX_PK><PX_CharExt_FK>X</PX_CharExt_FK><PX_Column_ID/></PARAMX>"));
}

void addCatalogs()
{
    QTest::addColumn<QByteArray>("whole");
    QTest::newRow("with everything") << smallCatalog();
    QTest::newRow("plain") << plainCatalog();
}

} // namespace

class LoadAgreementTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void agreesOnFiles_data();
    void agreesOnFiles();
    void agreesOnFilesThatAreCut_data() { addCatalogs(); }
    void agreesOnFilesThatAreCut();
    void agreesOnFilesWithOneOtherBit_data() { addCatalogs(); }
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
    QFETCH(QByteArray, whole);
    for (int size = 0; size <= whole.size(); ++size)
        QVERIFY2(
            disagreementOnBytes(whole.left(size)).isEmpty(),
            qPrintable(disagreementOnBytes(whole.left(size)) + QLatin1Char(' ') + QString::number(size)));
}

void LoadAgreementTest::agreesOnFilesWithOneOtherBit()
{
    QFETCH(QByteArray, whole);
    for (int bit = 0; bit < whole.size() * 8; ++bit) {
        const char original = whole.at(bit / 8);
        whole[bit / 8] = char(original ^ 1 << bit % 8);
        QVERIFY2(disagreementOnBytes(whole).isEmpty(),
                 qPrintable(disagreementOnBytes(whole) + QLatin1Char('\n') + QString::fromUtf8(whole)));
        whole[bit / 8] = original;
    }
}

QTEST_GUILESS_MAIN(LoadAgreementTest)
#include "LoadAgreementTest.moc"
