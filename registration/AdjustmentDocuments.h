#pragma once

#include <cstdint>

#include "counting/controls/InvCountingControls.h"
#include "services/SharedState.h"

namespace koru {

/// The stock documents that follow from a counting: a dispatch takes the shortages out of the store, a
/// receipt brings the surpluses in. Both are temporary documents of the suite's own receipt and dispatch
/// components.
class AdjustmentDocuments {
 public:
  /// Both must outlive the object.
  AdjustmentDocuments(InvCountingControls& controls, SharedState& shared)
      : controls_(controls), shared_(shared) {}

  /// Removes the documents that an earlier registration wrote for the counting, then writes those that follow
  /// from its stored lines: first the dispatch, then the receipt. A document without lines is removed again,
  /// and the counting keeps its old link. Throws DatabaseError; what was written by then stays.
  void CreateAdjustmentDocuments();

 private:
  struct Texts;
  void CreateDocument(const Texts& texts);
  void InsertHeader(const Texts& texts);
  /// Copies the summed differences into the document; false when there are none.
  bool InsertLines(const Texts& texts, std::int32_t documentID);

  InvCountingControls& controls_;
  SharedState& shared_;
};

}  // namespace koru
