#pragma once

#include <string>
#include <vector>

#include "search/GoodSearchControls.h"

namespace koru {

/// The goods that a search was made for one by one, and what else it asked of them.
struct PickedGoods {
  struct Good {
    std::string barcode;
    std::string name;  ///< empty where the picker does not know it
  };
  std::vector<Good> goods;  ///< empty when the search was made by patterns
  std::string criteria;  ///< the other criteria by name, such as "رسيد در انبار"; empty when there is none
};

/// The criteria of the search by name, without barcode, name and code: a picked list replaces these.
[[nodiscard]] std::string CriteriaBesideTheList(const GoodSearchControls& criteria);

}  // namespace koru
