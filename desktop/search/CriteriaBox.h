#pragma once

#include <QGroupBox>
#include <initializer_list>
#include <utility>

class QBoxLayout;
class QGridLayout;
class QLabel;
class QPushButton;

namespace koru {

class Button;
class FormBinding;

/// Criteria of a search window that belong together, under a title: in each row a field beside its name, or
/// two bounds. Rows come one below the other in the order in which they are added; the keyboard goes through
/// fields in the order in which they were made.
class CriteriaBox : public QGroupBox {
  Q_OBJECT

 public:
  /// `columns`: how many named fields stand beside each other in a row.
  CriteriaBox(const QString& title, QWidget* parent, int columns = 2);

  void AddRow(const QString& name, QWidget& field);
  void AddRow(QLabel& name, QWidget& field);
  /// Fields beside each other, each with its own name.
  void AddFields(std::initializer_list<std::pair<QLabel*, QWidget*>> fields);
  /// Lower and upper bound of one thing.
  void AddRange(const QString& name, QWidget& from, QWidget& to);
  /// Widgets without names, one behind the other.
  void AddLine(std::initializer_list<QWidget*> widgets);

  QLabel* NewName(const QString& text);

 private:
  QGridLayout* rows_;
  int columns_;
  int count_ = 0;
};

/// A command of a search window: Enter presses the one that has the keyboard. `keys` tells in its tooltip how
/// it can be reached without going there; `main` marks the one that the window is for, which waits for dates
/// to be right.
QPushButton* AddSearchCommand(QBoxLayout& bar, FormBinding& binding, Button& command, const QString& keys,
                              bool main = false);

}  // namespace koru
