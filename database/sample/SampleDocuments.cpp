#include "database/sample/SampleDocuments.h"

#include "database/sample/SampleRows.h"

namespace koru::sample {

DocumentBook::DocumentBook(SqliteConnection& connection)
    : receipts_(MakeShelf(connection, "Receipt")), dispatches_(MakeShelf(connection, "Dispatch")) {}

DocumentBook::Shelf DocumentBook::MakeShelf(SqliteConnection& connection, const std::string& kind) {
  const std::string table = "tblInventory" + kind;
  return {connection.Prepare("insert into " + table +
                             " (ID, InventoryID, CreatorID, ReceiveDate, FarsiReceiveDate, CreateDate,"
                             " FarsiCreateDate, Notes) values (?1, ?2, ?3, ?4, ?5, ?4, ?5, ?6)"),
          connection.Prepare("insert into " + table + "Detail (" + kind +
                             "ID, Barcode, Qty, ScaleID, ScaleQty, Description, Value)"
                             " values (?, ?, ?, ?, ?, '', ?)"),
          connection.Prepare("update " + table + " set Code = ?1 where ID = ?2")};
}

int DocumentBook::Write(const Document& document) {
  Shelf& shelf = Of(document.kind);
  const int id = ++shelf.id;
  Insert(shelf.header, id, document.store, document.creator, document.day, SolarText(document.day),
         document.notes);
  for (const DocumentLine& line : document.lines) {
    Insert(shelf.line, id, line.barcode, line.quantity, line.unit, line.unitQuantity, line.value);
  }
  if (document.registered) Register(document.kind, id);
  return id;
}

void DocumentBook::Register(DocumentKind kind, int id) {
  Shelf& shelf = Of(kind);
  Insert(shelf.code, ++shelf.lastCode, id);
}

}  // namespace koru::sample
