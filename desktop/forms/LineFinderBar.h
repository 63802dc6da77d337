#pragma once

#include <QWidget>

#include "counting/LineFinder.h"

class QBoxLayout;
class QComboBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;

namespace koru {

class GridView;
class LineProgress;

/// The line above the lines of a counting: the box that finds them (Ctrl+F), the list of their kinds with the
/// number of lines of each, a notice while some are hidden, and how far the counting is. Enter and Down in
/// the box move to the lines, and Escape empties it before.
class LineFinderBar : public QWidget {
  Q_OBJECT

 public:
  /// `finder` must outlive the bar's use by the form: it is not read after the form was unloaded.
  LineFinderBar(LineFinder& finder, QWidget* parent);

  [[nodiscard]] QLineEdit& Box() const { return *box_; }
  [[nodiscard]] QComboBox& Kinds() const { return *kinds_; }
  /// How far the counting is.
  [[nodiscard]] QWidget& Progress() const;
  /// Where the command that shows all lines belongs.
  [[nodiscard]] QBoxLayout& PlaceOfCommand() const;

  /// Applies the filter to this view, now and whenever the form does.
  void Follow(GridView& lines);

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void Apply();
  void KeepRoomForNotice();
  void ShowLater();
  void ShowNow();
  bool KeyPressed(int key);

  LineFinder& finder_;
  QLineEdit* box_;
  QComboBox* kinds_;
  QWidget* room_;  ///< of the notice and the command, also while they are hidden
  QLabel* notice_;
  QHBoxLayout* command_;
  LineProgress* progress_;
  GridView* lines_ = nullptr;
  bool requested_ = false;
  Subscription applied_;
  Subscription rowsChanged_;
};

}  // namespace koru
