#pragma once

#include <cstdint>
#include <functional>

#include "platform/controls/Form.h"
#include "search/InvSearchControls.h"
#include "services/SharedState.h"

namespace koru {

/// The counting search: finds countings by any combination of criteria and opens the one that is
/// double-clicked. It hides and never unloads itself, so that criteria and results are kept for the next
/// search.
class frmInvSearch : public Form, public InvSearchControls {
 public:
  /// `shared` must outlive the form. `ViewInvCounting` opens a counting on the counting form; false when it
  /// did not.
  frmInvSearch(SharedState& shared, std::function<bool(std::int32_t)> ViewInvCounting);

  /// Starts the form up: Initialize, then Clear. Runs once; after a failure (DatabaseError) the next call
  /// runs it again.
  void Load();
  /// Sets up the grid, the store and person selectors and the list of creators. Throws DatabaseError.
  void Initialize();
  /// Empties every criterion and the results; temporary and final countings are both searched for.
  void Clear();

  /// The user's settings of the windows, which the host keeps; nullptr if it keeps none.
  [[nodiscard]] PropertyBag* Preferences() const { return shared_.services.preferences; }

 private:
  void ConnectEvents();
  void Search();
  void OpenCurrentRow();

  SharedState& shared_;
  std::function<bool(std::int32_t)> viewInvCounting_;
  bool started_ = false;
};

}  // namespace koru
