#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace koru {

/// The counting whose figures from the floor a journal keeps.
struct FloorJournalOwner {
  std::string database;  ///< distinguishes databases; holds no password
  std::int32_t countingID = 0;
};

/// A text of lines on the machine, beyond the end of the program, to which lines are appended. While the
/// object exists, no other program has the same journal; its destruction leaves the text. Begin and Sync
/// may run in another thread; nothing else of the journal is called meanwhile. Everything throws
/// InputError when it cannot be done.
class FloorJournal {
 public:
  FloorJournal() = default;
  FloorJournal(const FloorJournal&) = delete;
  FloorJournal& operator=(const FloorJournal&) = delete;
  virtual ~FloorJournal() = default;

  /// The whole text; empty when there is none. Its last line may be cut off: the program was ended then.
  [[nodiscard]] virtual std::string Read() const = 0;
  /// Replaces the whole text, which is on the disk afterwards; a power cut meanwhile leaves the old or the
  /// new one.
  virtual void Begin(std::string_view text) = 0;
  /// Appends whole lines. After a failure the journal has none of them.
  virtual void Append(std::string_view lines) = 0;
  /// Puts on the disk what was appended.
  virtual void Sync() = 0;
  /// Keeps the text aside for 30 days, where Read does not find it; the next Begin makes the journal anew.
  /// Returns where it is, for people; empty when there was no text.
  virtual std::string SetAside() = 0;
  /// The texts that were set aside and are still kept, the last one first, without those that cannot be read.
  [[nodiscard]] virtual std::vector<std::string> ReadSetAside() const = 0;
  /// Removes the text; the next Begin makes it anew.
  virtual void Remove() = 0;
};

/// Keeps journals on the machine.
class FloorJournalStore {
 public:
  FloorJournalStore() = default;
  FloorJournalStore(const FloorJournalStore&) = delete;
  FloorJournalStore& operator=(const FloorJournalStore&) = delete;
  virtual ~FloorJournalStore() = default;

  /// The journal of that counting, also one that a program has left; nothing is written yet. Throws
  /// InputError when another program has it.
  [[nodiscard]] virtual std::unique_ptr<FloorJournal> Open(const FloorJournalOwner& owner) = 0;
  /// Whether there is a journal of that counting, also one that a program has open.
  [[nodiscard]] virtual bool Has(const FloorJournalOwner& owner) const = 0;
};

}  // namespace koru
