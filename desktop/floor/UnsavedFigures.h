#pragma once

#include <cstdint>
#include <vector>

#include "counting/frmInvCounting.h"
#include "floor/FloorSession.h"

namespace koru {

/// What the devices of a session have sent, each figure once.
struct SentFigures {
  std::int64_t received = 0;
  std::int64_t refused = 0;  ///< those of them that did not enter the counting

  explicit SentFigures(const std::vector<FloorDevice>& devices);
};

/// The figures of a session that no save holds.
class UnsavedFigures {
 public:
  /// Of a session over the form; both must outlive the object.
  UnsavedFigures(frmInvCounting& form, const FloorSession& session);

  /// How many of them a Cancel would set aside; 0 where the entry is what the database has.
  [[nodiscard]] std::int64_t SetAsideByCancel() const;

 private:
  [[nodiscard]] std::int64_t Entered() const;

  frmInvCounting& form_;
  const FloorSession& session_;
  std::int64_t saved_ = 0;  ///< of the entered ones
  Subscription ticked_;
};

}  // namespace koru
