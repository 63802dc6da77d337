#pragma once

#include <functional>

#include "registration/AdjustmentDocuments.h"
#include "registration/CountingControls.h"
#include "registration/CountingWriter.h"
#include "services/SharedState.h"

namespace koru {

/// The command cmdIsFinalized: saves the counting, gives it the next number of the one sequence of all
/// countings, and writes the documents that bring the book stock into line with what was counted.
class FinalRegistration {
 public:
  /// The form behind `controls` and `shared` must outlive the operation; `disablelockcomponent` brings the
  /// form's controls into line with the document mode.
  FinalRegistration(const CountingControls& controls, SharedState& shared,
                    std::function<void()> disablelockcomponent);
  FinalRegistration(const FinalRegistration&) = delete;
  FinalRegistration& operator=(const FinalRegistration&) = delete;
  ~FinalRegistration() = default;

  /// A user without the right is told so and nothing happens. The number stands in txtCode before anything is
  /// saved, and in the database after all lines are. Throws DatabaseError; what was written before stays.
  void Run();

 private:
  void ShowNextCode();
  void StoreCode();

  CountingControls controls_;
  SharedState& shared_;
  std::function<void()> disablelockcomponent_;
  CountingWriter writer_;
  AdjustmentDocuments documents_;
};

}  // namespace koru
