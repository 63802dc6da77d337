#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "floor/FloorFigures.h"
#include "floor/JournalText.h"
#include "floor/Sequences.h"

namespace koru {

/// The devices of a session, the answers that they were given, and which of their figures have reached the
/// counting.
class FloorMembers {
 public:
  struct Member {
    FloorDevice device;
    Sequences entered;
    std::unordered_map<std::int64_t, FloorAnswer> answers;  ///< by sequence number

    /// Keeps the answer to a figure that was decided; the first one remains.
    void Keep(const FloorAnswer& answer);
    /// The name of the device for others: its own name, or its id while it has none.
    [[nodiscard]] const std::string& ShownName() const {
      return device.name.empty() ? device.id : device.name;
    }
  };

  FloorMembers() = default;
  /// Those of a journal.
  explicit FloorMembers(const JournalStart& start);

  /// Takes from an earlier session which figures have reached the counting: a device whose answer was lost
  /// may send them again. Its devices are no members until they are heard of.
  void TakeEntered(const JournalStart& earlier);
  /// Whether any figure has reached the counting.
  [[nodiscard]] bool HaveEntered() const;

  /// The device of that count with that id, which is new when nothing was heard of it before.
  Member& Of(int count, const std::string& id);
  /// Takes a figure and its answer from a journal.
  void Take(const JournalFigure& figure);

  [[nodiscard]] std::vector<FloorDevice> Devices() const;
  /// What a journal begins with.
  [[nodiscard]] std::vector<JournalStart::Device> ForJournal() const;

 private:
  using Key = std::pair<int, std::string>;  ///< count and id

  std::map<Key, Member> members_;
  std::map<Key, Sequences> earlier_;  ///< of devices that are no members yet
};

}  // namespace koru
