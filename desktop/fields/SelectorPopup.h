#pragma once

#include <QFrame>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <cstdint>
#include <vector>

#include "desktop/fields/SelectorRecords.h"

class QLineEdit;
class QTreeView;

namespace koru {

/// The list or tree that drops down under a selector, with a filter above it. It shows the records whose
/// names contain the filter's text; variants of Persian letters and digits match. Records that are not
/// offered are pale and cannot become current. Enter picks, Escape closes.
class SelectorPopup : public QFrame {
  Q_OBJECT

 public:
  explicit SelectorPopup(QWidget* parent);

  void OpenUnder(const QWidget& field, const std::vector<SelectorRecord>& records, std::int32_t selected,
                 const QString& typed);

 signals:
  void picked(std::int32_t id);

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void Fill(const std::vector<SelectorRecord>& records);
  void Narrow(const QString& typed);
  void Show(std::int32_t selected);
  void Pick(const QModelIndex& index);
  [[nodiscard]] QModelIndex FirstMatch(const QModelIndex& under) const;

  QLineEdit* filter_;
  QTreeView* view_;
  QStandardItemModel records_;
  QSortFilterProxyModel shown_;
};

}  // namespace koru
