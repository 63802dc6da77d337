#pragma once

#include <QWidget>
#include <cstdint>

#include "desktop/fields/SelectorRecords.h"

class QAction;
class QLineEdit;
class QToolButton;

namespace koru {

class SelectorPopup;

/// Shows the selected record of a tree or person selector. F4, Alt+Down, the button or typing opens the list
/// to pick another; Delete or the cross clears the selection.
class SelectorEdit : public QWidget {
  Q_OBJECT

 public:
  explicit SelectorEdit(QWidget* parent = nullptr);

  void SetShown(const QString& text, std::int32_t selected);
  void SetPlaceholder(const QString& text);
  /// Opens the list; the response to openRequested.
  void Open(const std::vector<SelectorRecord>& records, const QString& typed);

 signals:
  /// The user opens the list; `typed` is the text typed so far. The receiver calls Open.
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
