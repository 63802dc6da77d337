#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/controls/Event.h"
#include "registration/StoredCounting.h"
#include "services/SharedState.h"

namespace koru {

/// Keeps one station from overwriting in silence what another one has stored: before a command writes, it
/// compares the stored counting with the one that was loaded, and reports or asks where they differ.
class StoredCountingGuard {
 public:
  /// What a command is about to do with the stored counting.
  enum class Purpose { Save, Delete };

  /// `shared` must outlive the object.
  explicit StoredCountingGuard(SharedState& shared) : shared_(shared), stored_(shared.data) {}
  StoredCountingGuard(const StoredCountingGuard&) = delete;
  StoredCountingGuard& operator=(const StoredCountingGuard&) = delete;
  ~StoredCountingGuard() = default;

  [[nodiscard]] StoredCounting& Stored() { return stored_; }
  /// Whether the counting was stored when it was compared last.
  [[nodiscard]] bool IsStored() const { return isStored_; }

  /// Begins the write batch of a command. Inside the batch the stored counting is the one that the user has
  /// loaded, or has agreed to overwrite; the user is asked while no lock is held. nullptr: the counting is
  /// gone, final, or the user does not want to overwrite it; a message has said so, and nothing was written.
  /// Throws DatabaseError.
  [[nodiscard]] std::unique_ptr<WriteBatch> BeginWrite(Purpose purpose);

  /// Whether the counting on the form can be edited as it is shown. When another station has changed it, the
  /// stored one takes its place on the form first; when it is gone or final, a message says so. Throws
  /// DatabaseError.
  [[nodiscard]] bool MayEdit();

  /// Shows the user that the counting on the form was deleted by another station.
  void ReportGone() const;

  /// Asks for the counting of that key to be read again and shown in place of the one on the form.
  Event<std::int32_t> StoredWanted;

 private:
  [[nodiscard]] bool MayOverwrite(const CountingSnapshot& now, Purpose purpose);
  void ReportFinal(const CountingSnapshot& now, Purpose purpose);
  [[nodiscard]] std::string Differences(const CountingSnapshot& now) const;
  [[nodiscard]] std::string LastSaver(const CountingSnapshot& now) const;

  SharedState& shared_;
  StoredCounting stored_;
  bool isStored_ = true;
};

}  // namespace koru
