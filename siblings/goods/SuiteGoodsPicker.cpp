#include "siblings/goods/SuiteGoodsPicker.h"

#include <algorithm>
#include <utility>

#include "services/FixQuote.h"

namespace koru {

void SuiteGoodsPicker::SetConnectionString(const std::string& connectionString) {
  if (connectionString_ == connectionString) return;
  connectionString_ = connectionString;
  database_.reset();
}

void SuiteGoodsPicker::Show() {
  if (!database_) database_ = databases_.Connect(connectionString_);
  GoodsFinder finder(*database_);
  auto picked = pick_(finder, {store_, several_ ? std::optional(picked_) : std::nullopt});
  if (!picked) return;
  picked_ = std::move(*picked);
  leftStore_ = store_ != GoodsFinder::kAllStores && finder.Store() == GoodsFinder::kAllStores;
}

std::string SuiteGoodsPicker::NameOf(std::string_view barcode) const {
  const auto found = std::ranges::find(picked_, barcode, &PickedGood::barcode);
  return found == picked_.end() ? std::string() : found->name;
}

std::string SuiteGoodsPicker::List() const {
  if (picked_.empty()) return {};
  std::string list = "(''";
  for (const PickedGood& good : picked_) list += ",'" + FixQuote(good.barcode) + "'";
  return list + ")";
}

}  // namespace koru
