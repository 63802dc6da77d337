#include "lines/LineEditing.h"

#include <string>

#include "lines/LineColumns.h"
#include "platform/text/Numbers.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

/// The messages about a number out of range.
struct RangeMessages {
  const char* tooMuch;
  const char* tooLittle;
};
constexpr RangeMessages kCount{"تعداد بيشتر از اندازة مجاز است.", "تعداد كمتر از اندازة مجاز است."};
constexpr RangeMessages kRate{"مبلغ بيشتر از اندازة مجاز است.", "مبلغ كمتر از اندازة مجاز است."};

constexpr const char* kDeleteLine = "حذف كالا از شمارش";

/// The messages of a column that holds typed numbers; nullptr for any other column.
const RangeMessages* MessagesOf(int col) {
  if (col >= LineColumn::FirstCounting && col <= LineColumn::AcceptedCounting) return &kCount;
  return col == LineColumn::Rate ? &kRate : nullptr;
}

/// Barcodes are texts, also those of digits alone.
SortMode ModeOf(const SortRequest& request) {
  const bool down = request.order == RowOrder::Descending;
  if (request.col == LineColumn::Barcode) {
    return down ? SortMode::TextNoCaseDescending : SortMode::TextNoCaseAscending;
  }
  return down ? SortMode::GenericDescending : SortMode::GenericAscending;
}

}  // namespace

LineEditing::LineEditing(InvCountingControls& controls, SharedState& shared, CountingLines& lines)
    : flexDetail_(controls.flexDetail), shared_(shared), lines_(lines) {
  subscriptions_.push_back(flexDetail_.ValidateEdit.Subscribe([this] { ValidateEdit(); }));
  subscriptions_.push_back(flexDetail_.CellChanged.Subscribe([this] { CellChanged(); }));
  subscriptions_.push_back(flexDetail_.BatchEdited.Subscribe([this] {
    warnedInBatch_.clear();
    lines_.UpdateTotalQty();
  }));
  subscriptions_.push_back(flexDetail_.RowDeleting.Subscribe([this] { RowDeleting(); }));
  subscriptions_.push_back(flexDetail_.RowDeleted.Subscribe([this] { RowDeleted(); }));
  subscriptions_.push_back(flexDetail_.RowChange.Subscribe([this] { RemoveEmptyRow(); }));
  subscriptions_.push_back(flexDetail_.LeaveGrid.Subscribe([this] { RemoveEmptyRow(); }));
  subscriptions_.push_back(flexDetail_.HeaderClick.Subscribe([this](int col) { SortBy({col}); }));
  subscriptions_.push_back(
      flexDetail_.SortWanted.Subscribe([this](const SortRequest& request) { SortBy(request); }));
}

void LineEditing::CalculateRow(int row) {
  const auto set = [&](int col, std::string_view text) { flexDetail_.SetTextMatrix(row, col, text); };
  const auto number = [&](int col) { return Val(flexDetail_.TextMatrix(row, col)); };

  set(LineColumn::Surplus, {});
  set(LineColumn::SurplusAmount, {});
  set(LineColumn::Shortage, {});
  set(LineColumn::ShortageAmount, {});

  const double system = number(LineColumn::SystemCounting);
  const double accepted = number(LineColumn::AcceptedCounting);
  const double rate = number(LineColumn::Rate);
  if (system < accepted) {
    set(LineColumn::Surplus, NumberText(Round(accepted - system, 3)));
    set(LineColumn::SurplusAmount, NumberText(number(LineColumn::Surplus) * rate));
  }
  if (system > accepted) {
    set(LineColumn::Shortage, NumberText(Round(system - accepted, 3)));
    set(LineColumn::ShortageAmount, NumberText(number(LineColumn::Shortage) * rate));
  }
  if (!Trim(flexDetail_.TextMatrix(row, LineColumn::AcceptedCounting)).empty()) {
    set(LineColumn::CountedAmount, NumberText(rate * accepted));
  }
}

void LineEditing::ValidateEdit() {
  const RangeMessages* const messages = MessagesOf(flexDetail_.Col());
  if (messages == nullptr) return;
  const std::string typed = flexDetail_.EditText();
  // A large number gets a warning alone, since a count can really be that large; a negative one is refused.
  if (Val(typed) > kMaxQuantityWithoutWarning) Warn(messages->tooMuch);
  if (!Trim(typed).empty()) flexDetail_.SetEditText(NumberText(Val(typed)));
  if (IsRefusedQuantity(Val(flexDetail_.EditText()))) {
    Warn(messages->tooLittle);
    flexDetail_.SetEditAccepted(false);
  }
}

void LineEditing::Warn(const char* message) {
  if (flexDetail_.InBatchEdit() && !warnedInBatch_.insert(message).second) return;
  shared_.messages.ShowMessage(sentences::kError, message);
}

void LineEditing::CellChanged() {
  const int col = flexDetail_.Col();
  if (col != LineColumn::AcceptedCounting && col != LineColumn::Rate) return;
  CalculateRow(flexDetail_.Row());
  if (!flexDetail_.InBatchEdit()) lines_.UpdateTotalQty();
}

void LineEditing::RowDeleting() {
  if (flexDetail_.TextMatrix(flexDetail_.Row(), LineColumn::Barcode).empty()) {
    flexDetail_.SetDeleteAllowed(true);
    return;
  }
  flexDetail_.SetDeleteAllowed(false);
  if (shared_.DocMode != DocumentMode::Editing && shared_.DocMode != DocumentMode::New) return;
  flexDetail_.SetDeleteAllowed(shared_.messages.AskQuestion(kDeleteLine, sentences::kAreYouSure) ==
                               kAnswerYes);
}

void LineEditing::RowDeleted() {
  lines_.UpdateTotalQty();
  lines_.RefreshRows();
  lines_.ColorRows();
}

void LineEditing::RemoveEmptyRow() {
  const int row = flexDetail_.Row();
  if (emptyRowRemovalSuspended_ || row < 1 || row >= flexDetail_.Rows()) return;
  if (!flexDetail_.TextMatrix(row, LineColumn::Barcode).empty()) return;
  flexDetail_.RemoveItem(row);
  RowDeleted();
}

void LineEditing::SortBy(const SortRequest& request) {
  if (request.col < 0 || request.col >= flexDetail_.Cols()) return;
  flexDetail_.SetCurrent(flexDetail_.Row(), request.col);
  if (request.order == RowOrder::Entry) {
    flexDetail_.SortByEntry();
  } else {
    flexDetail_.Sort(request.col, ModeOf(request));
  }
  lines_.RefreshRows();
}

}  // namespace koru
