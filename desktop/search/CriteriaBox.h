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

/// A titled group of search criteria. Each row has a field next to its name, or a lower and an upper bound.
/// Rows appear in the order in which they are added; the tab order is the order in which the fields are
/// created.
class CriteriaBox : public QGroupBox {
  Q_OBJECT

 public:
  /// `columns`: the number of named fields next to each other in a row.
  CriteriaBox(const QString& title, QWidget* parent, int columns = 2);

  void AddRow(const QString& name, QWidget& field);
  void AddRow(QLabel& name, QWidget& field);
  /// Fields next to each other, each with its own name.
  void AddFields(std::initializer_list<std::pair<QLabel*, QWidget*>> fields);
  /// The lower and the upper bound of one criterion.
  void AddRange(const QString& name, QWidget& from, QWidget& to);
  /// Widgets without names, from right to left.
  void AddLine(std::initializer_list<QWidget*> widgets);

  QLabel* NewName(const QString& text);

 private:
  QGridLayout* rows_;
  int columns_;
  int count_ = 0;
};

/// Adds a command button to a search window. Enter presses the button that has the focus. The tooltip shows
/// `keys`, the shortcut. `main` marks the window's default command, which refused dates block.
QPushButton* AddSearchCommand(QBoxLayout& bar, FormBinding& binding, Button& command, const QString& keys,
                              bool main = false);

}  // namespace koru
