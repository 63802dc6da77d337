#include "siblings/documents/StockDocument.h"

namespace koru {
namespace {

SqlText HeaderOf(const DocumentKind& kind, std::int32_t id) {
  const SqlName table(kind.table);
  return SqlText("Select ") + table + ".ID as ID," + table +
         ".Code as Code,isnull(tblInventory.Name,'') as InvName,isnull(tblUser.FullName,'') as FullName,"
         "isnull(FarsiReceiveDate,'') as FarsiReceiveDate,isnull(Notes,'') as Notes from " +
         table + " left join tblInventory on tblInventory.ID=" + table +
         ".InventoryID left join tblUser on tblUser.ID=" + table + ".CreatorID Where " + table + ".ID=" + id;
}

SqlText LinesOf(const DocumentKind& kind, std::int32_t id) {
  const SqlName lines(kind.lineTable);
  return SqlText("Select ") + lines +
         ".Barcode as Barcode,isnull(tblGood.Code,'') as GoodCode,isnull(tblGood.Name,'') as GoodName,"
         "isnull(tblGoodScale.Name,'') as ScaleName,isnull(Qty,0) as Qty,isnull(Value,0) as Value from " +
         lines + " left join tblGood on tblGood.Barcode=LTrim(RTrim(" + lines +
         ".Barcode)) left join tblGoodScale on tblGoodScale.ID=" + lines + ".ScaleID Where " +
         SqlName(kind.lineKey) + "=" + id;
}

}  // namespace

std::optional<StockDocument> ReadDocument(Database& database, const DocumentKind& kind, std::int32_t id) {
  const Recordset header = database.Open(HeaderOf(kind, id));
  if (header.AtEnd()) return std::nullopt;
  StockDocument document;
  document.id = header.Field("ID").Integer();
  if (const Value code = header.Field("Code"); !code.IsNull()) document.code = code.Integer();
  document.store = header.Field("InvName").Text();
  document.date = header.Field("FarsiReceiveDate").Text();
  document.creator = header.Field("FullName").Text();
  document.notes = header.Field("Notes").Text();
  for (Recordset lines = database.Open(LinesOf(kind, id)); !lines.AtEnd(); lines.MoveNext()) {
    document.lines.push_back({lines.Field("Barcode").Text(), lines.Field("GoodCode").Text(),
                              lines.Field("GoodName").Text(), lines.Field("ScaleName").Text(),
                              lines.Field("Qty").Number(), lines.Field("Value").Number()});
  }
  return document;
}

void RegisterDocument(Database& database, const DocumentKind& kind, std::int32_t id) {
  const SqlName table(kind.table);
  // A single statement, so that two simultaneous registrations never get the same number.
  database.Open(SqlText("Update ") + table + " set Code=(Select isnull(max(isnull(Code,0)),0)+1 from " +
                table + ") Where Code is null and ID=" + id);
}

}  // namespace koru
