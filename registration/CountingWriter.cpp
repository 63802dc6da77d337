#include "registration/CountingWriter.h"

#include <string_view>
#include <utility>

#include "lines/LineColumns.h"
#include "platform/sql/DatabaseError.h"
#include "platform/text/Text.h"
#include "registration/HeaderValues.h"
#include "services/FixQuote.h"
#include "services/ShownProgress.h"

namespace koru {
namespace {

constexpr const char* kTemporaryTitle = "شمارش موقت";

/// A count as a statement writes it: nothing counted is not the same as 0 counted.
void AppendCount(SqlText& sql, std::string_view cell) {
  if (Trim(cell).empty()) {
    sql += "NULL";
  } else {
    sql += Val(cell);
  }
}

/// The difference of a row from its two columns, of which at most one holds a quantity: a surplus is above 0,
/// a shortage below.
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

/// The notes and the manual number, which carry the apostrophes around them in the statement. An apostrophe
/// in the notes is kept; one in the manual number breaks the statement.
SqlText Notes(const CountingControls& form) {
  return SqlText() + Typed(FixQuote(Utf16Prefix(form.txtNotes.Text(), kMaxNotesLength)));
}
SqlText ManualCode(const CountingControls& form) { return SqlText() + Typed(Trim(form.txtGNO.Text())); }

}  // namespace

void CountingWriter::Write() {
  before_ = {shared_.DocMode, controls_.lblIDVal.Caption(), controls_.form.Caption()};
  if (shared_.DocMode == DocumentMode::New) InsertHeader();
  if (shared_.DocMode == DocumentMode::Editing) UpdateHeader();
  shared_.DocMode = DocumentMode::Viewing;
  disablelockcomponent_();
  ReplaceLines();
}

void CountingWriter::Finish(WriteBatch& group) const {
  try {
    group.Finish();
  } catch (const DatabaseError&) {
    shared_.DocMode = before_.mode;
    controls_.lblIDVal.SetCaption(before_.id);
    controls_.form.SetCaption(before_.title);
    disablelockcomponent_();
    throw;
  }
}

void CountingWriter::InsertHeader() const {
  const CountingControls& form = controls_;
  shared_.data.rssqlsaveenter.Open(
      SqlText("insert into tblInventoryCounting (inventoryid,creatorid,CreateDate,FarsiCreateDate, "
              "CounterEmployeeID1,CounterEmployeeID2,CounterEmployeeID3,CounterConfirmerID,Notes,ManualCode,"
              "FromDate,FarsiFromDate,ToDate,FarsiToDate) values (") +
      KeyOrNull(form.gmpInventory) + "," + shared_.user.userID + "," + DateOrNull(form.gdpReceiveDate) + "," +
      PersianDateOrNull(form.gdpReceiveDate) + "," + KeyOrNull(form.mptCounter1) + "," +
      KeyOrNull(form.mptCounter2) + "," + KeyOrNull(form.mptCounter3) + "," + KeyOrNull(form.mptConfirmer) +
      ",'" + Notes(form) + "','" + ManualCode(form) + "'," + DateOrNull(form.gdpFromDate) + "," +
      PersianDateOrNull(form.gdpFromDate) + "," + DateOrNull(form.gdpToDate) + "," +
      PersianDateOrNull(form.gdpToDate) + ")");
  const Recordset newest =
      shared_.data.rssqlCommon.Open(SqlText("select max(id) as maxid from tblInventoryCounting"));
  form.lblIDVal.SetCaption(newest.Field("maxid").Text());
  form.form.SetCaption(kTemporaryTitle);
}

void CountingWriter::UpdateHeader() const {
  const CountingControls& form = controls_;
  shared_.data.rssqleditenter.Open(
      SqlText("update tblInventoryCounting set inventoryID=") + KeyOrNull(form.gmpInventory) +
      ",creatorid=" + shared_.user.userID + ",CreateDate=" + DateOrNull(form.gdpReceiveDate) +
      ",FarsiCreateDate=" + PersianDateOrNull(form.gdpReceiveDate) + ",CounterEmployeeID1=" +
      KeyOrNull(form.mptCounter1) + ",CounterEmployeeID2=" + KeyOrNull(form.mptCounter2) +
      ",CounterEmployeeID3=" + KeyOrNull(form.mptCounter3) +
      ",CounterConfirmerID=" + KeyOrNull(form.mptConfirmer) + ",FromDate=" + DateOrNull(form.gdpFromDate) +
      ",FarsiFromDate=" + PersianDateOrNull(form.gdpFromDate) + ",ToDate=" + DateOrNull(form.gdpToDate) +
      ",FarsiToDate=" + PersianDateOrNull(form.gdpToDate) + ",Notes='" + Notes(form) + "',ManualCode='" +
      ManualCode(form) + "' where id=" + form.CountingID());
}

void CountingWriter::ReplaceLines() const {
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
