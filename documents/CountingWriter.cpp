#include "documents/CountingWriter.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "control/services/FixQuote.h"
#include "documents/HeaderValues.h"
#include "lines/LineColumns.h"
#include "platform/Text.h"

namespace koru {
namespace {

constexpr const char* kTemporaryTitle = "شمارش موقت";
constexpr std::size_t kLongestNotes = 1000;

/// Shows how many of the grid's rows are written. A bar is repainted at every step, so it takes about a
/// hundred.
class WritingProgress {
 public:
  WritingProgress(ProgressBar& bar, int rows) : bar_(bar), step_(std::max(1, rows / 100)) {
    bar_.SetMax(rows);
    bar_.SetValue(0);
    bar_.SetVisible(true);
  }
  WritingProgress(const WritingProgress&) = delete;
  WritingProgress& operator=(const WritingProgress&) = delete;
  ~WritingProgress() { bar_.SetVisible(false); }

  void Written(int row) {
    if (row % step_ == 0) bar_.SetValue(row);
  }

 private:
  ProgressBar& bar_;
  int step_;
};

/// A count as a statement writes it: nothing counted is not the same as 0 counted.
SqlText CountOrNull(std::string_view cell) {
  return Trim(cell).empty() ? SqlText("NULL") : SqlText() + Val(cell);
}

/// The difference of a row from its two columns, of which at most one holds a quantity: a surplus is above 0,
/// a shortage below.
SqlText Contradiction(std::string_view shortage, std::string_view surplus) {
  if (Val(surplus) > 0) return SqlText() + Val(surplus);
  if (Val(shortage) > 0) return SqlText() + -Val(shortage);
  return SqlText("Null");
}

SqlText LineInsert(const Grid& lines, int row, double countingID) {
  const auto cell = [&](int column) { return lines.TextMatrix(row, column); };
  SqlText sql(
      "Insert Into tblInventoryCountingDetail "
      "(CountingID,Barcode,RowNumber,ScaleID,FirstCounting,SecondCounting,"
      "ThirdCounting,AcceptedCounting,SystemCounting,ContradictionCounting,BaseValue) Values(");
  sql = std::move(sql) + countingID + ",'" + Typed(Trim(cell(LineColumn::Barcode))) + "'," + row + "," +
        Val(cell(LineColumn::ScaleID)) + ",";
  for (int column = LineColumn::FirstCounting; column <= LineColumn::SystemCounting; ++column) {
    sql = std::move(sql) + CountOrNull(cell(column)) + ",";
  }
  return std::move(sql) + Contradiction(cell(LineColumn::Shortage), cell(LineColumn::Surplus)) + "," +
         Val(cell(LineColumn::Rate)) + ")";
}

/// The notes and the manual number, which carry the apostrophes around them in the statement. An apostrophe
/// in the notes is kept; one in the manual number breaks the statement.
SqlText Notes(const CountingControls& form) {
  return SqlText() + Typed(FixQuote(Utf16Prefix(form.txtNotes.Text(), kLongestNotes)));
}
SqlText ManualCode(const CountingControls& form) { return SqlText() + Typed(Trim(form.txtGNO.Text())); }

}  // namespace

void CountingWriter::Write() const {
  if (shared_.DocMode == DocumentMode::New) InsertHeader();
  if (shared_.DocMode == DocumentMode::Editing) UpdateHeader();
  shared_.DocMode = DocumentMode::Viewing;
  disablelockcomponent_();
  ReplaceLines();
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
  WritingProgress progress(controls_.pgbStatus, lines.Rows() - 1);
  for (int row = 1; row < lines.Rows(); ++row) {
    progress.Written(row);
    if (lines.TextMatrix(row, LineColumn::GoodName).empty()) continue;
    shared_.data.rssqlsaveenter.Open(LineInsert(lines, row, countingID));
  }
}

}  // namespace koru
