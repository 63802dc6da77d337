#pragma once

#include <QWidget>

#include "desktop/forms/FormBinding.h"

class QPushButton;

namespace koru {

/// The window of a form: shows the form's title, and asks the form when the user closes the window.
class FormWindow : public QWidget {
  Q_OBJECT

 public:
  explicit FormWindow(Form& form);

  [[nodiscard]] FormBinding& Binding() { return binding_; }
  /// Raises and activates the window, also when it was minimised.
  void ComeToFront();
  /// Called when the form is destroyed; the window does not access it afterwards.
  void Detach();

 protected:
  /// The title of the window: that of the form, which is kept while the form has none.
  [[nodiscard]] virtual QString Title() const;
  /// Shows another Title.
  void ShowTitle();
  void closeEvent(QCloseEvent* event) override;
  /// The command button that has the focus; nullptr if none has.
  [[nodiscard]] QPushButton* FocusedCommand() const;
  /// Enter presses the focused command button, as Space does.
  void keyPressEvent(QKeyEvent* event) override;

 private:
  Form* form_;
  Subscription changed_;
  FormBinding binding_;
};

}  // namespace koru
