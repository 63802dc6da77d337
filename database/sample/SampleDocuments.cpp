#include "database/sample/SampleDocuments.h"

#include "database/sample/SampleRows.h"

namespace koru::sample {

DocumentBook::DocumentBook(SqliteConnection& connection)
    : receipts_(MakeShelf(connection, "Receipt")), dispatches_(MakeShelf(connection, "Dispatch")) {}

DocumentBook::Shelf DocumentBook::MakeShelf(SqliteConnection& connection, const std::string& kind) {
  const std::string table = "tblInventory" + kind;
  return {.header = RowWriter::Inserts(connection, table),
          .line = RowWriter::Inserts(connection, table + "Detail"),
          .lineKey = kind + "ID",
          .code = RowWriter::Updates(connection, table)};
}

int DocumentBook::Write(const Document& document) {
  Shelf& shelf = Of(document.kind);
  const int id = ++shelf.id;
  shelf.header.Write({{"ID", id},
                      {"InventoryID", document.store},
                      {"CreatorID", document.creator},
                      {"ReceiveDate", document.day},
                      {"FarsiReceiveDate", SolarText(document.day)},
                      {"CreateDate", document.day},
                      {"FarsiCreateDate", SolarText(document.day)},
                      {"Notes", document.notes}});
  for (const DocumentLine& line : document.lines) {
    shelf.line.Write({{shelf.lineKey, id},
                      {"Barcode", line.barcode},
                      {"Qty", line.quantity},
                      {"ScaleID", line.unit},
                      {"ScaleQty", line.unitQuantity},
                      {"Description", ""},
                      {"Value", line.value}});
  }
  if (document.registered) Register(document.kind, id);
  return id;
}

void DocumentBook::Register(DocumentKind kind, int id) {
  Shelf& shelf = Of(kind);
  shelf.code.Write({{"ID", id}, {"Code", ++shelf.lastCode}});
}

}  // namespace koru::sample
