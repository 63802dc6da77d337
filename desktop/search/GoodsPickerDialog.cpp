#include "desktop/search/GoodsPickerDialog.h"

#include <QApplication>
#include <utility>

#include "desktop/search/GoodsPickerWindow.h"
#include "services/FixQuote.h"

namespace koru {

void GoodsPickerDialog::SetConnectionString(const std::string& connectionString) {
  if (connectionString_ == connectionString) return;
  connectionString_ = connectionString;
  database_.reset();
}

void GoodsPickerDialog::Show() {
  if (!database_) database_ = databases_.Connect(connectionString_);
  GoodsFinder finder(*database_);
  auto picked = LetPick(finder, store_, several_ ? std::optional(picked_) : std::nullopt);
  if (picked) picked_ = std::move(*picked);
}

std::optional<std::vector<PickedGood>> GoodsPickerDialog::LetPick(
    GoodsFinder& finder, std::int32_t store, std::optional<std::vector<PickedGood>> basket) {
  GoodsPickerWindow window(finder, {store, finder.StoreName(store)}, std::move(basket),
                           QApplication::activeWindow());
  if (window.exec() != QDialog::Accepted) return std::nullopt;
  return window.Picked();
}

std::string GoodsPickerDialog::List() const {
  if (picked_.empty()) return {};
  std::string list = "(''";
  for (const PickedGood& good : picked_) list += ",'" + FixQuote(good.barcode) + "'";
  return list + ")";
}

}  // namespace koru
