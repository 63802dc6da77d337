#pragma once

#include "desktop/forms/FormWindow.h"

class QAction;
class QBoxLayout;
class QLabel;
class QLineEdit;

namespace koru {

class CriteriaBox;
class SelectorEdit;
class ShortcutMenu;
class frmGoodSearch;
enum class MenuPlace;

/// The window of the goods search: the criteria in four boxes, the commands below. All functions have
/// shortcuts: F1 and the right mouse button open the menu with the shortcuts, F3 opens the goods picker,
/// Enter searches, Escape closes.
class GoodSearchWindow : public FormWindow {
  Q_OBJECT

 public:
  /// `records` must outlive the window; the form must live until it is unloaded.
  GoodSearchWindow(frmGoodSearch& form, SelectorRecords& records);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void AddGoods(CriteriaBox& box);
  void AddAmounts(CriteriaBox& box);
  void AddPlaces(CriteriaBox& box);
  void AddUnitsAndType(CriteriaBox& box);
  void AddCommands(QBoxLayout& window);
  void AddMenu();
  void AddClipboard();
  QLineEdit* NewField(QWidget* parent, TextBox& control, bool code);
  QLabel* NewName(QWidget* parent, Label& control);
  SelectorEdit* NewSelector(QWidget* parent, TreeSelector& control, const char* nothing);
  QWidget* NewCheck(QWidget* parent, CheckBox& control);
  void AddLimits(CriteriaBox& box, const char* name, TextBox& minimum, TextBox& maximum);
  void PopUp(MenuPlace place);
  void ShowHint();

  frmGoodSearch& form_;
  SelectorRecords& records_;
  ShortcutMenu* menu_ = nullptr;
  std::vector<QAction*> clipboard_;  ///< copying, pasting: in the menu at the mouse alone
  QLabel* hint_ = nullptr;
  std::vector<Subscription> subscribed_;
};

}  // namespace koru
