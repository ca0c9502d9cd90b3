// Watches the reader of a catalog file and writes down what it sees, and where. For the checker's own use.
#pragma once

#include "catalogs/reading/CatalogReadFailure.h"
#include "catalogs/reading/TextPool_p.h"
#include "checking/reading/LocatedCatalog_p.h"
#include "checking/reading/LocatedXml_p.h"

#include <QPair>
#include <QStringRef>
#include <QStringView>

#include <functional>
#include <utility>
#include <vector>

namespace Orvida::Checking {

/// The observer of a `RecordReader` that fills a `LocatedCatalog`.
class CatalogLocator
{
public:
    /// Watches a reader that reads from `xml` and reports a refused record in `refusal`. Fills `catalog`,
    /// whose `isReadable` says in which form the file is.
    CatalogLocator(LocatedXml &xml, Catalogs::CatalogReadFailure &refusal, Catalogs::TextPool &pool,
                   LocatedCatalog &catalog);

    /// Is called every thousand records or so.
    void setProgress(std::function<void()> progress) { m_progress = std::move(progress); }

    // What a RecordReader asks of its observer.
    static constexpr bool isStoring = false;
    void seeOutside();
    void beginRecord(Section kind);
    void seeInside(int field);
    bool isEmpty(const Catalogs::CatalogFormat::Field &field) const;
    bool goesOnAfterRefusal();
    void skip(LocatedXml &xml);

    /// To be called when nothing more is read. Gives the first refusal, or no failure.
    Catalogs::CatalogReadFailure finish();

private:
    /// An open element.
    struct Open
    {
        enum Role : quint8 {
            Other,
            Record,     ///< of a record that is read
            Field,      ///< of a field of that record
            LostRecord, ///< of a record that is not read as one
            LostKey,    ///< of a key or reference of such a record
        };

        Role role = Other;
        quint8 token = 0;           ///< of a field or key
        bool hasPiece = false;      ///< of a field or key: whether it has its text
        bool isCutReported = false; ///< of a field: whether more of its text needs no word
        Symbol name = 0;
        Position start;
        Position pieceEnd; ///< of a field: where its text ends
        Symbol cutter = 0; ///< of a field: what its text is followed by
        int lost = -1;     ///< the innermost lost record that it belongs to
        int field = -1;    ///< place in the stack of the innermost field that it belongs to
        int inner = 0;     ///< how many elements without a role are open directly inside, one in the other
    };

    Position here() const { return m_xml.position(); }
    Symbol symbolOf(QStringView shownText);
    void note(Incident::Kind kind, int record, Position at, Symbol name = 0, Symbol detail = 0,
              Symbol cutter = 0);
    Open &open(Open::Role role);
    void foldOpen();
    void close();
    void openOutside();
    void seeAttributes(int record);
    void seeStrayText(int record);
    void seeComment();
    void readDirective(QStringView text);
    void endDirectives();

    void dropIfNeedless(int record);
    int addRecord(Section kind, LocatedRecord::State state, Symbol name, Position start);
    void openInside(int field);
    void seeText(int field);
    void addValue(int field);
    Symbol scrambledValue(const QStringRef &text);
    void seeCutText(Open &field);
    void seeEntity();
    void cutBy(QStringView what);
    void overruleFields();
    void findParent();
    void indexFields(int firstField);
    void finishRecord();

    void startSkipping();
    Section nearRecord();
    void openSkipped();
    void openLostRecord(Section kind, LocatedRecord::State state);
    void openLostKey(QStringView name);
    void addLostKey();
    void finishLostRecord(int index);

    LocatedXml &m_xml;
    Catalogs::CatalogReadFailure &m_refusal;
    Catalogs::TextPool &m_pool;
    LocatedCatalog &m_catalog;
    Catalogs::CatalogReadFailure m_firstRefusal;
    std::function<void()> m_progress;
    int m_addedRecords = 0;
    int m_keylessCount = 0;
    std::vector<Open> m_stack;
    Position m_tokenStart; ///< where the current token begins
    int m_incidentCounts[Incident::KindCount] = {};
    std::size_t m_endedDirectives = 0; ///< how many know up to where they hold

    int m_record = -1;                  ///< the record that is read, or was read last
    std::size_t m_recordDepth = 0;      ///< size of the stack at the record's own tags; 0 outside records
    bool m_isRecordTag = false;         ///< the next token inside is the record's own start tag
    bool m_isStyleTag = false;          ///< the last token was the start tag of CAT_Style
    std::vector<LocatedField> m_fields; ///< of that record
    std::vector<OddScrambledText> m_oddTexts;
    int m_clearField = -1; ///< the first of its fields with a text that is not scrambled

    int m_wrapper = -1; ///< what is lost inside it: the record, or the element that is skipped
    Incident::Kind m_skippedKind = Incident::UnknownRecord; ///< what that one is, when no record is in it
    Symbol m_skippedName = 0;
    Symbol m_unknownName = 0; ///< the last one that was compared with the names of records
    Section m_nearRecord = Section::Unknown;
    Position m_skippedStart;
    std::vector<QPair<int, LocatedField>> m_lostKeys; ///< of lost records that are not finished
};

} // namespace Orvida::Checking
