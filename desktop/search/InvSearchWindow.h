#pragma once

#include "desktop/forms/FormWindow.h"

class QBoxLayout;
class QLabel;

namespace koru {

class CriteriaBox;
class frmInvSearch;

/// The window of the counting search: the criteria in four boxes, the commands and the number of results, and
/// below them the results, which take the remaining height. Each time it is shown, the first criterion has
/// the focus. Enter in a criterion searches and moves to the results, where Enter opens a counting; Escape
/// closes.
class InvSearchWindow : public FormWindow {
  Q_OBJECT

 public:
  /// `records` must outlive the window; the form must live until it is unloaded.
  InvSearchWindow(frmInvSearch& form, SelectorRecords& records);

 protected:
  void showEvent(QShowEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void AddCriteria(QBoxLayout& window);
  void AddNumbers(CriteriaBox& box);
  void AddDates(CriteriaBox& box);
  void AddStoreAndPeople(CriteriaBox& box);
  void AddGoodsAndNotes(CriteriaBox& box);
  void AddCommands(QBoxLayout& window);
  void AddResults(QBoxLayout& window);
  QWidget* NewPerson(QWidget* parent, PersonSelector& person);
  void ShowEmptyResult();
  void Search();

  frmInvSearch& form_;
  SelectorRecords& records_;
  GridView* results_ = nullptr;
  QLabel* emptyResult_ = nullptr;
  Subscription rowsChanged_;
  Subscription countChanged_;
  Subscription newSearch_;  ///< also removes the marks of refused dates
};

}  // namespace koru
