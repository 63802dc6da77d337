#include "lines/frmCountImport.h"

#include <algorithm>
#include <map>
#include <utility>

#include "platform/text/Text.h"

namespace koru {
namespace {

constexpr const char* kTitles =
    "سطر پرونده|"
    "^باركد يا كد          |"
    "^نام كالا                              |"
    "^شمارش              |"
    "^در پرونده      |"
    "^اكنون         |"
    "^پس از آوردن    |"
    "^نتيجه                                        ";
constexpr int kPreviewColumns = 8;

constexpr std::array<const char*, kImportedCounts> kCountNames = {"شمارش اول", "شمارش دوم", "شمارش سوم",
                                                                  "شمارش مورد قبول"};

/// The column of the table that an entry chooses; -1 for the first entry, "none".
int ChosenColumn(const ComboBox& list) {
  return list.Chosen() == nullptr ? ImportColumns::kNone : list.Chosen()->itemData;
}

void Offer(ComboBox& list, const std::vector<std::string>& names, int chosen) {
  list.Clear();
  list.AddItem("(هيچ)", ImportColumns::kNone);
  for (std::size_t i = 0; i < names.size(); ++i) list.AddItem(names[i], static_cast<std::int32_t>(i));
  list.SetListIndex(chosen + 1);
}

/// A problem in the summary, where many are counted together.
const char* ProblemName(ImportState state) {
  switch (state) {
    case ImportState::Left:
      return "شمارش دارند";
    case ImportState::Repeated:
      return "تكراري";
    case ImportState::NotANumber:
      return "عدد نيستند";
    case ImportState::Refused:
      return "منفي";
    case ImportState::NoKey:
      return "بدون باركد و كد";
    case ImportState::NoSuchLine:
      return "با باركد يا كد ناشناخته";
    default:
      return "با باركد يا كد چند سطر";
  }
}

}  // namespace

frmCountImport::frmCountImport(SharedState& shared, const Grid& lines, const std::string& file,
                               FileTable table, ReadSheet read)
    : Form(shared.services.screen, "frmCountImport"),
      shared_(shared),
      lines_(lines),
      table_(std::move(table)),
      read_(std::move(read)) {
  SetCaption("آوردن شمارش از پرونده");
  OnFailure = [this](const std::exception& failure) { shared_.messages.ShowFailure(failure); };
  lblFile.SetCaption("پرونده: " + file);
  SetUp();
  OfferColumns();
  for (ComboBox* const list : {&cmbBarcode, &cmbCode, &cmbFirst, &cmbSecond, &cmbThird, &cmbAccepted})
    list->Click.Always([this] { ChooseColumns(); });
  for (ComboBox* const list : {&cmbRepeated, &cmbCounted}) list->Click.Always([this] { ShowPlan(); });
  cmbSheet.Click.Always([this] { ReadOtherSheet(); });
  cmdImport.Click.Always([this] {
    accepted_ = std::move(plan_);
    Unload();
  });
  cmdExit.Click.Always([this] { Unload(); });
}

void frmCountImport::SetUp() {
  cmdImport.SetCaption("آوردن");
  cmdExit.SetCaption("انصراف");
  for (const std::string& name : table_.sheets)
    cmbSheet.AddItem(name, static_cast<std::int32_t>(cmbSheet.Items().size()));
  cmbSheet.SetListIndex(static_cast<int>(table_.sheet));
  cmbSheet.SetVisible(table_.sheets.size() > 1);
  cmbRepeated.AddItem("آورده نشود", static_cast<int>(ImportRules::Repeated::Refuse));
  cmbRepeated.AddItem("با هم جمع شود", static_cast<int>(ImportRules::Repeated::Sum));
  cmbRepeated.SetListIndex(0);
  cmbCounted.AddItem("دست نخورد", static_cast<int>(ImportRules::Counted::Leave));
  cmbCounted.AddItem("جايگزين شود", static_cast<int>(ImportRules::Counted::Replace));
  cmbCounted.AddItem("با آن جمع شود", static_cast<int>(ImportRules::Counted::Add));
  cmbCounted.SetListIndex(0);
  flexPreview.SetCols(kPreviewColumns);
  flexPreview.SetFormatString(kTitles);
  for (std::size_t i = 0; i < kImportedCounts; ++i)
    counts_.at(i)->SetEnabled(lines_.IsEditable(GridColumnOf(i)));
}

void frmCountImport::OfferColumns() {
  columns_ = FindColumns(table_);
  const std::vector<std::string> names = ColumnNames(table_, columns_.firstRow);
  Offer(cmbBarcode, names, columns_.barcode);
  Offer(cmbCode, names, columns_.code);
  for (std::size_t i = 0; i < kImportedCounts; ++i) {
    int& column = columns_.counts.at(i);
    if (!lines_.IsEditable(GridColumnOf(i))) column = ImportColumns::kNone;
    Offer(*counts_.at(i), names, column);
  }
  ShowPlan();
}

void frmCountImport::ChooseColumns() {
  columns_.barcode = ChosenColumn(cmbBarcode);
  columns_.code = ChosenColumn(cmbCode);
  for (std::size_t i = 0; i < kImportedCounts; ++i) columns_.counts.at(i) = ChosenColumn(*counts_.at(i));
  ShowPlan();
}

void frmCountImport::ReadOtherSheet() {
  const auto chosen = static_cast<std::size_t>(cmbSheet.ListIndex());
  std::optional<FileTable> table;
  try {
    const Hourglass busy(shared_.services.screen);
    table = read_(chosen);
  } catch (...) {
    cmbSheet.SetListIndex(static_cast<int>(table_.sheet));
    throw;
  }
  if (!table) {
    cmbSheet.SetListIndex(static_cast<int>(table_.sheet));
    return;
  }
  table_ = std::move(*table);
  OfferColumns();
}

void frmCountImport::ShowPlan() {
  const ImportRules rules{static_cast<ImportRules::Repeated>(cmbRepeated.ListIndex()),
                          static_cast<ImportRules::Counted>(cmbCounted.ListIndex())};
  plan_ = PlanImport(table_, columns_, rules, lines_);
  {
    const GridRedrawOff redrawOff(flexPreview);
    flexPreview.SetRows(1);
    for (const bool problems : {true, false}) {
      for (const ImportedFigure& figure : plan_) {
        if (IsProblem(figure.state) == problems) AddPlanned(figure);
      }
    }
  }
  lblSummary.SetCaption(plan_.empty() ? WhyEmpty() : Summary());
  cmdImport.SetEnabled(std::any_of(plan_.begin(), plan_.end(),
                                   [](const ImportedFigure& figure) { return ComesIn(figure.state); }));
}

void frmCountImport::AddPlanned(const ImportedFigure& figure) {
  std::array<std::string, kPreviewColumns> texts;
  texts[ImportColumn::FileRow] = std::to_string(figure.fileRow);
  texts[ImportColumn::Key] = figure.key;
  if (figure.line > 0) texts[ImportColumn::GoodName] = lines_.TextMatrix(figure.line, LineColumn::GoodName);
  texts[ImportColumn::Count] =
      kCountNames.at(static_cast<std::size_t>(figure.col - LineColumn::FirstCounting));
  texts[ImportColumn::Text] = figure.text;
  texts[ImportColumn::Before] = figure.before;
  texts[ImportColumn::After] = figure.after;
  texts[ImportColumn::State] = StateText(figure);
  flexPreview.AddRow(texts);
  flexPreview.SetRowBackColor(flexPreview.Rows() - 1,
                              IsProblem(figure.state) ? kProblemColor : kComesInColor);
}

std::string frmCountImport::Summary() const {
  std::map<ImportState, int> counts;
  for (const ImportedFigure& figure : plan_) ++counts[figure.state];
  const int comesIn = counts[ImportState::ComesIn] + counts[ImportState::Large];
  std::string summary = std::to_string(comesIn) + " عدد نوشته مي\u200cشود";
  if (counts[ImportState::Same] > 0)
    summary += "، " + std::to_string(counts[ImportState::Same]) + " عدد همان است كه هست";
  int problems = 0;
  std::string named;
  for (const auto& [state, count] : counts) {
    if (count == 0 || !IsProblem(state)) continue;
    problems += count;
    named += (named.empty() ? "" : "، ") + std::to_string(count) + " " + ProblemName(state);
  }
  if (problems > 0) summary += "؛ " + std::to_string(problems) + " عدد كنار مي\u200cماند: " + named;
  return summary + ".";
}

std::string frmCountImport::WhyEmpty() const {
  if (columns_.barcode == ImportColumns::kNone && columns_.code == ImportColumns::kNone)
    return "ستون باركد يا كد را انتخاب كنيد.";
  const bool hasCount = std::any_of(columns_.counts.begin(), columns_.counts.end(),
                                    [](int column) { return column != ImportColumns::kNone; });
  return hasCount ? "در اين ستون\u200cها هيچ عددي نيست." : "دست\u200cكم يك ستون شمارش را انتخاب كنيد.";
}

}  // namespace koru
