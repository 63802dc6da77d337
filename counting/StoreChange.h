#pragma once

#include <cstdint>

#include "platform/controls/Grid.h"
#include "platform/controls/Selector.h"
#include "services/SharedState.h"

namespace koru {

/// Tests a store that was chosen for the counting on the form: the user must be allowed to work in it, it
/// must have no child stores, and lines that are on the grid already are not put under another store without
/// a question.
class StoreChange {
 public:
  /// The default store of the form; -1 when there is none.
  static constexpr std::int32_t kNoDefaultStore = -1;

  StoreChange(SharedState& shared, TreeSelector& gmpInventory, const Grid& flexDetail,
              const std::int32_t& defaultStore)
      : shared_(shared), gmpInventory_(gmpInventory), flexDetail_(flexDetail), defaultStore_(defaultStore) {}

  /// To be called when the selection of gmpInventory has changed. Throws DatabaseError, and no store is
  /// selected then.
  void Run();

 private:
  void Test();
  [[nodiscard]] bool MayWorkThere();
  [[nodiscard]] bool HasChildren();
  void RestoreDefaultStore();
  void AskAboutLines();

  SharedState& shared_;
  TreeSelector& gmpInventory_;
  const Grid& flexDetail_;
  const std::int32_t& defaultStore_;
};

}  // namespace koru
