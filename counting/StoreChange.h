#pragma once

#include <cstdint>

#include "counting/controls/InvCountingControls.h"
#include "services/SharedState.h"

namespace koru {

/// The store of the counting on the form: the selector's set-up, the default store, and the tests of a store
/// that was chosen. The user must be allowed to work in the store, it must have no child stores, and the user
/// confirms before existing lines come under another store.
class StoreChange {
 public:
  /// The default store when no store is marked as one.
  static constexpr std::int32_t kNoDefaultStore = -1;

  /// Both must outlive the object.
  StoreChange(InvCountingControls& controls, SharedState& shared)
      : gmpInventory_(controls.gmpInventory), flexDetail_(controls.flexDetail), shared_(shared) {}

  /// Sets up gmpInventory and reads the default store. Throws DatabaseError.
  void SetUp();
  /// The store proposed for a new counting, or kNoDefaultStore.
  [[nodiscard]] std::int32_t DefaultStore() const { return defaultStore_; }

  /// Tests the selected store; to be called after a change of the selection. Throws DatabaseError, and no
  /// store is selected then.
  void Run();

 private:
  void Test();
  [[nodiscard]] bool MayWorkThere();
  [[nodiscard]] bool HasChildren();
  void RestoreDefaultStore();
  void AskAboutLines();

  TreeSelector& gmpInventory_;
  const Grid& flexDetail_;
  SharedState& shared_;
  std::int32_t defaultStore_ = kNoDefaultStore;
};

}  // namespace koru
