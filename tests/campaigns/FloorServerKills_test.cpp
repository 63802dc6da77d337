// A desk that serves devices by HTTP is killed at any instant, under load.

#include <gtest/gtest.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QTimer>
#include <array>
#include <iostream>
#include <random>
#include <sstream>
#include <thread>

#include "adapters/system/FloorJournalFiles.h"
#include "desktop/floor/server/FloorServer.h"
#include "tests/campaigns/Child.h"
#include "tests/campaigns/FloorDesk.h"
#include "tests/campaigns/Seeds.h"
#include "tests/campaigns/Store.h"
#include "tests/desktop/floor/server/BlockingClient.h"

namespace koru::test {
namespace {

constexpr unsigned kRounds = 50;
constexpr int kDevices = 4;
constexpr std::int64_t kBatch = 3;  ///< figures of a request
constexpr long kMaxNanoseconds = 120'000'000;

using Acknowledged = std::array<std::int64_t, kDevices>;  ///< the last sequence number of each device

std::string DeviceOf(int device) { return "device" + std::to_string(device); }

/// Where the desk serves, as it reports it.
struct Address {
  int port = 0;
  std::string code;
};

/// RAII pipe for one line, from a child that may be killed.
class Pipe {
 public:
  Pipe() {
    if (pipe(ends_.data()) != 0) throw std::runtime_error("no pipe");
  }
  Pipe(const Pipe&) = delete;
  Pipe& operator=(const Pipe&) = delete;
  ~Pipe() {
    CloseInput();
    close(ends_[0]);
  }
  void Write(const std::string& line) const {
    if (write(ends_[1], line.data(), line.size()) < 0) throw std::runtime_error("no reader");
  }
  void CloseInput() {
    if (ends_[1] >= 0) close(std::exchange(ends_[1], -1));
  }
  /// What was written, when all inputs are closed or a line is whole.
  [[nodiscard]] std::string Read() const {
    std::string text;
    char c = 0;
    while (read(ends_[0], &c, 1) == 1 && c != '\n') text += c;
    return text;
  }

 private:
  std::array<int, 2> ends_{-1, -1};
};

class FloorServerKills : public testing::Test {
 protected:
  void Live(unsigned seed, const Pipe& address);
  Acknowledged SendUntilKilled(const Address& address);
  bool Round(unsigned seed);

  Store store_;
  TemporaryFolder folder_;
  std::string file_ = folder_.File("work.koru");
  FloorJournalFiles journals_{folder_.Path() / "floor"};
  std::vector<LineKey> keys_;
  double before_ = 0;
  std::int64_t acknowledged_ = 0;
};

/// The desk serves, and saves now and then, until it is killed.
void FloorServerKills::Live(unsigned seed, const Pipe& address) {
  std::mt19937 random(seed);
  int arguments = 0;
  QCoreApplication application(arguments, nullptr);
  FloorDesk desk(file_, journals_);
  FloorServerSettings settings;
  settings.port = 0;
  settings.limits.requestsOfAddress = 1'000'000;
  FloorServer server(desk.Session(), settings);
  address.Write(std::to_string(server.Port()) + " " + desk.Session().Code(2) + "\n");
  QTimer save;
  QObject::connect(&save, &QTimer::timeout, &save, [&] { desk.Save(); });
  save.start(std::chrono::milliseconds(20));
  KillAfter(static_cast<long>(random() % kMaxNanoseconds));
  QCoreApplication::exec();
}

/// Each device sends request after request until the desk is gone.
Acknowledged FloorServerKills::SendUntilKilled(const Address& address) {
  Acknowledged acknowledged{};
  std::vector<std::jthread> devices;
  for (int device = 0; device < kDevices; ++device) {
    devices.emplace_back([&, device] {
      std::int64_t& last = acknowledged.at(static_cast<std::size_t>(device));
      try {
        BlockingClient client(static_cast<std::uint16_t>(address.port), address.code);
        while (true) {
          std::string items;
          for (std::int64_t next = last + 1; next <= last + kBatch; ++next) {
            const LineKey& key = keys_[static_cast<std::size_t>(next) % keys_.size()];
            items += (items.empty() ? "" : ",") + (R"({"seq":)" + std::to_string(next)) + R"(,"barcode":")" +
                     key.barcode + R"(","ordinal":)" + std::to_string(key.ordinal) +
                     R"(,"op":"add","text":"1"})";
          }
          const std::string answer = client.Post(
              "/a/figures", R"({"device":")" + DeviceOf(device) + R"(","items":[)" + items + "]}");
          if (answer.find("paused") != std::string::npos) continue;  // a save: they are sent again
          last += kBatch;
        }
      } catch (const std::runtime_error&) {  // the desk is gone
      }
    });
  }
  devices.clear();
  return acknowledged;
}

bool FloorServerKills::Round(unsigned seed) {
  store_.CopyTo(file_);
  std::filesystem::remove_all(folder_.Path() / "floor");
  {
    FloorDesk desk(file_, journals_);
    before_ = desk.Sum();
    keys_.clear();
    for (const FloorLine& line : desk.Session().Lines(2)) keys_.push_back(line.key);
  }
  std::filesystem::remove_all(folder_.Path() / "floor");
  Pipe reported;
  Child child([&](const Child::Report&) { Live(seed, reported); });
  reported.CloseInput();
  Address address;
  std::istringstream(reported.Read()) >> address.port >> address.code;
  const Acknowledged acknowledged = SendUntilKilled(address);
  child.Wait();
  EXPECT_TRUE(child.WasKilled());

  FloorDesk desk(file_, journals_);
  if (!desk.Session().Left().Cells().empty()) {
    const ReplayedFigures replayed = desk.Session().Replay();
    EXPECT_TRUE(replayed.gone.empty() && replayed.replaced.empty() && replayed.refused.empty());
  }
  std::int64_t all = 0;
  for (const std::int64_t last : acknowledged) all += last;
  acknowledged_ += all;
  const double kept = desk.Sum() - before_;
  EXPECT_GE(kept, static_cast<double>(all)) << "acknowledged and missing";
  EXPECT_LE(kept, static_cast<double>(all + kDevices * kBatch)) << "more than was sent";
  for (int device = 0; device < kDevices; ++device) {
    const std::int64_t last = acknowledged.at(static_cast<std::size_t>(device));
    EXPECT_TRUE(desk.Send(1, last + kBatch, DeviceOf(device))) << "it sends everything once more";
  }
  EXPECT_EQ(desk.Sum() - before_, static_cast<double>(all + kDevices * kBatch));
  EXPECT_TRUE(Violations(file_).empty());
  return child.WasKilled();
}

TEST_F(FloorServerKills, Lose_nothing_that_a_device_was_answered_and_apply_nothing_twice) {
  unsigned killed = 0;
  const unsigned rounds = RunSeeds(kRounds, [&](unsigned seed) { killed += Round(seed) ? 1 : 0; });
  std::cout << killed << " kills, " << acknowledged_ << " figures acknowledged\n";
  EXPECT_EQ(killed, rounds);
  EXPECT_GT(acknowledged_, rounds) << "hardly a figure was acknowledged";
}

}  // namespace
}  // namespace koru::test
