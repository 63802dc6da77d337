#pragma once

#include "platform/sql/SqlText.h"
#include "search/InvSearchControls.h"

namespace koru {

/// Builds the statement that finds the countings which meet all criteria of the counting search. Typed texts
/// are trimmed and written unchanged.
class InvSearchQuery {
 public:
  explicit InvSearchQuery(const InvSearchControls& criteria);

  [[nodiscard]] const SqlText& Statement() const { return statement_; }

 private:
  void AddState(const CheckBox& temporary, const CheckBox& final);
  void AddNumber(FixedSql comparison, const TextBox& typed);
  /// `before` opens the literal of the text, `after` closes it.
  void AddText(FixedSql before, const TextBox& typed, FixedSql after);
  void AddChoice(FixedSql comparison, const ComboBox& list);
  void AddDate(FixedSql comparison, const DateBox& box);
  void AddStore(const TreeSelector& store, const CheckBox& withChildren);
  void AddPerson(FixedSql comparison, const PersonSelector& person);

  SqlText statement_;
};

}  // namespace koru
