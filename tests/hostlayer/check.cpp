// Loads a catalog through the recording host's layer and checks that every service of it was used.
#include "catalogs/building/CatalogLoader.h"
#include "catalogs/reading/ScrambledText.h"
#include "shared/RecordingHost.h"

#include <QTemporaryFile>
#include <QTextStream>

using namespace Orvida;

namespace {

QByteArray scrambled(const char *text)
{
    return Catalogs::ScrambledText::encode(QString::fromLatin1(text)).toLatin1();
}

QByteArray catalogXml()
{
    return "<OVCAT><CATPRO><PRO_PK>P</PRO_PK></CATPRO>"
           "<BASECODE><BC_PK>B</BC_PK><BC_Code>"
           + scrambled("CRK")
           + "</BC_Code></BASECODE>"
             "<COL><COL_Profile_FK>P</COL_Profile_FK><COL_Column_ID>"
           + scrambled("WIDTH")
           + "</COL_Column_ID>"
             "<COL_DataType>number</COL_DataType><COL_Visible>oui</COL_Visible></COL>"
             "<COL><COL_Profile_FK>P</COL_Profile_FK><COL_Column_ID>"
           + scrambled("OTHER")
           + "</COL_Column_ID>"
             "<COL_DataType>DEC</COL_DataType></COL>"
             "<LC><LC_PK>L</LC_PK><LC_Profile_FK>P</LC_Profile_FK><LC_Class_ID>"
           + scrambled("SIZES")
           + "</LC_Class_ID></LC><LIST><LIST_Class_FK>L</LIST_Class_FK><LIST_Item>big</LIST_Item></LIST>"
             "<PARAM><PARAM_PK>W</PARAM_PK><PARAM_DataType>DEC</PARAM_DataType><PARAM_Caption>"
           + scrambled("Width")
           + "</PARAM_Caption></PARAM>"
             "<PARAMX><PX_PK>1</PX_PK><PX_BaseCode_FK>B</PX_BaseCode_FK><PX_Param_FK>W</PX_Param_FK>"
             "<PX_Column_ID>WIDTH</PX_Column_ID><PX_ListClass_ID>SIZES</PX_ListClass_ID>"
             "<PX_RangeFrom>1</PX_RangeFrom><PX_RangeTo>9</PX_RangeTo><PX_InputFmt>0.0</PX_InputFmt></PARAMX>"
             "<PARAMX><PX_PK>2</PX_PK><PX_BaseCode_FK>B</PX_BaseCode_FK><PX_Column_ID>OTHER</PX_Column_ID></"
             "PARAMX>"
             "</OVCAT>";
}

bool isExpected(const char *what, const QString &found, const char *expected)
{
    const bool isSame = found == QLatin1String(expected);
    if (!isSame)
        QTextStream(stderr) << what << ": " << found << " instead of " << expected << '\n';
    return isSame;
}

} // namespace

int main()
{
    QTemporaryFile file;
    if (!file.open() || file.write(catalogXml()) < 0 || !file.flush())
        return 1;
    const auto catalog = Catalogs::CatalogLoader().loadCatalog(file.fileName(), QStringLiteral("id"));
    if (!isExpected("status", QString::number(catalog->status()), "1"))
        return 1;
    const auto &fields = catalog->getItem(QStringLiteral("CRK"))->getFields();
    if (!isExpected("number of fields", QString::number(fields.size()), "1"))
        return 1;
    const Catalogs::CatalogInputField &field = fields.first();
    const bool isRight =
        isExpected("caption", field.caption, "Width (<1@0.0> - <9@0.0>)")
        && isExpected("visible", QString::number(field.visible), "1")
        && isExpected("entry", field.list.value(0, {{}, {}, {}}).storedValue().toString(), "big")
        && isExpected("log", Logging::CLogger::messages().join(QLatin1Char('\n')),
                      "3|CatalogLoader|Creating items for list: SIZES\n"
                      "4|CatalogListItem|Catalog item created key:big value:big");
    return isRight ? 0 : 1;
}
