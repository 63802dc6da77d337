#pragma once

#include <QWidget>

#include "desktop/forms/FormBinding.h"

namespace koru {

/// The window of a form: shows its title, and closing it by its frame asks the form.
class FormWindow : public QWidget {
  Q_OBJECT

 public:
  explicit FormWindow(Form& form);

  [[nodiscard]] FormBinding& Binding() { return binding_; }
  /// In front of the other windows and with the keyboard, also when it was minimised.
  void ComeToFront();
  /// The form goes: nothing of it is touched from now on.
  void LetGo();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  Form* form_;
  Subscription changed_;
  FormBinding binding_;
};

}  // namespace koru
