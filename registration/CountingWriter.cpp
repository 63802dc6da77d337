#include "registration/CountingWriter.h"

#include <string_view>
#include <utility>

#include "counting/controls/DocumentModes.h"
#include "lines/LineColumns.h"
#include "platform/sql/DatabaseError.h"
#include "platform/text/Numbers.h"
#include "platform/text/Text.h"
#include "registration/HeaderValues.h"
#include "services/FixQuote.h"
#include "services/ShownProgress.h"

namespace koru {
namespace {

constexpr const char* kTemporaryTitle = "شمارش موقت";

/// Appends a count; a good that was not counted has NULL, never 0.
void AppendCount(SqlText& sql, std::string_view cell) {
  if (Trim(cell).empty()) {
    sql += "NULL";
  } else {
    sql += Val(cell);
  }
}

/// Appends the difference of a line: a surplus as a positive number, a shortage as a negative one. At most
/// one of the two columns holds a quantity.
void AppendContradiction(SqlText& sql, std::string_view shortage, std::string_view surplus) {
  const double above = Val(surplus);
  const double below = Val(shortage);
  if (above > 0) {
    sql += above;
  } else if (below > 0) {
    sql += -below;
  } else {
    sql += "Null";
  }
}

SqlText LineInsert(const Grid& lines, int row, double countingID) {
  const auto cell = [&](int column) { return lines.TextMatrix(row, column); };
  SqlText sql(
      "Insert Into tblInventoryCountingDetail "
      "(CountingID,Barcode,RowNumber,ScaleID,FirstCounting,SecondCounting,"
      "ThirdCounting,AcceptedCounting,SystemCounting,ContradictionCounting,BaseValue) Values(");
  sql += countingID;
  sql += ",'";
  sql += Typed(Trim(cell(LineColumn::Barcode)));
  sql += "',";
  sql += row;
  sql += ",";
  sql += Val(cell(LineColumn::ScaleID));
  sql += ",";
  for (int column = LineColumn::FirstCounting; column <= LineColumn::SystemCounting; ++column) {
    AppendCount(sql, cell(column));
    sql += ",";
  }
  AppendContradiction(sql, cell(LineColumn::Shortage), cell(LineColumn::Surplus));
  sql += ",";
  sql += Val(cell(LineColumn::Rate));
  sql += ")";
  return sql;
}

/// The contents of the literals of the notes and the manual number. An apostrophe in the notes is doubled;
/// one in the manual number ends its literal, and the statement is refused.
SqlText Notes(const InvCountingControls& controls) {
  return SqlText() + Typed(FixQuote(Utf16Prefix(controls.txtNotes.Text(), kMaxNotesLength)));
}
SqlText ManualCode(const InvCountingControls& controls) {
  return SqlText() + Typed(Trim(controls.txtGNO.Text()));
}

}  // namespace

void CountingWriter::Write() {
  before_ = {shared_.DocMode, controls_.lblIDVal.Caption(), controls_.form.Caption()};
  if (shared_.DocMode == DocumentMode::New) InsertHeader();
  if (shared_.DocMode == DocumentMode::Editing) UpdateHeader();
  SetDocumentMode(DocumentMode::Viewing, controls_, shared_);
  ReplaceLines();
}

void CountingWriter::Finish(WriteBatch& batch) {
  try {
    batch.Finish();
  } catch (const DatabaseError&) {
    controls_.lblIDVal.SetCaption(before_.id);
    controls_.form.SetCaption(before_.title);
    SetDocumentMode(before_.mode, controls_, shared_);
    throw;
  }
}

void CountingWriter::InsertHeader() {
  shared_.data.rssqlsaveenter.Open(
      SqlText("insert into tblInventoryCounting (inventoryid,creatorid,CreateDate,FarsiCreateDate, "
              "CounterEmployeeID1,CounterEmployeeID2,CounterEmployeeID3,CounterConfirmerID,Notes,ManualCode,"
              "FromDate,FarsiFromDate,ToDate,FarsiToDate) values (") +
      KeyOrNull(controls_.gmpInventory) + "," + shared_.user.userID + "," +
      DateOrNull(controls_.gdpReceiveDate) + "," + PersianDateOrNull(controls_.gdpReceiveDate) + "," +
      KeyOrNull(controls_.mptCounter1) + "," + KeyOrNull(controls_.mptCounter2) + "," +
      KeyOrNull(controls_.mptCounter3) + "," + KeyOrNull(controls_.mptConfirmer) + ",'" + Notes(controls_) +
      "','" + ManualCode(controls_) + "'," + DateOrNull(controls_.gdpFromDate) + "," +
      PersianDateOrNull(controls_.gdpFromDate) + "," + DateOrNull(controls_.gdpToDate) + "," +
      PersianDateOrNull(controls_.gdpToDate) + ")");
  const Recordset newest =
      shared_.data.rssqlCommon.Open(SqlText("select max(id) as maxid from tblInventoryCounting"));
  controls_.lblIDVal.SetCaption(newest.Field("maxid").Text());
  controls_.form.SetCaption(kTemporaryTitle);
}

void CountingWriter::UpdateHeader() {
  shared_.data.rssqleditenter.Open(
      SqlText("update tblInventoryCounting set inventoryID=") + KeyOrNull(controls_.gmpInventory) +
      ",creatorid=" + shared_.user.userID + ",CreateDate=" + DateOrNull(controls_.gdpReceiveDate) +
      ",FarsiCreateDate=" + PersianDateOrNull(controls_.gdpReceiveDate) + ",CounterEmployeeID1=" +
      KeyOrNull(controls_.mptCounter1) + ",CounterEmployeeID2=" + KeyOrNull(controls_.mptCounter2) +
      ",CounterEmployeeID3=" + KeyOrNull(controls_.mptCounter3) + ",CounterConfirmerID=" +
      KeyOrNull(controls_.mptConfirmer) + ",FromDate=" + DateOrNull(controls_.gdpFromDate) +
      ",FarsiFromDate=" + PersianDateOrNull(controls_.gdpFromDate) +
      ",ToDate=" + DateOrNull(controls_.gdpToDate) +
      ",FarsiToDate=" + PersianDateOrNull(controls_.gdpToDate) + ",Notes='" + Notes(controls_) +
      "',ManualCode='" + ManualCode(controls_) + "' where id=" + controls_.CountingID());
}

void CountingWriter::ReplaceLines() {
  const double countingID = controls_.CountingID();
  const Grid& lines = controls_.flexDetail;
  shared_.data.rssqldelenterdetail.Open(SqlText("Delete tblInventoryCountingDetail Where CountingID = ") +
                                        countingID);
  ShownProgress progress(controls_.pgbStatus, lines.Rows() - 1);
  for (int row = 1; row < lines.Rows(); ++row) {
    progress.Step();
    if (lines.TextMatrix(row, LineColumn::GoodName).empty()) continue;
    shared_.data.rssqlsaveenter.Open(LineInsert(lines, row, countingID));
  }
}

}  // namespace koru
