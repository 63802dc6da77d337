#include "desktop/search/GoodsPickerDialog.h"

#include <QApplication>
#include <optional>

#include "control/services/FixQuote.h"
#include "desktop/search/GoodsPickerWindow.h"

namespace koru {

void GoodsPickerDialog::SetConnectionString(const std::string& connectionString) {
  if (connectionString_ == connectionString) return;
  connectionString_ = connectionString;
  database_.reset();
}

void GoodsPickerDialog::Show() {
  if (!database_) database_ = databases_.Connect(connectionString_);
  GoodsFinder finder(*database_);
  const OfferedStore store{store_, finder.StoreName(store_)};
  GoodsPickerWindow window(finder, store, several_ ? std::optional(picked_) : std::nullopt,
                           QApplication::activeWindow());
  if (window.exec() == QDialog::Accepted) picked_ = window.Picked();
}

std::string GoodsPickerDialog::List() const {
  if (picked_.empty()) return {};
  std::string list = "(''";
  for (const PickedGood& good : picked_) list += ",'" + FixQuote(good.barcode) + "'";
  return list + ")";
}

}  // namespace koru
