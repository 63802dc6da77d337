#pragma once

#include <cstdint>
#include <optional>

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

  /// The keys of the documents of a counting.
  struct Written {
    std::optional<std::int32_t> dispatch;
    std::optional<std::int32_t> receipt;
  };

  /// Removes the documents that an earlier registration wrote for the counting, then writes those that follow
  /// from its stored lines: first the dispatch, then the receipt. A document without lines is removed again,
  /// and the counting keeps its old link. Throws DatabaseError; what was written by then stays.
  Written CreateAdjustmentDocuments();

 private:
  struct Texts;
  /// The key of the document; nothing when it has no lines.
  std::optional<std::int32_t> CreateDocument(const Texts& texts);
  void InsertHeader(const Texts& texts);
  /// Copies the summed differences into the document; false when there are none.
  bool InsertLines(const Texts& texts, std::int32_t documentID);

  InvCountingControls& controls_;
  SharedState& shared_;
};

}  // namespace koru
