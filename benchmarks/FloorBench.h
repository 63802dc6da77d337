#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <stop_token>
#include <string>
#include <utility>
#include <vector>

#include "adapters/system/DraftFiles.h"
#include "adapters/system/FloorJournalFiles.h"
#include "benchmarks/Program.h"
#include "desktop/floor/FloorDesk.h"
#include "tests/desktop/floor/server/BlockingClient.h"

namespace koru::bench {

inline constexpr int kDevices = 30;
inline constexpr int kKept = 500;  ///< figures that each device has kept without a network

/// The longest times between two turns of the desk's event loop, in milliseconds.
struct Hold {
  double onClock = 0;
  double ofProcessor = 0;  ///< that the desk's thread took itself
};

/// The desk with a full counting in its real window that is open to the floor, with bar, dialog, tint, log
/// and drafts, and 30 devices, 10 for each count, that reach it from threads of their own.
class FloorBench {
 public:
  /// Opens the full counting of the database `file`. Journal, certificate and drafts are kept in `folder`,
  /// which is emptied.
  FloorBench(const std::string& file, const std::filesystem::path& folder);

  /// Runs the desk's event loop until each device has done its work, and notes how long it was held. Throws
  /// what a device has thrown.
  void WhileDevicesWork(Hold& hold, const std::function<void(int device)>& work);

  /// A connection of a device; `secure` by https.
  [[nodiscard]] std::unique_ptr<test::BlockingClient> Connect(int device, bool secure = false) const;
  /// Holds a request for changes as the page does, and reads what has changed, until it is to stop.
  void Listen(int device, const std::stop_token& stop) const;
  /// The request of that many figures that each add one to a line.
  [[nodiscard]] std::string Figures(int device, int sequence, int many) const;
  /// Takes the numbers of that many figures of each device; returns the first.
  [[nodiscard]] int TakeSequence(int many) { return std::exchange(sequence_, sequence_ + many); }
  /// The sum of the three counts of all lines.
  [[nodiscard]] double Sum() const;

  // The same work with the network and without it.

  /// Each device sends what it has kept, while it listens.
  void SendKept(Hold& hold);
  /// As many figures by the entry alone.
  void EnterByHand(int figures = kDevices * kKept);

  /// Each device opens the page and reads the lines.
  void OpenPages(Hold& hold);
  /// The lines of the three counts written and compressed once.
  void MakeLines() const;

  /// The desk has changed the three counts of all lines at once, as an import does; each device listens.
  void ReadChangedLines(Hold& hold);

 private:
  FloorJournalFiles files_;
  DraftFiles drafts_;
  Program program_;
  FloorDesk* desk_;  // of the window
  std::vector<FloorLine> lines_;
  int sequence_ = 1;
  int changed_ = 0;  ///< the figure of all lines that ReadChangedLines has entered last
};

}  // namespace koru::bench
