#include "benchmarks/FloorBench.h"

#include <time.h>

#include <QApplication>
#include <QTimer>
#include <algorithm>
#include <atomic>
#include <chrono>
#include <exception>
#include <mutex>
#include <stdexcept>
#include <string_view>
#include <thread>

#include "benchmarks/Countings.h"
#include "benchmarks/SecureClient.h"
#include "desktop/floor/server/Compression.h"
#include "desktop/floor/server/FloorJson.h"
#include "platform/text/Numbers.h"

namespace koru::bench {
namespace {

using SteadyClock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kOnTheWay{50};  ///< a request to the desk, at most

int CountOf(int device) { return device % kFloorCounts + 1; }

int Occurrences(const std::string& text, std::string_view part) {
  int found = 0;
  for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size())) ++found;
  return found;
}

const std::filesystem::path& Emptied(const std::filesystem::path& folder) {
  std::filesystem::remove_all(folder);
  return folder;
}

FloorServerSettings Settings(const std::filesystem::path& folder) {
  FloorServerSettings settings;
  settings.port = 0;
  settings.securePort = 0;
  settings.folder = folder;
  settings.limits.connectionsOfAddress = 256;  // all devices have the address of this machine
  settings.limits.requestsOfAddress = 1'000'000;
  return settings;
}

/// A beat of the event loop, which is late when something holds the desk.
class Beat {
 public:
  explicit Beat(Hold& hold) : hold_(hold) {
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Note(); });
    timer_.start(std::chrono::milliseconds(1));
  }

 private:
  /// Of this thread.
  static double ProcessorMilliseconds() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
  }

  void Note() {
    const auto now = SteadyClock::now();
    const double processor = ProcessorMilliseconds();
    hold_.onClock = std::max(hold_.onClock, std::chrono::duration<double, std::milli>(now - last_).count());
    hold_.ofProcessor = std::max(hold_.ofProcessor, processor - lastOfProcessor_);
    last_ = now;
    lastOfProcessor_ = processor;
  }

  Hold& hold_;
  QTimer timer_;
  SteadyClock::time_point last_ = SteadyClock::now();
  double lastOfProcessor_ = ProcessorMilliseconds();
};

/// The devices, each in a thread of its own.
class Devices {
 public:
  explicit Devices(const std::function<void(int device)>& work) {
    for (int device = 0; device < kDevices; ++device) {
      threads_.emplace_back([this, work, device] { Work(work, device); });
    }
  }

  /// Runs the desk's event loop until that is so.
  static void RunUntil(const std::function<bool()>& isSo) {
    while (!isSo()) QApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
  }
  /// The same until all have done their work, noting how long it was held. Throws what a device has thrown.
  void Finish(Hold& hold) {
    const Beat beat(hold);
    RunUntil([this] { return atWork_ == 0; });
    threads_.clear();
    if (!failure_.empty()) throw std::runtime_error(failure_);
  }

 private:
  void Work(const std::function<void(int device)>& work, int device) {
    try {
      work(device);
    } catch (const std::exception& error) {
      const std::lock_guard lock(mutex_);
      failure_ = error.what();
    }
    --atWork_;
  }

  std::atomic<int> atWork_ = kDevices;
  std::mutex mutex_;
  std::string failure_;
  std::vector<std::jthread> threads_;
};

/// The answers that a device of the page gets to its requests for changes.
class Listener {
 public:
  Listener(std::unique_ptr<test::BlockingClient> client, int device)
      : client_(std::move(client)), device_(std::to_string(device)) {}

  [[nodiscard]] test::BlockingClient& Client() { return *client_; }
  /// Waits for the next one; reads the lines where that says so.
  void Next() {
    const std::string changes = client_->Get("/a/changes?since=" + revision_ + "&device=d" + device_);
    revision_ = changes.substr(7, changes.find(',') - 7);
    if (changes.find(R"("lines":true)") != std::string::npos) client_->Get("/a/lines");
  }

 private:
  std::unique_ptr<test::BlockingClient> client_;
  std::string device_;
  std::string revision_ = "0";
};

}  // namespace

// The window owns the desk.
// NOLINTBEGIN(cppcoreguidelines-owning-memory)
FloorBench::FloorBench(const std::string& file, const std::filesystem::path& folder)
    : files_(Emptied(folder)),
      drafts_(folder / "drafts"),
      program_(file, kFullCounting, {}, &drafts_),
      desk_(new FloorDesk(program_.Window(), program_.Form(), files_, Settings(folder))) {
  desk_->Open();
  desk_->OpenSecure();
  for (int count = 1; count <= kFloorCounts; ++count) lines_ = desk_->Session()->Lines(count);
}
// NOLINTEND(cppcoreguidelines-owning-memory)

void FloorBench::WhileDevicesWork(Hold& hold, const std::function<void(int)>& work) {
  Devices(work).Finish(hold);
}

std::unique_ptr<test::BlockingClient> FloorBench::Connect(int device, bool secure) const {
  const FloorServer& server = *desk_->Server();
  const std::string& code = desk_->Session()->Code(CountOf(device));
  if (secure) return std::make_unique<SecureClient>(server.SecurePort(), code);
  return std::make_unique<test::BlockingClient>(server.Port(), code);
}

void FloorBench::Listen(int device, const std::stop_token& stop) const {
  Listener listener(Connect(device), device);
  const std::stop_callback hangUp(stop, [&] { listener.Client().HangUp(); });
  try {
    while (!stop.stop_requested()) listener.Next();
  } catch (const std::runtime_error&) {
    if (!stop.stop_requested()) throw;
  }
}

std::string FloorBench::Figures(int device, int sequence, int many) const {
  std::string json = R"({"device":"d)" + std::to_string(device) + R"(","items":[)";
  for (int i = 0; i < many; ++i) {
    const auto at = static_cast<std::size_t>(device * 1000 + (sequence + i) * 7) % lines_.size();
    json += std::string(i > 0 ? "," : "") + R"({"seq":)" + std::to_string(sequence + i) + R"(,"barcode":")" +
            lines_[at].key.barcode + R"(","ordinal":)" + std::to_string(lines_[at].key.ordinal) +
            R"(,"op":"add","text":"1"})";
  }
  return json + "]}";
}

double FloorBench::Sum() const {
  const Grid& grid = program_.Form().flexDetail;
  double sum = 0;
  for (int count = 1; count <= kFloorCounts; ++count) {
    for (int row = 1; row < grid.Rows(); ++row) sum += Val(grid.TextMatrix(row, FloorLines::ColumnOf(count)));
  }
  return sum;
}

void FloorBench::SendKept(Hold& hold) {
  WhileDevicesWork(hold, [&, sequence = TakeSequence(kKept)](int device) {
    const std::jthread listener([&, device](const std::stop_token& stop) { Listen(device, stop); });
    const std::string answer = Connect(device)->Post("/a/figures", Figures(device, sequence, kKept));
    if (Occurrences(answer, R"("state":"stored")") != kKept)
      throw std::runtime_error("not stored: " + answer.substr(0, 300));
  });
}

void FloorBench::EnterByHand(int figures) {
  Grid& grid = program_.Form().flexDetail;
  for (int i = 0; i < figures; ++i) {
    const int row = 1 + i % (grid.Rows() - 1);
    const int col = FloorLines::ColumnOf(CountOf(i));
    if (!grid.UserEditElsewhere(row, col, NumberText(Val(grid.TextMatrix(row, col)) + 1))) {
      throw std::runtime_error("not entered");
    }
  }
  Program::Draw();
}

void FloorBench::OpenPages(Hold& hold) {
  WhileDevicesWork(hold, [&](int device) {
    const auto client = Connect(device);
    client->Get("/");
    client->Post("/a/hello", R"({"device":"d)" + std::to_string(device) + R"(","name":"n"})");
    if (client->Get("/a/lines").size() < 100'000) throw std::runtime_error("no lines");
  });
}

void FloorBench::MakeLines() const {
  for (int count = 1; count <= kFloorCounts; ++count) {
    std::string json = LinesJson(1, count, true);
    AppendLines(json, lines_, true);
    json += kLinesEnd;
    if (Gzip(json, 1).empty()) throw std::runtime_error("no lines");
  }
}

void FloorBench::ReadChangedLines(Hold& hold) {
  std::atomic<int> listening = 0;
  Devices devices([&](int device) {
    Listener listener(Connect(device), device);
    listener.Next();
    ++listening;
    listener.Next();
  });
  Devices::RunUntil([&] { return listening == kDevices; });
  const auto sent = SteadyClock::now() + kOnTheWay;
  Devices::RunUntil([&] { return SteadyClock::now() > sent; });
  Grid& grid = program_.Form().flexDetail;
  const std::string figure = std::to_string(++changed_);
  {
    const GridRedrawOff redrawOff(grid);
    const BatchEdit batch(grid);
    for (int row = 1; row < grid.Rows(); ++row) {
      for (int count = 1; count <= kFloorCounts; ++count) {
        if (!grid.UserEditElsewhere(row, FloorLines::ColumnOf(count), figure))
          throw std::runtime_error("not entered");
      }
    }
  }
  devices.Finish(hold);
}

}  // namespace koru::bench
