#include "hostile/HostileFiles.h"

#include "support/TestSupport.h"

#include <QHash>

#include <numeric>

namespace Orvida::Tests {

namespace {

using Numbers = QVector<int>;

QByteArray element(const char *name, const QByteArray &text)
{
    return QByteArray("<") + name + '>' + text + "</" + name + '>';
}

QByteArray column(int profile)
{
    return "<COL><COL_Profile_FK>P" + QByteArray::number(profile)
           + "</COL_Profile_FK><COL_Column_ID>AC</COL_Column_ID><COL_DataType>TXT</COL_DataType></COL>\n";
}

// A field of the item C, in the column that `column` defines; the parameter may be missing.
QByteArray extension(int number)
{
    const QByteArray key = QByteArray::number(number);
    return "<PARAMX>" + element("PX_PK", key) + "<PX_BaseCode_FK>C</PX_BaseCode_FK>"
           + element("PX_Param_FK", key) + "<PX_Column_ID>+</PX_Column_ID></PARAMX>\n";
}

// Records `record(0)`, `record(1)` and so on.
template <typename Record>
QByteArray catalogOf(int count, Record record, const QByteArray &before = "")
{
    QByteArray records = before;
    for (int number = 0; number < count; ++number)
        records += record(number);
    return catalogXml(records);
}

QByteArray item(int number, int parent, int sortOrder = 0)
{
    return "<CHAREXT>" + element("CE_PK", QByteArray::number(number))
           + element("CE_CharExt_REF", QByteArray::number(parent))
           + element("CE_SortOrder", QByteArray::number(sortOrder)) + "</CHAREXT>\n";
}

QByteArray nested(const QByteArray &outside, const char *name, int count)
{
    return element("OVCAT", outside + QByteArray('<' + QByteArray(name) + '>').repeated(count)
                                + QByteArray("</" + QByteArray(name) + '>').repeated(count));
}

// The places of a quicksort that takes the median of three, followed with the sort orders that make each of
// its pivots the smallest of its range but one.
Numbers smallestPivots(int count)
{
    Numbers places(count);
    std::iota(places.begin(), places.end(), 0);
    Numbers sortOrders(count);
    int next = 0;
    int start = 0;
    for (; count - start > 3; start += 2) {
        int &middle = places[start + (count - start) / 2];
        sortOrders[places[start]] = next++;
        sortOrders[middle] = next++;
        std::swap(middle, places[count - 1]);
        std::swap(places[start + 1], places[count - 1]);
    }
    for (; start < count; ++start)
        sortOrders[places[start]] = next++;
    return sortOrders;
}

// The same with the greatest but one.
Numbers greatestPivots(int count)
{
    Numbers places(count);
    std::iota(places.begin(), places.end(), 0);
    Numbers sortOrders(count);
    int end = count;
    for (; end > 5; end -= 2) {
        int &middle = places[end / 2];
        sortOrders[places[end - 1]] = end;
        sortOrders[middle] = end - 1;
        middle = places[end - 2];
    }
    while (--end >= 0)
        sortOrders[places[end]] = end;
    return sortOrders;
}

// Gives the sort orders to keys 0, 1 and so on in the order in which a hash of them is walked over, which is
// the same in the process that loads them: both run with the seed 0.
Numbers inHashOrder(const Numbers &sortOrders, const QStringList &earlierKeys)
{
    QHash<QString, int> hash;
    for (const QString &key : earlierKeys)
        hash.insert(key, -1);
    for (int number = 0; number < sortOrders.size(); ++number)
        hash.insert(QString::number(number), number);
    Numbers result(sortOrders.size());
    int place = 0;
    for (const int number : qAsConst(hash)) {
        if (number >= 0)
            result[number] = sortOrders.at(place++);
    }
    return result;
}

template <Numbers (*pivots)(int)>
QByteArray worstChildren(int count)
{
    const Numbers sortOrders = inHashOrder(pivots(count), {QString(), QStringLiteral("-1")});
    return catalogOf(
        count, [&](int number) { return item(number, -1, sortOrders.at(number)); },
        "<CLASS><CLASS_PK>-1</CLASS_PK></CLASS>\n");
}

QByteArray worstFields(int count)
{
    const Numbers sortOrders = smallestPivots(count);
    return catalogOf(
        count,
        [&](int number) {
            return "<PARAM>" + element("PARAM_PK", QByteArray::number(number))
                   + element("PARAM_SortOrder", QByteArray::number(sortOrders.at(number))) + "</PARAM>\n"
                   + extension(number);
        },
        "<CLASS><CLASS_PK>C</CLASS_PK></CLASS>\n" + column(0));
}

QByteArray listItem(int number, int sortOrder)
{
    return "<LIST><LIST_Class_FK>L</LIST_Class_FK>" + element("LIST_Item", QByteArray::number(number))
           + element("LIST_SortOrder", QByteArray::number(sortOrder)) + "</LIST>\n";
}

QByteArray listClass(int number)
{
    return "<LC><LC_PK>L</LC_PK><LC_Profile_FK>P0</LC_Profile_FK>"
           + scrambled("LC_Class_ID", QString::number(number)) + "</LC>\n";
}

QByteArray worstListItems(int count)
{
    const Numbers sortOrders = smallestPivots(count);
    return catalogOf(
        count, [&](int number) { return listItem(number, sortOrders.at(number)); }, listClass(0));
}

QByteArray entities(int levels, const QByteArray &references)
{
    QByteArray declarations = "<!ENTITY e0 '" + QByteArray(400, 'x') + "'>";
    for (int level = 1; level < levels; ++level)
        declarations += "<!ENTITY e" + QByteArray::number(level) + " '"
                        + QByteArray("&e" + QByteArray::number(level - 1) + ';').repeated(10) + "'>";
    return "<!DOCTYPE OVCAT [" + declarations + "]><OVCAT><CLASS><CLASS_PK>C</CLASS_PK><CLASS_Remarks>"
           + references + "</CLASS_Remarks></CLASS></OVCAT>";
}

} // namespace

QByteArray smallCatalog()
{
    return catalogXml(recordsFrom(R"(
        CATPRO PK=P0
        CPX PK=1;Profile_FK=P0;IsStart=true
        COL Profile_FK=P0;Column_ID=K;DataType=TXT
        LC PK=L;Profile_FK=P0;Class_ID=V
        LIST Class_FK=L;Item=i;Caption=c
        CLASS PK=C;Item=Class
        BASECODE PK=B;Class_FK=C;Code=BA
        CHAREXT PK=E;BaseCode_FK=B;SortOrder=-1
        PARAM PK=Q;DataType=DEC;Caption=w
        PARAMX PK=1;BaseCode_FK=B;Param_FK=Q;Column_ID=K;ListClass_ID=V;RangeFrom=1;RangeTo=2)"));
}

const QVector<HostileFile> &hostileFiles()
{
    static const QVector<HostileFile> files = {
        {"elements nested in an unknown one", 10000000, 50000, [](int n) { return nested("", "a", n); }},
        {"elements nested in a field", 10000000, 50000,
         [](int n) {
             return element("OVCAT", "<CLASS><CLASS_PK>C</CLASS_PK>" + nested("", "a", n) + "</CLASS>");
         },
         true, 0, 2},
        {"roots in roots", 10000000, 50000, [](int n) { return nested("", "OVCAT", n); }},
        {"siblings", 1000000, 10000,
         [](int n) { return catalogOf(n, [](int i) { return item(i, 0, i * 7919 % 10007); }); }, true, 1},
        {"chain of extensions", 1000000, 20000,
         [](int n) { return catalogOf(n, [](int i) { return item(i, i - 1); }); }, true, 1},
        {"one loop of parents", 1000000, 20000,
         [](int n) { return catalogOf(n, [n](int i) { return item(i, (i + 1) % n); }); }, true, 1},
        {"loops of one item", 1000000, 10000,
         [](int n) { return catalogOf(n, [](int i) { return item(i, i); }); }, true, 1},
        {"orphans", 1000000, 10000, [](int n) { return catalogOf(n, [](int i) { return item(i, -1); }); },
         true, 1},
        {"children, pivots among the smallest", 1000000, 4000, worstChildren<smallestPivots>, true, 1, 2},
        {"children, pivots among the greatest", 1000000, 4000, worstChildren<greatestPivots>, true, 1, 2},
        {"list items, pivots among the smallest", 1000000, 4000, worstListItems},
        {"fields, pivots among the smallest", 1000000, 4000, worstFields, true, 0, 2},
        {"fields of one item", 100000, 1000,
         [](int n) { return catalogOf(n, extension, "<CLASS><CLASS_PK>C</CLASS_PK></CLASS>" + column(0)); },
         true, 0, 2},
        {"profiles", 1000000, 2000,
         [](int n) {
             return catalogOf(
                 n,
                 [](int i) {
                     return "<CATPRO>" + element("PRO_PK", 'P' + QByteArray::number(i)) + "</CATPRO>"
                            + column(i);
                 },
                 "<CLASS><CLASS_PK>C</CLASS_PK></CLASS>" + extension(0));
         },
         true, 0, 2, true},
        {"fields of one item, times profiles", 1000, 50,
         [](int n) {
             return catalogOf(
                 n, [](int i) { return column(i) + extension(i); }, "<CLASS><CLASS_PK>C</CLASS_PK></CLASS>");
         },
         true, 0, 2, true},
        {"list classes with one key, times items", 1000, 50,
         [](int n) { return catalogOf(n, [](int i) { return listClass(i) + listItem(i, 0); }); }},
        {"characters of a key", 100000000, 1000000,
         [](int n) {
             return catalogOf(
                 1, [n](int) { return "<CLASS>" + element("CLASS_PK", QByteArray(n, 'k')) + "</CLASS>"; });
         },
         true, 0, 2},
        {"characters of a scrambled code", 100000000, 1000000,
         [](int n) {
             return catalogOf(1, [n](int) {
                 return "<BASECODE><BC_PK>B</BC_PK>" + element("BC_Code", QByteArray(n, '5')) + "</BASECODE>";
             });
         },
         true, 0, 2},
        {"characters of a scrambled code that are no digits", 100000000, 1000000,
         [](int n) {
             return catalogOf(1, [n](int) {
                 return "<BASECODE><BC_PK>B</BC_PK>" + element("BC_Code", QByteArray("+5").repeated(n / 2))
                        + "</BASECODE>";
             });
         },
         true, 0, 2},
        {"characters of an element's name", 100000000, 1000000,
         [](int n) { return element("OVCAT", element(QByteArray(n, 'n').constData(), "")); }, false},
        {"attributes of an element", 100000, 1000,
         [](int n) {
             QByteArray start = "<OVCAT";
             for (int i = 0; i < n; ++i)
                 start += " a" + QByteArray::number(i, 36) + "=''";
             return start + "></OVCAT>";
         }},
        {"levels of entities, each ten of the one below", 9, 9,
         [](int n) { return entities(n, "&e" + QByteArray::number(n - 1) + ';'); }, false, 0, 1},
        {"entities just below the reader's limit", 30000, 300,
         [](int n) { return entities(2, QByteArray("&e1;").repeated(n)); }, true, 0, 2},
    };
    return files;
}

} // namespace Orvida::Tests
