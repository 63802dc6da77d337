#include "registration/CountingWriter.h"

#include <string_view>
#include <utility>

#include "counting/controls/DocumentModes.h"
#include "lines/LineColumns.h"
#include "platform/sql/DatabaseError.h"
#include "platform/text/Errors.h"
#include "platform/text/Text.h"
#include "registration/HeaderValues.h"
#include "registration/StoredLine.h"
#include "services/FixQuote.h"
#include "services/ShownProgress.h"
#include "services/WriteQueue.h"

namespace koru {
namespace {

constexpr const char* kTemporaryTitle = "شمارش موقت";

// After a save of which nobody knows whether it is stored.
constexpr const char* kLookFirst =
    "\nشمارش هنوز روي فرم است. پيش از تكرار فرمان، در جستجوي شمارش ببينيد كه ذخيره نشده باشد.";
constexpr const char* kAsksFirst =
    "\nشمارش هنوز روي فرم است. فرمان را تكرار كنيد؛ اگر بار پيش ذخيره شده باشد، پيش از نوشتن پرسيده "
    "مي\u200cشود.";

/// The contents of the literals of the notes and the manual number. An apostrophe in the notes is doubled;
/// one in the manual number would end its literal (CheckTexts).
SqlText Notes(const InvCountingControls& controls) {
  return SqlText() + Typed(FixQuote(Utf16Prefix(controls.txtNotes.Text(), kMaxNotesLength)));
}
SqlText ManualCode(const InvCountingControls& controls) {
  return SqlText() + Typed(Trim(controls.txtGNO.Text()));
}

}  // namespace

void CountingWriter::CheckTexts() const {
  const bool writesHeader = shared_.DocMode == DocumentMode::New || shared_.DocMode == DocumentMode::Editing;
  if (writesHeader && HasOpenApostrophe(Trim(controls_.txtGNO.Text()))) {
    controls_.form.SetFocus(controls_.txtGNO);
    throw InputError(
        "شماره دستي آپوستروف دارد و ذخيره نمي\u200cشود. آن را از شماره برداريد و دوباره ثبت كنيد. چيزي "
        "تغيير "
        "نكرد.");
  }
  const Grid& lines = controls_.flexDetail;
  for (int row = 1; row < lines.Rows(); ++row) {
    if (lines.TextMatrix(row, LineColumn::GoodName).empty()) continue;
    if (lines.TextMatrix(row, LineColumn::Barcode).find('\'') == std::string_view::npos) continue;
    try {
      CheckTypedSpans(LineInsert(LineOfGrid(lines, row), 0));
    } catch (const DatabaseError&) {
      throw InputError("كد ميله\u200cاي رديف " + std::to_string(row) +
                       " آپوستروف دارد و ذخيره نمي\u200cشود. هيچ رديفي تغيير نكرد.");
    }
  }
}

bool CountingWriter::Save(const std::function<std::optional<LinesDigest>()>& write) {
  CheckTexts();
  if (shared_.DocMode == DocumentMode::New) guard_.Stored().Forget();
  const auto batch = guard_.BeginWrite(StoredCountingGuard::Purpose::Save);
  if (!batch) return false;
  before_ = {shared_.DocMode, controls_.lblIDVal.Caption(), controls_.form.Caption(),
             controls_.txtCode.Text(), guard_.Stored().Remembered()};
  std::optional<LinesDigest> lines;
  try {
    lines = write();
    if (lines) guard_.Stored().RememberSaved(static_cast<std::int32_t>(controls_.CountingID()), *lines);
  } catch (...) {
    guard_.Stored().Forget();  // nobody knows how much of the command was kept
    Finish(*batch);
    throw;
  }
  Finish(*batch);
  if (lines) return true;
  RestoreForm();
  guard_.ReportGone();
  return false;
}

std::optional<LinesDigest> CountingWriter::Write() {
  if (shared_.DocMode == DocumentMode::New) InsertHeader();
  if (shared_.DocMode == DocumentMode::Editing && !UpdateHeader()) return {};
  SetDocumentMode(DocumentMode::Viewing, controls_, shared_);
  return ReplaceLines();
}

/// A batch that cannot be finished has stored nothing that can be seen now, whatever failed before. Where the
/// connection broke at its end, the database is asked.
void CountingWriter::Finish(WriteBatch& batch) {
  try {
    batch.Finish();
  } catch (const UncertainWrite& failure) {
    const bool canAsk = dynamic_cast<const UnansweredWrite*>(&failure) != nullptr;
    const std::optional<bool> isStored = canAsk ? IsStored() : std::nullopt;
    if (isStored && *isStored) return;
    RestoreForm();
    if (isStored)
      throw DatabaseError(failure.ServerText(), failure.Code(), failure.Statement(), failure.Cause());
    throw UncertainWrite(failure.ServerText() + (before_.mode == DocumentMode::New ? kLookFirst : kAsksFirst),
                         failure.Code(), failure.Statement(), failure.Cause());
  } catch (const DatabaseError&) {
    RestoreForm();
    throw;
  }
}

/// Whether the database holds what the command has written; no value where it cannot be read.
std::optional<bool> CountingWriter::IsStored() {
  if (!guard_.Stored().Remembered()) return {};
  try {
    return !guard_.Stored().FindChange();
  } catch (const DatabaseError&) {
    return {};
  }
}

void CountingWriter::RestoreForm() {
  controls_.lblIDVal.SetCaption(before_.id);
  controls_.form.SetCaption(before_.title);
  controls_.txtCode.SetText(before_.code);
  SetDocumentMode(before_.mode, controls_, shared_);
  if (before_.remembered) guard_.Stored().Accept(*before_.remembered);
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
  // The highest key can be of a row that another program has inserted since.
  const std::string highest = newest.Field("maxid").Text();
  const auto own = shared_.data.InsertedKey();
  controls_.lblIDVal.SetCaption(own ? std::to_string(*own) : highest);
  controls_.form.SetCaption(kTemporaryTitle);
}

bool CountingWriter::UpdateHeader() {
  const Recordset updated = shared_.data.rssqleditenter.Open(
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
  return updated.AffectedRows() != 0;
}

LinesDigest CountingWriter::ReplaceLines() {
  const double countingID = controls_.CountingID();
  const Grid& lines = controls_.flexDetail;
  shared_.data.rssqldelenterdetail.Open(SqlText("Delete tblInventoryCountingDetail Where CountingID = ") +
                                        countingID);
  LinesDigest written;
  WriteQueue inserts(shared_.data, shared_.data.rssqlsaveenter);
  ShownProgress progress(controls_.pgbStatus, lines.Rows() - 1);
  for (int row = 1; row < lines.Rows(); ++row) {
    progress.Step();
    if (lines.TextMatrix(row, LineColumn::GoodName).empty()) continue;
    SqlText insert = LineInsert(LineOfGrid(lines, row), countingID);
    written.Add(insert);
    inserts.Add(std::move(insert));
  }
  inserts.Send();
  return written;
}

}  // namespace koru
