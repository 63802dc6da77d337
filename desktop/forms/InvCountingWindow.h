#pragma once

#include <vector>

#include "desktop/forms/FormWindow.h"

class QAction;
class QBoxLayout;
class QMenu;
class QPushButton;

namespace koru {

class BlindEntry;
class frmInvCounting;
class GridView;
class LineFinderBar;
class StatusLine;

/// The window of the counting form: the commands at the top, then the header of the document and the people
/// involved, the commands for lines and the lines, and the totals at the bottom.
class InvCountingWindow : public FormWindow {
  Q_OBJECT

 public:
  /// `records` must outlive the window; the form must live until it is unloaded.
  InvCountingWindow(frmInvCounting& form, SelectorRecords& records);

  /// Whether figures of the lines are kept from who counts: whatever shows some asks it.
  [[nodiscard]] const BlindEntry& Blind() const { return *blind_; }

  // What extends the window from another box.

  [[nodiscard]] GridView& Lines() const { return *lines_; }
  /// Adds a command to the menu of operations.
  void AddOperation(QAction& command);
  /// Adds a bar above the lines, which shows and hides itself.
  void AddBar(QWidget& bar);

 protected:
  [[nodiscard]] QString Title() const override;

 private:
  void FollowDocument();
  void AddDocumentCommands(QBoxLayout& window);
  void AddMenu(QBoxLayout& bar);
  void AddMovedStock(QMenu& menu);
  void AddLineCommands(QBoxLayout& window);
  void AddUnsavedNotice(QBoxLayout& window);
  void AddScanOffer(QBoxLayout& window);
  void AddLineFinder(QBoxLayout& window);
  void AddLines(QBoxLayout& window);
  void AddTotals(QBoxLayout& window);
  void ShowKeysOfLines();
  void CommandDone(const Button& command);
  void GoToLine(int row);
  QPushButton& AddCommand(QBoxLayout& bar, Button& command, const char* shortcut,
                          BlockedBy blockedBy = BlockedBy::Figures);
  void AddTotal(QBoxLayout& bar, const QString& title, TextBox& total, const QColor& color);

  frmInvCounting& form_;
  LineFinderBar* finder_ = nullptr;
  GridView* lines_ = nullptr;
  QWidget* lastInOrder_ = nullptr;  ///< the last field that Tab visits, while the window is made
  BlindEntry* blind_ = nullptr;
  int added_ = 0;  ///< the number of goods that the running command has added
  QMenu* menu_ = nullptr;
  QAction* lastOperation_ = nullptr;  ///< the separator after the commands that can be added to
  QBoxLayout* bars_ = nullptr;
  StatusLine* status_ = nullptr;  ///< what a command did, otherwise the keys of the lines
  Subscription goodsAdded_;
  Subscription reported_;
  Subscription cancelled_;
  Subscription linesChecked_;
  Subscription scanOffered_;
  Subscription keyPressed_;  ///< the next key restores the hint
  Subscription returnChecked_;
  std::vector<Subscription> document_;
};

}  // namespace koru
