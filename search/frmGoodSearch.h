#pragma once

#include <cstdint>
#include <functional>

#include "platform/controls/Form.h"
#include "search/GoodSearchControls.h"
#include "search/GoodsPicking.h"
#include "services/SharedState.h"

namespace koru {

/// The goods search: states which goods are to be added to the counting. It lists none itself; it leaves a
/// condition on tblGood behind and hides, so that the criteria are still there the next time.
class frmGoodSearch : public Form, public GoodSearchControls {
 public:
  /// `shared` and `GoodSearchCondition`, the counting form's, must outlive the form. `chosenStore` answers
  /// the store that is chosen on the counting form, Selector::kNothing when none is.
  frmGoodSearch(SharedState& shared, SqlText& GoodSearchCondition, std::function<std::int32_t()> chosenStore);

  /// The form's start-up: InitializeComponents, Clear, the counting's store, the goods picker. Runs once;
  /// after a failure (DatabaseError) the next call runs it again.
  void Load();
  /// Sets up the selectors and fills the lists of currencies and goods types. Throws DatabaseError.
  void InitializeComponents();
  /// Resets every criterion and the goods picker; nothing has been asked for afterwards.
  void Clear();

  void Activate() override { SetFocus(cmdSearch); }

 private:
  void ConnectEvents();
  void Search();
  void RouteShortcut(KeyPress press);

  SharedState& shared_;
  SqlText& goodSearchCondition_;
  std::function<std::int32_t()> chosenStore_;
  GoodsPicking picking_;
  bool started_ = false;
};

}  // namespace koru
