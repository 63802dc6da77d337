#pragma once

#include <QObject>
#include <vector>

class QAction;
class QMenu;
class QWidget;

namespace koru {

class GridView;

/// Blind entry at the desk: who types one count of the goods sees neither the book stock nor what follows
/// from it, nor what others have counted, so that the count is a count. Book stock, differences, rate,
/// amounts, the accepted count and the two other counts have no text in the view of the lines, whatever asks
/// for it, and keys, scans and pasted rows reach the one count alone. The form keeps everything: saving,
/// printing and export are as ever. Off at the start, and kept nowhere.
class BlindEntry : public QObject {
  Q_OBJECT

 public:
  /// Hides columns of `lines`, a view of a counting's lines, which must outlive the object.
  explicit BlindEntry(GridView& lines, QObject* parent = nullptr);

  /// What shows figures of all lines is hidden with the columns; shown again afterwards.
  void Conceals(QWidget& widget) { concealed_.push_back(&widget); }
  /// Adds the switch of each count to a menu.
  void AddTo(QMenu& menu);

  /// A bar that says that it is on and ends it; shown while it is.
  [[nodiscard]] QWidget* NewNotice(QWidget* parent);

  /// Only this count is entered: LineColumn::FirstCounting to ThirdCounting. A cell that is being edited and
  /// cannot be left keeps everything as it is.
  void Begin(int countColumn);
  void End();

  /// Whatever shows a figure, a sum or a mark of the lines asks this first.
  [[nodiscard]] bool IsOn() const { return column_ >= 0; }
  /// The count that is entered, by its title; empty while it is off.
  [[nodiscard]] QString CountTitle() const;
  /// Whether the column has no text in the view now.
  [[nodiscard]] bool Hides(int column) const;
  /// The count that is typed into; the first one while it is off.
  [[nodiscard]] int ColumnToFill() const;

 signals:
  /// It has been switched on, off, or to another count.
  void changed();

 private:
  void Show();

  GridView& lines_;
  std::vector<QWidget*> concealed_;
  std::vector<QAction*> switches_;  ///< one for each count
  int column_ = -1;                 ///< the count that is entered; -1: off
};

}  // namespace koru
