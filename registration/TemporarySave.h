#pragma once

#include <functional>

#include "registration/CountingControls.h"
#include "registration/CountingWriter.h"
#include "services/SharedState.h"

namespace koru {

/// The command cmdTmpSave: saves the counting without giving it a final number.
class TemporarySave {
 public:
  /// The form behind `controls` and `shared` must outlive the operation; `disablelockcomponent` brings the
  /// form's controls into line with the document mode.
  TemporarySave(const CountingControls& controls, SharedState& shared,
                std::function<void()> disablelockcomponent);
  TemporarySave(const TemporarySave&) = delete;
  TemporarySave& operator=(const TemporarySave&) = delete;
  ~TemporarySave() = default;

  /// A user without the right is told so and nothing happens. Throws DatabaseError; what was written before
  /// stays.
  void Run();

 private:
  CountingControls controls_;
  SharedState& shared_;
  std::function<void()> disablelockcomponent_;
  CountingWriter writer_;
};

}  // namespace koru
