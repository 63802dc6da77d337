#include "scenario/ControlWords.h"

#include "platform/controls/Button.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/DateBox.h"
#include "platform/controls/Grid.h"
#include "platform/controls/Label.h"
#include "platform/controls/MenuItem.h"
#include "platform/controls/OptionButton.h"
#include "platform/controls/ProgressBar.h"
#include "platform/controls/Selector.h"
#include "platform/controls/TextBox.h"

namespace koru {
namespace {

ScenarioWord Quoted(std::string text) { return {std::move(text), true}; }
ScenarioWord Bare(std::string text) { return {std::move(text), false}; }
ScenarioWord OnOff(bool on) { return Bare(on ? "on" : "off"); }

}  // namespace

std::optional<ScenarioWord> ContentOf(const Control& control) {
  if (const auto* box = dynamic_cast<const TextBox*>(&control)) return Quoted(box->Text());
  if (const auto* label = dynamic_cast<const Label*>(&control)) return Quoted(label->Caption());
  if (const auto* button = dynamic_cast<const Button*>(&control)) return Quoted(button->Caption());
  if (const auto* item = dynamic_cast<const MenuItem*>(&control)) return Quoted(item->Caption());
  if (const auto* check = dynamic_cast<const CheckBox*>(&control)) return OnOff(check->Checked());
  if (const auto* option = dynamic_cast<const OptionButton*>(&control)) return OnOff(option->Chosen());
  if (const auto* bar = dynamic_cast<const ProgressBar*>(&control)) return Bare(std::to_string(bar->Value()));
  if (const auto* date = dynamic_cast<const DateBox*>(&control)) {
    return Bare(date->IsEmpty() ? "empty" : date->PersianText());
  }
  if (const auto* selector = dynamic_cast<const Selector*>(&control)) {
    return Bare(selector->NothingSelected() ? "nothing" : std::to_string(selector->SelectedID()));
  }
  if (const auto* list = dynamic_cast<const ComboBox*>(&control)) {
    return list->Chosen() == nullptr ? Bare("nothing") : Quoted(list->Chosen()->text);
  }
  return std::nullopt;
}

bool IsLocked(const Control& control) {
  if (const auto* box = dynamic_cast<const TextBox*>(&control)) return box->Locked();
  if (const auto* list = dynamic_cast<const ComboBox*>(&control)) return list->Locked();
  if (const auto* grid = dynamic_cast<const Grid*>(&control)) return grid->Locked();
  return false;
}

std::string Written(const ScenarioWord& word) {
  return word.quoted ? QuotedForScenario(word.text) : word.text;
}

}  // namespace koru
