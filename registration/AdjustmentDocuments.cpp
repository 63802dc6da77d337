#include "registration/AdjustmentDocuments.h"

#include <utility>

#include "platform/text/Text.h"
#include "registration/EarlierDocuments.h"
#include "registration/HeaderValues.h"
#include "services/ShownProgress.h"
#include "services/WriteQueue.h"

namespace koru {

/// The statements of one kind of document, each up to the place of a key.
struct AdjustmentDocuments::Texts {
  FixedSql insertHeader;
  FixedSql newestID;
  FixedSql differences;
  FixedSql insertLine;
  FixedSql deleteHeader;
  FixedSql link;
};

AdjustmentDocuments::Written AdjustmentDocuments::CreateAdjustmentDocuments() {
  static constexpr Texts kDispatch{
      .insertHeader =
          "insert into tblInventoryDispatch (inventoryid,creatorid,ReceiveDate,FarsiReceiveDate, createdate,"
          "FarsiCreateDate,Notes) values (",
      .newestID = "select Max(ID) as MaxID from tblInventoryDispatch",
      .differences =
          "Select Barcode,sum(-ContradictionCounting) as Qty,ScaleID from tblInventoryCountingDetail where "
          "ContradictionCounting < 0 and CountingID=",
      .insertLine =
          "insert into tblInventoryDispatchDetail (DispatchID,barcode,qty,ScaleID,ScaleQty,Description) "
          "Values(",
      .deleteHeader = "Delete tblInventoryDispatch Where ID = ",
      .link = "Update tblInventoryCounting set DispatchID = "};
  static constexpr Texts kReceipt{
      .insertHeader =
          "insert into tblInventoryReceipt (inventoryid,creatorid,ReceiveDate,FarsiReceiveDate, createdate,"
          "FarsiCreateDate,Notes) values (",
      .newestID = "select Max(ID) as MaxID from tblInventoryReceipt",
      .differences =
          "Select Barcode,sum(ContradictionCounting) as Qty,ScaleID from tblInventoryCountingDetail where "
          "ContradictionCounting > 0 and CountingID=",
      .insertLine =
          "insert into tblInventoryReceiptDetail (ReceiptID,barcode,qty,ScaleID,ScaleQty,Description) "
          "Values(",
      .deleteHeader = "Delete tblInventoryReceipt Where ID = ",
      .link = "Update tblInventoryCounting set ReceiptID = "};
  RemoveEarlierDocuments(shared_.data, controls_.CountingID());
  const auto dispatch = CreateDocument(kDispatch);
  return {dispatch, CreateDocument(kReceipt)};
}

std::optional<std::int32_t> AdjustmentDocuments::CreateDocument(const Texts& texts) {
  InsertHeader(texts);
  // The suite's other programs insert documents as well: the highest key can be theirs.
  const std::int32_t highest =
      shared_.data.rssqlCommon.Open(SqlText(texts.newestID)).Field("MaxID").Integer();
  const auto documentID = static_cast<std::int32_t>(shared_.data.InsertedKey().value_or(highest));
  if (InsertLines(texts, documentID)) {
    shared_.data.rssqleditenter.Open(SqlText(texts.link) + documentID +
                                     " Where ID = " + controls_.CountingID());
    return documentID;
  }
  shared_.data.rssqldelenter.Open(SqlText(texts.deleteHeader) + documentID);
  return {};
}

void AdjustmentDocuments::InsertHeader(const Texts& texts) {
  const DateBox& date = controls_.gdpReceiveDate;
  SqlText sql = SqlText(texts.insertHeader) + KeyOrNull(controls_.gmpInventory) + "," + shared_.user.userID +
                "," + DateOrNull(date) + "," + PersianDateOrNull(date) + ",'";
  if (date.Value()) sql += *date.Value();
  shared_.data.rssqlsaveenter.Open(std::move(sql) + "','" + Typed(date.PersianText()) +
                                   "','سند ايجاد شده از روي شمارش به شماره رايانهاي " +
                                   controls_.CountingID() + "')");
}

bool AdjustmentDocuments::InsertLines(const Texts& texts, std::int32_t documentID) {
  Recordset differences = shared_.data.rssqlCommon.Open(SqlText(texts.differences) + controls_.CountingID() +
                                                        " Group By Barcode,ScaleID");
  if (differences.RecordCount() == 0) return false;
  WriteQueue inserts(shared_.data, shared_.data.rssqlsaveenter);
  ShownProgress progress(controls_.pgbStatus, static_cast<int>(differences.RecordCount()));
  for (differences.MoveFirst(); !differences.AtEnd(); differences.MoveNext()) {
    progress.Step();
    const std::string barcode = differences.Field("Barcode").Text();
    const double quantity = differences.Field("Qty").Number();
    const Value unit = differences.Field("ScaleID");
    inserts.Add(SqlText(texts.insertLine) + documentID + ",'" + Typed(Trim(barcode)) + "'," + quantity + "," +
                (unit.IsNull() ? SqlText("NULL") : SqlText() + unit.Number()) + "," + quantity + ",'')");
  }
  inserts.Send();
  return true;
}

}  // namespace koru
