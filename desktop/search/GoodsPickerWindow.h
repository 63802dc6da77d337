#pragma once

#include <QDialog>
#include <QTimer>
#include <optional>
#include <vector>

#include "siblings/goods/GoodsFinder.h"

class QBoxLayout;
class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace koru {

class GoodsList;

/// The store whose goods are listed initially.
struct OfferedStore {
  std::int32_t id = GoodsFinder::kAllStores;
  std::string name;
};

/// A dialog for picking one good, or several into a basket. The list follows the search line; the arrow keys
/// move in the list while the search line keeps the focus. Enter or a double click takes a good, Delete
/// removes one from the basket, Ctrl+Enter accepts, Escape cancels. A database error is shown in place of the
/// list; the next key retries.
class GoodsPickerWindow : public QDialog {
  Q_OBJECT

 public:
  /// `finder` must outlive the window. With a store, only its goods are listed until the user asks for all.
  /// `basket` contains the goods picked before; without a basket, one good is picked.
  GoodsPickerWindow(GoodsFinder& finder, OfferedStore store, std::optional<std::vector<PickedGood>> basket,
                    QWidget* parent);

  /// The picked goods; valid after the dialog was accepted.
  [[nodiscard]] const std::vector<PickedGood>& Picked() const { return picked_; }

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void AddSearchLine(QBoxLayout& window);
  void AddLists(QBoxLayout& window);
  void AddBasket(QBoxLayout& row);
  void AddButtons(QBoxLayout& window);
  QPushButton* AddButton(QBoxLayout& bar, const char* name, const QString& text);
  bool KeyPressed(const QObject* object, int key, Qt::KeyboardModifiers held);
  void Find();
  void ShowFound(const FoundGoods& found);
  void ShowStatus(const QString& text, bool failure);
  void Take();
  void RemoveFromBasket();
  void ShowBasket(int current);

  GoodsFinder& finder_;
  OfferedStore store_;
  bool several_;
  std::vector<PickedGood> found_;
  std::vector<PickedGood> picked_;
  QTimer
      typed_;  ///< runs out at once, but after the keys that are waiting: a scanner types faster than we find
  QLineEdit* filter_ = nullptr;
  QCheckBox* storeOnly_ = nullptr;
  GoodsList* results_ = nullptr;
  GoodsList* basket_ = nullptr;
  QLabel* basketTitle_ = nullptr;
  QLabel* status_ = nullptr;
  QPushButton* ok_ = nullptr;
};

}  // namespace koru
