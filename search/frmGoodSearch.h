#pragma once

#include <cstdint>
#include <functional>
#include <utility>

#include "platform/controls/Form.h"
#include "search/GoodSearchControls.h"
#include "search/GoodsPicking.h"
#include "services/SharedState.h"

namespace koru {

/// The goods search: the user states which goods to add to the counting. The form lists no goods; Search
/// hands a condition on tblGood over and hides the form, which keeps its criteria for the next time.
class frmGoodSearch : public Form, public GoodSearchControls {
 public:
  /// `shared` must outlive the form. `SetGoodSearchCondition` hands the condition to the counting form, an
  /// empty one when the criteria were reset.
  frmGoodSearch(SharedState& shared, std::function<void(SqlText)> SetGoodSearchCondition);

  /// Hands conditions to another counting form from now on.
  void HandTo(std::function<void(SqlText)> SetGoodSearchCondition) {
    setGoodSearchCondition_ = std::move(SetGoodSearchCondition);
  }

  /// Starts the form up: InitializeComponents, Clear, the goods picker, and `store`, the one chosen on the
  /// counting form (Selector::kNothing: none). Runs once; after a failure (DatabaseError) the next call runs
  /// it again.
  void Load(std::int32_t store);
  /// Sets up the selectors and fills the lists of currencies and goods types. Throws DatabaseError.
  void InitializeComponents();
  /// Resets every criterion and the goods picker, and hands an empty condition over.
  void Clear();

  /// The goods that the last search was made for; none when it was made by patterns.
  [[nodiscard]] const PickedGoods& Picked() const { return picked_; }

  void Activate() override { SetFocus(cmdSearch); }

 private:
  void ConnectEvents();
  void Search();
  void RouteShortcut(KeyPress press);

  SharedState& shared_;
  std::function<void(SqlText)> setGoodSearchCondition_;
  GoodsPicking picking_;
  PickedGoods picked_;
  bool started_ = false;
};

}  // namespace koru
