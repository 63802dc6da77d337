#pragma once

#include "desktop/forms/FormWindow.h"

class QBoxLayout;

namespace koru {

class frmMovedStock;

/// The window of the lines whose stock has moved: the lines with a check box each, the documents of the
/// current one below, and the commands. Space checks the current line, Escape closes.
class MovedStockWindow : public FormWindow {
  Q_OBJECT

 public:
  /// The form must live until it is unloaded.
  explicit MovedStockWindow(frmMovedStock& form);

 private:
  void AddLines(QBoxLayout& window);
  void AddDocuments(QBoxLayout& window);
  void AddCommands(QBoxLayout& window);

  frmMovedStock& form_;
};

}  // namespace koru
