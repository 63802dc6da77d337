#pragma once

#include <memory>
#include <optional>
#include <string>

#include "draft/CountingDraft.h"
#include "platform/ports/DraftStore.h"
#include "services/Messages.h"

namespace koru {

/// What a user was entering when a program ended. While the object exists, nobody else finds it; its
/// destruction leaves it for later.
class LeftDraft {
 public:
  /// The latest one of that owner; nothing when there is none. A damaged one is set aside and reported to the
  /// user.
  [[nodiscard]] static std::optional<LeftDraft> Find(DraftStore& store, const DraftOwner& owner,
                                                     const Messages& messages);

  [[nodiscard]] const CountingDraft& Contents() const { return contents_; }
  /// A sentence that says what it is and when it was written.
  [[nodiscard]] std::string Sentence() const;
  /// Removes it for good. Throws InputError.
  void Discard() { kept_->Remove(); }
  /// Hands it over to the entry that continues it.
  [[nodiscard]] std::unique_ptr<Draft> Take() { return std::move(kept_); }

 private:
  LeftDraft(CountingDraft contents, std::unique_ptr<Draft> kept)
      : contents_(std::move(contents)), kept_(std::move(kept)) {}

  CountingDraft contents_;
  std::unique_ptr<Draft> kept_;
};

}  // namespace koru
