#pragma once

#include "desktop/forms/FormWindow.h"

class QBoxLayout;
class QComboBox;
class QGridLayout;

namespace koru {

class ComboBox;
class frmCountImport;

/// The window of the preview of counts from a file: the choice of columns and rules, a sentence about what
/// comes in, and each figure with what becomes of it, problems first. Escape cancels.
class CountImportWindow : public FormWindow {
  Q_OBJECT

 public:
  /// The form must live until it is unloaded.
  explicit CountImportWindow(frmCountImport& form);

 private:
  void AddFile(QBoxLayout& window);
  void AddColumns(QBoxLayout& window);
  void AddRules(QBoxLayout& window);
  void AddPreview(QBoxLayout& window);
  void AddCommands(QBoxLayout& window);
  QComboBox* AddChoice(QGridLayout& box, int row, int column, const QString& title, ComboBox& control);

  frmCountImport& form_;
};

}  // namespace koru
