#pragma once

#include <QWidget>
#include <vector>

#include "host/CountingModel.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QTableView;
class QVBoxLayout;

namespace koru {

/// All countings of the database with their state. A click on a title sorts, again the other way; typed words
/// and the state choose rows; Enter or a double click opens a counting.
class CountingList : public QWidget {
  Q_OBJECT

 public:
  explicit CountingList(QWidget* parent);

  /// Shows these countings; the current one stays current.
  void Show(std::vector<CountingRow> countings);
  /// Moves the keyboard focus to the rows.
  void FocusRows();

 signals:
  void countingWanted(int id);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void AddFilter(QVBoxLayout& list);
  void AddTable(QVBoxLayout& list);
  void Filter();
  void ShowCount();
  void FitColumns();
  [[nodiscard]] int CurrentID() const;
  void Choose(int id);

  CountingModel model_;
  CountingFilter filter_{model_};
  QLineEdit* text_ = nullptr;
  QComboBox* state_ = nullptr;
  QLabel* count_ = nullptr;
  QTableView* table_ = nullptr;
};

}  // namespace koru
