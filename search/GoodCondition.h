#pragma once

#include <string>
#include <string_view>

#include "platform/sql/SqlText.h"
#include "search/GoodSearchControls.h"

namespace koru {

/// Builds the condition on tblGood from the criteria of the goods search, to be put after "Where ". Barcode
/// and code patterns are written as they were typed; name and notes are trimmed and their apostrophes
/// doubled.
class GoodCondition {
 public:
  explicit GoodCondition(const GoodSearchControls& criteria);

  /// The condition of a goods search that has picked this good alone.
  [[nodiscard]] static SqlText OfGood(std::string_view barcode);

  /// Never empty: goods without a barcode are always excluded.
  [[nodiscard]] const SqlText& Text() const { return condition_; }

 private:
  void And(const SqlText& fragment);
  void AddLimits();
  void AddLimit(FixedSql comparison, const TextBox& typed);
  void AddDiscounts();
  void AddPatterns();
  /// `like` opens the literal; `preciseEnd` closes the literal of a precise pattern.
  void AddPattern(FixedSql like, std::string_view written, FixedSql preciseEnd);
  void AddUnitsAndTypes();
  void AddKey(FixedSql comparison, const TreeSelector& selector);
  void AddBranch(FixedSql column, const TreeSelector& node, const CheckBox& withBranches,
                 FixedSql childTable);
  void AddStore();

  const GoodSearchControls& criteria_;
  SqlText condition_;
};

}  // namespace koru
