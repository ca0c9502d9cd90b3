// Texts go to translators and come back: whatever the texts, the form of the file and the kind of table.

#include "support/TestSupport.h"
#include "tools/InputFile.h"
#include "tools/translation/CsvText.h"
#include "tools/translation/TranslatableTexts.h"

#include <QDir>
#include <QtTest>

using namespace Orvida::Tools;
using Orvida::Tests::text;

namespace {

QHash<TextName, QString> textsByName(const TranslatableTexts &texts)
{
    QHash<TextName, QString> byName;
    for (const TranslatableText &candidate : texts.texts())
        byName.insert(candidate.name, candidate.text);
    return byName;
}

QStringList oddCells()
{
    return {QString(),          text("plain"),    text("=1+1"),     text("+1"),
            text("-1"),         text("@CLK"),     text("'quoted"),  text("'=1"),
            text("''"),         text("'"),        text("a;b,c\td"), text("\"in marks\""),
            text("two\nlines"), text(" spaces "), text("é😀\u202E"), text("\tindented")};
}

} // namespace

class TranslationTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tablesReadWhatTheyWrite_data();
    void tablesReadWhatTheyWrite();
    void textsGoThereAndBack_data();
    void textsGoThereAndBack();
};

void TranslationTest::tablesReadWhatTheyWrite_data()
{
    QTest::addColumn<int>("dialect");

    QTest::newRow("plain") << int(CsvText::Dialect::Plain);
    QTest::newRow("Excel") << int(CsvText::Dialect::Excel);
}

void TranslationTest::tablesReadWhatTheyWrite()
{
    QFETCH(int, dialect);
    QVector<QStringList> rows{{text("a"), text("b")}};
    for (const QString &cell : oddCells())
        rows << QStringList{text("x"), cell} << QStringList{cell, text("x")};
    const QByteArray written = CsvText::written(rows, CsvText::Dialect(dialect));
    for (const char *formula : {"=", "+", "-", "@"}) {
        for (const char *before : {",", ";", "\n"})
            QVERIFY(!written.contains(QByteArray(before) + formula));
    }
    const CsvText read(written);
    QCOMPARE(read.errorText(), QString());
    QVector<QStringList> cells;
    for (const CsvText::Row &row : read.rows())
        cells << row.cells;
    QCOMPARE(cells, rows);
}

void TranslationTest::textsGoThereAndBack_data()
{
    QTest::addColumn<QString>("path");

    for (const QString &folder : {QFINDTESTDATA("../../fuzz/corpus/load"), QFINDTESTDATA("../catalogs"),
                                  QFINDTESTDATA("transcripts/files"), text(ORVIDA_SAMPLES)}) {
        for (const QFileInfo &file : QDir(folder).entryInfoList({text("*.xml")}, QDir::Files))
            QTest::newRow(qPrintable(file.fileName())) << file.filePath();
    }
}

// To odd texts and back to the same bytes. What cannot be changed is noted, and stays.
void TranslationTest::textsGoThereAndBack()
{
    QFETCH(QString, path);
    InputFile input(path);
    QVERIFY(input.read());
    const TranslatableTexts original(input.bytes(), input.form(), TranslatableTexts::All);
    if (original.failure())
        return;
    QHash<TextName, QString> translations;
    const QStringList cells = oddCells();
    for (const TranslatableText &candidate : original.texts())
        translations.insert(candidate.name,
                            candidate.text + cells.at(1 + translations.size() % (cells.size() - 1)));
    QVector<TranslatableTexts::Note> left;
    const QByteArray translated = original.translated(translations, left);
    for (const TranslatableText &candidate : original.texts()) {
        if (candidate.place.obstacle != FieldText::None)
            translations[candidate.name] = candidate.text;
    }
    if (!left.isEmpty())
        QCOMPARE(translated.count('\n'), input.bytes().count('\n'));
    else {
        const TranslatableTexts changed(translated, input.form(), TranslatableTexts::All);
        // Names follow texts such as LIST_Item; their order does not.
        QCOMPARE(changed.texts().size(), original.texts().size());
        QHash<TextName, QString> back;
        for (int i = 0; i < changed.texts().size(); ++i) {
            QCOMPARE(changed.texts().at(i).text, translations.value(original.texts().at(i).name));
            back.insert(changed.texts().at(i).name, original.texts().at(i).text);
        }
        const QByteArray again = changed.translated(back, left);
        QCOMPARE(textsByName(TranslatableTexts(again, input.form(), TranslatableTexts::All)),
                 textsByName(original));
        if (path.startsWith(text(ORVIDA_SAMPLES)))
            QCOMPARE(again, input.bytes());
    }
    left.clear();
    QCOMPARE(original.translated(textsByName(original), left), input.bytes());
    QVERIFY(left.isEmpty());
}

QTEST_GUILESS_MAIN(TranslationTest)

#include "TranslationTest.moc"
