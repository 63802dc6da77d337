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
  };

  FloorMembers() = default;
  /// Those of a journal.
  explicit FloorMembers(const JournalStart& start);

  /// Takes from an earlier session which figures have reached the counting: a device whose answer was lost
  /// may send them again. Its devices are no members until they are heard of.
  void TakeEntered(const JournalStart& earlier);
  /// The same from figures that are in the counting, before any device is heard of.
  void TakeEntered(const std::vector<JournalFigure>& earlier);
  /// Whether any figure has reached the counting.
  [[nodiscard]] bool HaveEntered() const;

  /// The device of that count with that id, which is new when nothing was heard of it before.
  Member& Of(int count, const std::string& id);
  /// The figures that came after that start of a journal have not reached the counting: their devices may
  /// send them again.
  void ForgetFigures(const JournalStart& start);
  /// Takes a figure and its answer from a journal.
  void Take(const JournalFigure& figure);

  [[nodiscard]] std::vector<FloorDevice> Devices() const;
  /// FloorDevice::ShownName of a device, which need not be a member.
  [[nodiscard]] std::string ShownName(int count, const std::string& id) const;
  /// What a journal begins with.
  [[nodiscard]] std::vector<JournalStart::Device> ForJournal() const;

 private:
  using Key = std::pair<int, std::string>;  ///< count and id

  std::map<Key, Member> members_;
  std::map<Key, Sequences> earlier_;  ///< of devices that are no members yet
};

}  // namespace koru
