#include "counting/LineFinder.h"

#include <algorithm>
#include <cstdint>

#include "platform/text/Errors.h"

namespace koru {
namespace {

constexpr const char* kPreference = "LineKind";
constexpr std::int32_t kAll = static_cast<std::int32_t>(LineKind::All);

struct KindCaption {
  LineKind kind;
  const char* caption;
};
constexpr KindCaption kKinds[] = {{LineKind::All, "همه سطرها"},
                                  {LineKind::NotCounted, "شمرده نشده"},
                                  {LineKind::CountsDisagree, "شمارش‌هاي نابرابر"},
                                  {LineKind::NotAccepted, "بدون شمارش مورد قبول"},
                                  {LineKind::Short, "داراي كسري"},
                                  {LineKind::Over, "داراي اضافي"},
                                  {LineKind::Exact, "برابر با موجودي دفتري"}};

}  // namespace

LineFinder::LineFinder(Form& form, Grid& lines, PropertyBag* preferences)
    : txtFindLine(form, "txtFindLine"),
      cboLineKind(form, "cboLineKind"),
      cmdAllLines(form, "cmdAllLines"),
      lines_(lines),
      preferences_(preferences),
      tally_(lines) {
  for (const auto& [kind, caption] : kKinds) cboLineKind.AddItem(caption, static_cast<std::int32_t>(kind));
  cmdAllLines.SetCaption("نمايش همه");
  ReadKind();
  cmdAllLines.SetVisible(IsOn());
  txtFindLine.Change.Always([this] { Apply(); });
  cboLineKind.Click.Always([this] { KindChosen(); });
  cmdAllLines.Click.Always([this] { ShowAll(); });
  // The rows have been sorted before: the form's own listeners come first.
  const auto sorted = [this] {
    if (IsOn()) Apply();
  };
  subscriptions_.push_back(lines.HeaderClick.Subscribe([sorted](int) { sorted(); }));
  subscriptions_.push_back(lines.SortWanted.Subscribe([sorted](const SortRequest&) { sorted(); }));
}

bool LineFinder::IsOn() const { return Filter().IsOn(); }

std::vector<int> LineFinder::RowsThatFit() { return Filter().RowsThatFit(lines_, tally_); }

void LineFinder::Apply() {
  cmdAllLines.SetVisible(IsOn());
  Applied.Raise();
}

void LineFinder::OfferKinds(bool offered) {
  if (cboLineKind.Visible() == offered) return;
  cboLineKind.SetVisible(offered);
  Apply();
}

LineKind LineFinder::Kind() const {
  if (!cboLineKind.Visible()) return LineKind::All;
  const ComboBox::Item* const chosen = cboLineKind.Chosen();
  return chosen == nullptr ? LineKind::All : static_cast<LineKind>(chosen->itemData);
}

LineFilter LineFinder::Filter() const { return {Kind(), txtFindLine.Text()}; }

void LineFinder::ReadKind() {
  std::int32_t kind = kAll;
  try {
    if (preferences_ != nullptr) kind = std::get<std::int32_t>(preferences_->Read(kPreference, kAll));
  } catch (const InputError&) {
    kind = kAll;  // a setting that cannot be read hides nothing
  }
  const auto& items = cboLineKind.Items();
  const auto found = std::find_if(items.begin(), items.end(),
                                  [kind](const ComboBox::Item& item) { return item.itemData == kind; });
  cboLineKind.SetListIndex(found == items.end() ? 0 : static_cast<int>(found - items.begin()));
}

void LineFinder::KindChosen() {
  Apply();
  if (preferences_ != nullptr) preferences_->Write(kPreference, static_cast<std::int32_t>(Kind()), kAll);
}

void LineFinder::ShowAll() {
  txtFindLine.SetText({});
  if (!cboLineKind.Visible()) return Apply();
  cboLineKind.SetListIndex(0);
  KindChosen();
}

}  // namespace koru
