#pragma once

#include <optional>
#include <vector>

#include "siblings/goods/SuiteGoodsPicker.h"

namespace koru {

/// Picks goods in a modal window above the active one (see PickGoods). A database that fails while the window
/// is open is reported in it.
[[nodiscard]] std::optional<std::vector<PickedGood>> PickInDialog(GoodsFinder& finder, PickRequest request);

}  // namespace koru
