#include "scenario/WatchedScreen.h"

#include <algorithm>

#include "platform/text/Text.h"

namespace koru {

void WatchedScreen::Show(Form& form, bool modal) {
  Forget(form);
  shown_.push_back({&form, modal, form.Unloaded.Subscribe([this, &form] { Forget(form); })});
  inner_.Show(form, modal);
}

Form* WatchedScreen::ActiveForm() const {
  const auto forms = Forms();
  const auto found =
      std::find_if(forms.begin(), forms.end(), [](const Form* form) { return form->Visible(); });
  return found == forms.end() ? nullptr : *found;
}

Form* WatchedScreen::Find(std::string_view name) const {
  const auto forms = Forms();
  const auto found = std::find_if(forms.begin(), forms.end(),
                                  [&](const Form* form) { return EqualsNoCase(form->Name(), name); });
  return found == forms.end() ? nullptr : *found;
}

bool WatchedScreen::IsModal(const Form& form) const {
  return std::any_of(shown_.begin(), shown_.end(),
                     [&](const Shown& shown) { return shown.form == &form && shown.modal; });
}

std::vector<Form*> WatchedScreen::Forms() const {
  std::vector<Form*> forms;
  for (const Shown& shown : shown_) forms.insert(forms.begin(), shown.form);
  return forms;
}

void WatchedScreen::Forget(const Form& form) {
  std::erase_if(shown_, [&](const Shown& shown) { return shown.form == &form; });
}

}  // namespace koru
