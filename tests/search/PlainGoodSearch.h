#pragma once

#include <array>
#include <functional>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "search/frmGoodSearch.h"
#include "tests/search/TypedPools.h"

namespace koru {

/// The criteria of the goods search as plain values, and the condition that they must give.
struct PlainGoodSearch {
  /// Upper and lower bound of price, quantity, currency price and discount.
  std::array<NumberCase, 8> limits;
  bool knownDiscount = true;
  bool unknownDiscount = true;
  std::string picked, barcode, title, code, notes;
  bool precise = true;
  int currency = -1;  ///< place in the list
  int type = -1;      ///< place in the list
  std::optional<int> saleUnit, purchaseUnit, group, location, store;
  bool allGroups = true;
  bool allLocations = true;

  [[nodiscard]] std::string Condition(const std::vector<int>& currencies,
                                      const std::vector<int>& types) const;
  /// Fills the form as a user would, beginning with New search.
  void FillIn(frmGoodSearch& form) const;
};

/// For each criterion, something that makes it count.
using GoodCriterion = std::function<void(PlainGoodSearch&, std::mt19937&)>;
[[nodiscard]] std::vector<GoodCriterion> GoodCriteria();

}  // namespace koru
