#pragma once

#include <array>
#include <functional>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "search/frmInvSearch.h"
#include "tests/search/TypedPools.h"

namespace koru {

/// The criteria of the counting search as plain values, and the statement that they must give.
struct PlainInvSearch {
  bool temporary = true;
  bool final = true;
  NumberCase id1, id2, code1, code2;
  std::string minG, maxG, notes, barcode, name, code;
  int creator = -1;                  ///< place in the list of creators
  std::array<std::string, 6> dates;  ///< create, from and to date, lower and upper bound; yyyy-mm-dd or empty
  std::optional<int> store;
  bool withChildren = false;
  std::array<std::optional<int>, 4> people;  ///< three counters and the confirmer

  /// `creators`: the keys of the users in the order of the list.
  [[nodiscard]] std::string Statement(const std::vector<int>& creators) const;
  /// Fills the form as a user would, beginning with New search.
  void FillIn(frmInvSearch& form) const;
};

/// For each criterion, something that makes it count.
using CountingCriterion = std::function<void(PlainInvSearch&, std::mt19937&)>;
[[nodiscard]] std::vector<CountingCriterion> CountingCriteria();

}  // namespace koru
