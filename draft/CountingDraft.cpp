#include "draft/CountingDraft.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <numeric>
#include <span>

#include "draft/DraftText.h"
#include "lines/LineColumns.h"
#include "platform/text/Date.h"

namespace koru {
namespace {

namespace record {
constexpr std::string_view kOwner = "owner";
constexpr std::string_view kDocument = "document";
constexpr std::string_view kField = "field";
constexpr std::string_view kStored = "stored";
constexpr std::string_view kStoredHeader = "storedheader";
constexpr std::string_view kLine = "line";
constexpr std::string_view kPlaces = "places";
}  // namespace record

constexpr std::size_t kFields = 16;  ///< the key, and the boxes below
constexpr std::size_t kBytesOfHeader = 4096;
constexpr std::size_t kBytesOfLine = 160;

std::array<TextBox*, 7> TextsOf(InvCountingControls& controls) {
  return {&controls.txtCode,
          &controls.txtGNO,
          &controls.txtCreator,
          &controls.txtNotes,
          &controls.txtTotalBelowValue,
          &controls.txtTotalAboveValue,
          &controls.txtTotalValue};
}

std::array<Selector*, 5> SelectorsOf(InvCountingControls& controls) {
  return {&controls.gmpInventory, &controls.mptCounter1, &controls.mptCounter2, &controls.mptCounter3,
          &controls.mptConfirmer};
}

std::array<DateBox*, 3> DatesOf(InvCountingControls& controls) {
  return {&controls.gdpReceiveDate, &controls.gdpFromDate, &controls.gdpToDate};
}

void AddField(DraftWriter& draft, const Control& control, std::string_view value) {
  draft.Record(record::kField);
  draft.Field(control.Name());
  draft.Field(value);
}

void AddFields(DraftWriter& draft, InvCountingControls& controls) {
  AddField(draft, controls.lblIDVal, controls.lblIDVal.Caption());
  for (const TextBox* text : TextsOf(controls)) AddField(draft, *text, text->Text());
  for (const Selector* selector : SelectorsOf(controls)) {
    AddField(draft, *selector, std::to_string(selector->SelectedID()));
  }
  for (const DateBox* date : DatesOf(controls)) {
    AddField(draft, *date, date->Value() ? IsoText(*date->Value()) : std::string());
  }
}

void AddStored(DraftWriter& draft, const StoredCounting& stored) {
  if (!stored.Remembered()) return;
  const CountingSnapshot& remembered = *stored.Remembered();
  draft.Record(record::kStored);
  draft.Field(stored.Key());
  draft.Field(remembered.exists ? 1 : 0);
  draft.Field(remembered.code);
  draft.Field(remembered.lastSaverID);
  draft.Field(std::to_string(remembered.lines.Count()));
  draft.Field(std::to_string(remembered.lines.Hash()));
  draft.Record(record::kStoredHeader);
  for (const std::string& value : remembered.header) draft.Field(value);
}

void AddLines(DraftWriter& draft, const Grid& lines) {
  for (int row = 1; row < lines.Rows(); ++row) {
    draft.Record(record::kLine);
    for (int col = 0; col < kLineColumns; ++col) draft.Field(lines.TextMatrix(row, col));
  }
}

/// The rows below the header in their order of entry.
std::vector<int> RowsInOrderOfEntry(const Grid& lines) {
  std::vector<int> rows(static_cast<std::size_t>(lines.Rows() - 1));
  std::iota(rows.begin(), rows.end(), 1);
  std::ranges::sort(rows, {}, [&lines](int row) { return lines.Entry(row); });
  return rows;
}

void AddPlaces(DraftWriter& draft, const Grid& lines) {
  const std::vector<int> rows = RowsInOrderOfEntry(lines);
  if (std::ranges::is_sorted(rows)) return;
  std::vector<int> places(rows.size());
  int place = 0;
  for (const int row : rows) places[static_cast<std::size_t>(row - 1)] = ++place;
  draft.Record(record::kPlaces);
  for (const int of : places) draft.Field(of);
}

/// Fails unless the places are those of all lines.
void CheckPlaces(const CountingDraft& draft) {
  if (draft.places.empty()) return;
  std::vector<std::size_t> sorted = draft.places;
  std::ranges::sort(sorted);
  std::vector<std::size_t> all(draft.Lines());
  std::iota(all.begin(), all.end(), 1U);
  if (sorted != all) DraftReader::Fail();
}

void ReadStored(const DraftReader& reader, CountingDraft& draft) {
  CountingSnapshot stored;
  draft.storedKey = reader.Number(0);
  stored.exists = reader.Number(1) != 0;
  stored.code = reader.Text(2);
  stored.lastSaverID = reader.Number(3);
  stored.lines = LinesDigest(reader.LongNumber(4), reader.LongNumber(5));
  draft.stored = std::move(stored);
}

void ReadRecord(const DraftReader& reader, CountingDraft& draft) {
  if (reader.Name() == record::kLine) {
    if (reader.Count() != kLineColumns) DraftReader::Fail();
    for (std::size_t col = 0; col < kLineColumns; ++col) draft.cells.push_back(reader.Text(col));
  } else if (reader.Name() == record::kPlaces) {
    for (std::size_t i = 0; i < reader.Count(); ++i) draft.places.push_back(reader.LongNumber(i));
  } else if (reader.Name() == record::kField) {
    draft.fields[reader.Text(0)] = reader.Text(1);
  } else if (reader.Name() == record::kOwner) {
    draft.owner = {reader.Text(0), reader.Number(1)};
  } else if (reader.Name() == record::kDocument) {
    draft.mode = static_cast<DocumentMode>(reader.Number(0));
    draft.title = reader.Text(1);
    draft.row = reader.Number(2);
    draft.col = reader.Number(3);
    draft.sortedCol = reader.Number(4);
    draft.sortedDescending = reader.Number(5) != 0;
  } else if (reader.Name() == record::kStored) {
    ReadStored(reader, draft);
  } else if (reader.Name() == record::kStoredHeader && draft.stored) {
    for (std::size_t i = 0; i < reader.Count(); ++i) draft.stored->header.push_back(reader.Text(i));
  } else {
    DraftReader::Fail();
  }
}

const std::string& FieldOf(const CountingDraft& draft, const Control& control) {
  const auto found = draft.fields.find(control.Name());
  if (found == draft.fields.end()) DraftReader::Fail();
  return found->second;
}

std::int32_t KeyIn(const std::string& text) {
  std::int32_t key = Selector::kNothing;
  std::from_chars(text.data(), text.data() + text.size(), key);
  return key;
}

/// Appends the lines in their order of entry, then shows them in their own.
void AppendLines(const CountingDraft& draft, Grid& grid) {
  const std::span<const std::string> cells(draft.cells);
  std::vector<std::size_t> order(draft.Lines() + 1);  // of the rows, the header included
  std::iota(order.begin(), order.end(), 0U);
  std::copy(draft.places.begin(), draft.places.end(), order.begin() + 1);
  std::vector<std::size_t> lines(draft.Lines());
  for (std::size_t line = 0; line < lines.size(); ++line) lines[order[line + 1] - 1] = line;
  for (const std::size_t line : lines) grid.AddRow(cells.subspan(line * kLineColumns, kLineColumns));
  if (!draft.places.empty()) grid.Arrange(order);
}

void ShowLines(const CountingDraft& draft, Grid& grid, CountingLines& lines) {
  grid.SetRows(1);
  {
    const GridRedrawOff redrawOff(grid);
    AppendLines(draft, grid);
  }
  lines.ColorRows();
  grid.SetSorted(draft.sortedCol, draft.sortedDescending);
  if (draft.row >= 0 && draft.row < grid.Rows() && draft.col >= 0 && draft.col < grid.Cols()) {
    grid.SetCurrent(draft.row, draft.col);
  }
}

}  // namespace

std::size_t CountingDraft::Lines() const { return cells.size() / kLineColumns; }

const std::string& CountingDraft::Key() const {
  static const std::string kNone;
  const auto found = fields.find("lblIDVal");
  return found == fields.end() ? kNone : found->second;
}

std::string EncodeDraft(InvCountingControls& controls, const DraftOwner& owner, DocumentMode mode,
                        const StoredCounting& stored) {
  const Grid& lines = controls.flexDetail;
  DraftWriter draft(kBytesOfHeader + kBytesOfLine * static_cast<std::size_t>(lines.Rows()));
  draft.Record(record::kOwner);
  draft.Field(owner.database);
  draft.Field(owner.userID);
  draft.Record(record::kDocument);
  draft.Field(static_cast<int>(mode));
  draft.Field(controls.form.Caption());
  for (const int number : {lines.Row(), lines.Col(), lines.SortedCol()}) draft.Field(number);
  draft.Field(lines.IsSortedDescending() ? 1 : 0);
  AddFields(draft, controls);
  AddStored(draft, stored);
  AddLines(draft, lines);
  AddPlaces(draft, lines);
  return draft.Finish();
}

CountingDraft DecodeDraft(std::string_view text) {
  CountingDraft draft;
  for (DraftReader reader(text); reader.Next();) ReadRecord(reader, draft);
  if (draft.mode != DocumentMode::New && draft.mode != DocumentMode::Editing) DraftReader::Fail();
  if (draft.fields.size() != kFields || draft.Lines() > static_cast<std::size_t>(kMaxLines))
    DraftReader::Fail();
  CheckPlaces(draft);
  return draft;
}

void ShowDraft(const CountingDraft& draft, InvCountingControls& controls, CountingLines& lines) {
  controls.form.SetCaption(draft.title);
  controls.lblIDVal.SetCaption(FieldOf(draft, controls.lblIDVal));
  for (TextBox* text : TextsOf(controls)) text->SetText(FieldOf(draft, *text));
  for (Selector* selector : SelectorsOf(controls)) selector->Select(KeyIn(FieldOf(draft, *selector)));
  for (DateBox* date : DatesOf(controls)) date->SetValue(ParseIso(FieldOf(draft, *date)));
  ShowLines(draft, controls.flexDetail, lines);
}

}  // namespace koru
