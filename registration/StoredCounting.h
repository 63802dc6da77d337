#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "registration/StoredLine.h"
#include "services/dteInvCounting.h"

namespace koru {

/// What the database holds of a counting at one moment.
struct CountingSnapshot {
  bool exists = false;
  std::string code;                 ///< the final number; empty while the counting is temporary
  std::vector<std::string> header;  ///< the values of StoredCounting::HeaderFields, in that order
  std::int32_t lastSaverID = 0;     ///< the user who saved the counting last; 0: unknown
  LinesDigest lines;
};

/// Remembers the counting on the form as the database held it when it was last loaded or saved, and finds out
/// whether another station has changed it since.
class StoredCounting {
 public:
  /// A column of tblInventoryCounting that a user fills in, and what the form calls it.
  struct HeaderField {
    const char* column;
    const char* caption;
  };
  [[nodiscard]] static const std::vector<HeaderField>& HeaderFields();

  /// `data` must outlive the object.
  explicit StoredCounting(dteInvCounting& data) : data_(data) {}

  /// Remembers counting `id` as it is stored now. Throws DatabaseError; then nothing is remembered.
  void Remember(std::int32_t id);
  /// Remembers counting `id` with the header `shown`, a record of tblInventoryCounting that was read before
  /// and is on the form: what another station has done to it since is found by the next comparison.
  void Remember(std::int32_t id, const Recordset& shown);
  /// Remembers counting `id` after a save that wrote `lines`: only the header is read. Nothing is remembered
  /// where it cannot be read: the save is done all the same.
  void RememberSaved(std::int32_t id, const LinesDigest& lines);
  /// Remembers that counting `id` has no number any more. Its lines stay those that the user has seen:
  /// another station may have changed the stored ones. When nothing is remembered, the counting as it is
  /// stored now, if it can be read.
  void RememberReturned(std::int32_t id);
  /// Remembers `now` as what the user has agreed to work on.
  void Accept(CountingSnapshot now);
  /// Continues with what an earlier program remembered of counting `id`; nothing makes it remember nothing.
  void Resume(std::int32_t id, std::optional<CountingSnapshot> remembered);
  /// Remembers nothing: until the next Remember, no change can be found.
  void Forget() { remembered_.reset(); }

  /// The key of the remembered counting.
  [[nodiscard]] std::int32_t Key() const { return id_; }
  /// What is remembered; nothing while no counting is.
  [[nodiscard]] const std::optional<CountingSnapshot>& Remembered() const { return remembered_; }

  /// The counting as it is stored now, when it differs from what is remembered; nothing when it does not or
  /// nothing is remembered. Where the database can tell that nobody else has written at all since, nothing is
  /// read. Throws DatabaseError.
  [[nodiscard]] std::optional<CountingSnapshot> FindChange();

  /// The final number that the database holds for counting `id`; empty when it has none, nothing when there
  /// is no such counting. Throws DatabaseError.
  [[nodiscard]] std::optional<std::string> ReadCode(double id);

 private:
  /// Header and lines, in one round trip.
  [[nodiscard]] CountingSnapshot Read(std::int32_t id);
  [[nodiscard]] CountingSnapshot ReadHeader(std::int32_t id);

  dteInvCounting& data_;
  std::int32_t id_ = 0;
  std::optional<CountingSnapshot> remembered_;
  std::optional<std::int64_t> foreignWrites_;  ///< the database's count when `remembered_` was read
};

/// Whether both are the same counting in the same state.
[[nodiscard]] bool SameCounting(const CountingSnapshot& one, const CountingSnapshot& other);

}  // namespace koru
