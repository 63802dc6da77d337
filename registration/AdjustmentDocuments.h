#pragma once

#include <cstdint>

#include "registration/CountingControls.h"
#include "services/SharedState.h"

namespace koru {

/// The stock documents that follow from a counting: a dispatch takes the shortages out of the store, a
/// receipt brings the surpluses in. Both are temporary documents of the suite's own receipt and dispatch
/// components.
class AdjustmentDocuments {
 public:
  /// `controls` and `shared` must outlive the object.
  AdjustmentDocuments(const CountingControls& controls, SharedState& shared)
      : controls_(controls), shared_(shared) {}

  /// Removes the documents that were written for the counting before and writes those that its stored lines
  /// ask for: first the dispatch, then the receipt. A document without lines is removed again, and the
  /// counting keeps its old link. Throws DatabaseError; what was written before stays.
  void CreateAdjustmentDocuments();

 private:
  struct Texts;
  void CreateDocument(const Texts& texts);
  void InsertHeader(const Texts& texts);
  /// Copies the summed differences into the document; false when there are none.
  bool InsertLines(const Texts& texts, std::int32_t documentID);

  const CountingControls& controls_;
  SharedState& shared_;
};

}  // namespace koru
