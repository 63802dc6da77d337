#pragma once

#include <QWidget>
#include <cstdint>

#include "desktop/fields/SelectorRecords.h"

class QAction;
class QLineEdit;
class QToolButton;

namespace koru {

class SelectorPopup;

/// Shows the record that a tree or person selector holds, and lets the person pick another: F4, Alt+Down, the
/// button or simply typing opens the list; Delete or the cross selects nothing.
class SelectorEdit : public QWidget {
  Q_OBJECT

 public:
  explicit SelectorEdit(QWidget* parent = nullptr);

  void SetShown(const QString& text, std::int32_t selected);
  void SetPlaceholder(const QString& text);
  /// Opens the list that openRequested asked for.
  void Open(const std::vector<SelectorRecord>& records, const QString& typed);

 signals:
  /// The person wants to see the records; `typed` is what they have typed already. To be answered by Open.
  void openRequested(const QString& typed);
  void recordChosen(std::int32_t id);

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  bool KeyPressed(int key, Qt::KeyboardModifiers held, const QString& text);
  void ShowCross();

  QLineEdit* edit_;
  QToolButton* button_;
  QAction* cross_;
  SelectorPopup* popup_ = nullptr;
  std::int32_t selected_ = Selector::kNothing;
};

}  // namespace koru
