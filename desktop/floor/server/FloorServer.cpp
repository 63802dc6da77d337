#include "desktop/floor/server/FloorServer.h"

#include <QTimer>
#include <algorithm>
#include <deque>
#include <exception>
#include <future>
#include <iterator>
#include <utility>

#include "adapters/system/WriterThread.h"
#include "desktop/floor/server/FloorCertificate.h"
#include "desktop/floor/server/FloorRoutes.h"
#include "desktop/floor/server/HttpServer.h"

namespace koru {
namespace {

using SteadyClock = std::chrono::steady_clock;

constexpr unsigned kServerError = 500;
constexpr unsigned kUnavailable = 503;

/// RAII: until destruction, a turn is taken.
class Turn {
 public:
  explicit Turn(bool& isTaken) : isTaken_(isTaken) { isTaken_ = true; }
  Turn(const Turn&) = delete;
  Turn& operator=(const Turn&) = delete;
  ~Turn() { isTaken_ = false; }

 private:
  bool& isTaken_;
};

/// What `answer` returns. An error of the form is that request's alone.
template <class Answer>
std::optional<HttpAnswer> OrError(const Answer& answer) {
  try {
    return answer();
  } catch (const std::exception&) {
    return HttpAnswer::Refusal(kServerError, "ميز نتوانست اين درخواست را انجام دهد.");
  }
}

/// A request for changes that is held.
struct HeldPoll {
  HttpExchange* exchange;
  int count;
  ChangesRequest poll;
  SteadyClock::time_point until;
  bool isDue = false;  ///< something has changed that may be for the device
};

}  // namespace

/// Takes turns in the event loop: reads requests, lets the session decide them, and sends the answers, those
/// to what is to be on the disk after a thread has put it there.
class FloorServer::Service : public HttpService {
 public:
  Service(FloorSession& session, FloorServerSettings settings);
  Service(const Service&) = delete;
  Service& operator=(const Service&) = delete;
  ~Service() override;

  void OpenSecure();
  void SetAddresses(std::vector<std::string> addresses);

  [[nodiscard]] const FloorServerSettings& Settings() const { return settings_; }
  [[nodiscard]] FloorSession& Session() { return session_; }
  [[nodiscard]] const HttpServer* Plain() const { return plain_.get(); }
  [[nodiscard]] const HttpServer* Secure() const { return secure_.get(); }

  [[nodiscard]] std::optional<HttpAnswer> Admit(const HttpRequest& head) override {
    return routes_.Admit(head);
  }
  void Receive(HttpExchange& exchange) override { tasks_.push_back(routes_.TaskOf(exchange)); }

 private:
  [[nodiscard]] HttpLimits Limits() const;
  void Wake() { turn_.start(0); }
  void TakeTurn();
  void SetWaiting(bool waits);
  void RunServers();
  void SayLast();
  void Work();
  void Advance(FloorTask& task);
  void Hold(const FloorTask& task);
  [[nodiscard]] std::optional<HttpAnswer> ChangesNow(const HeldPoll& held);
  void AnswerHeld();
  void Commit();
  void AnswerWritten(bool isOnDisk);
  void Write(std::packaged_task<void()> write);

  FloorSession& session_;
  FloorServerSettings settings_;
  FloorRoutes routes_;
  std::unique_ptr<HttpServer> plain_;
  std::unique_ptr<HttpServer> secure_;
  std::deque<FloorTask> tasks_;      ///< requests that are not decided
  std::deque<FloorTask> waiting_;    ///< those of them that wait for the end of a write
  std::deque<FloorTask> unwritten_;  ///< those that are to be on the disk before they are answered
  std::deque<FloorTask> written_;    ///< those that the last commit puts there
  std::deque<HeldPoll> held_;
  bool hasChanged_ = false;  ///< since held requests were looked at
  bool isAtTurn_ = false;
  QTimer turn_;    ///< runs until the next turn
  QTimer gather_;  ///< runs while changes gather
  QTimer expire_;  ///< held requests whose time is over
  Subscription changed_;
  WriterThread writer_;  ///< of the journal
};

FloorServer::Service::Service(FloorSession& session, FloorServerSettings settings)
    : session_(session), settings_(std::move(settings)), routes_(session, settings_) {
  plain_ = std::make_unique<HttpServer>(*this, settings_.port, Limits(), [this] { Wake(); });
  routes_.Hosts().AddPort(plain_->Port());
  for (QTimer* const timer : {&turn_, &gather_, &expire_}) timer->setSingleShot(true);
  QObject::connect(&turn_, &QTimer::timeout, &turn_, [this] { TakeTurn(); });
  for (QTimer* const timer : {&gather_, &expire_}) {
    QObject::connect(timer, &QTimer::timeout, timer, [this] { Wake(); });
  }
  changed_ = session_.Changed.Subscribe([this] {
    hasChanged_ = true;
    if (!gather_.isActive()) gather_.start(settings_.limits.gather);
  });
  session_.SetJournalRunner([this](std::packaged_task<void()> write) { Write(std::move(write)); });
}

/// What was decided is answered first, then the servers end; the write that is under way is waited for.
FloorServer::Service::~Service() {
  session_.SetJournalRunner({});
  SayLast();
  secure_.reset();
  plain_.reset();
}

/// What was written meanwhile is acknowledged, and so is all that was decided, as far as the journal of the
/// session takes it. After the end of the session, devices that wait for changes hear of it; a form that is
/// closed may be opened again, and its devices go on waiting.
void FloorServer::Service::SayLast() {
  AnswerWritten(session_.EndCommit());
  for (std::deque<FloorTask>* const tasks : {&waiting_, &tasks_}) {
    for (FloorTask& task : *tasks) {
      if (!FloorRoutes::IsHalfDecided(task)) continue;
      routes_.AnswerFigures(task);
      unwritten_.push_back(std::move(task));
    }
    tasks->clear();
  }
  written_.swap(unwritten_);
  if (!written_.empty()) AnswerWritten(session_.Commit());
  const FloorSession::End end = session_.Ended();
  if (end != FloorSession::End::None && end != FloorSession::End::Unloaded) {
    for (const HeldPoll& held : std::exchange(held_, {})) {
      held.exchange->Answer(*OrError([&] { return ChangesNow(held); }));
    }
  }
  RunServers();
}

HttpLimits FloorServer::Service::Limits() const {
  const FloorServerLimits& limits = settings_.limits;
  return {limits.connections, limits.connectionsOfAddress, limits.request, limits.answer, limits.idle};
}

void FloorServer::Service::OpenSecure() {
  if (secure_) return;
  const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
  const HttpIdentity identity = FloorCertificate(settings_.folder, settings_.addresses, now);
  secure_ = std::make_unique<HttpServer>(
      *this, settings_.securePort, Limits(), [this] { Wake(); }, identity);
  routes_.Hosts().AddPort(secure_->Port());
}

void FloorServer::Service::SetAddresses(std::vector<std::string> addresses) {
  settings_.addresses = std::move(addresses);
  routes_.Hosts().SetNames(settings_.addresses);
}

void FloorServer::Service::SetWaiting(bool waits) {
  plain_->SetWaiting(waits);
  if (secure_) secure_->SetWaiting(waits);
}

void FloorServer::Service::RunServers() {
  plain_->Run();
  if (secure_) secure_->Run();
}

/// One turn in each pass of the event loop, whatever calls for it: the desk has its own between two. While a
/// command works, and while a turn runs that has come to an event loop of its own, requests wait in their
/// sockets.
void FloorServer::Service::TakeTurn() {
  if (isAtTurn_) return;
  SetWaiting(false);
  if (session_.IsCommandAtWork()) {
    turn_.start(settings_.limits.command);
    return;
  }
  {
    const Turn turn(isAtTurn_);
    RunServers();
    Work();
    AnswerHeld();
    Commit();
    RunServers();
  }
  SetWaiting(true);
  if (!tasks_.empty()) Wake();
}

/// A request that needs more than the time of a turn waits at the end of the queue for the next one. While
/// the journal is being written, requests that would add to it wait: whatever a device has changed on the
/// form is in the journal before anything else keeps it.
void FloorServer::Service::Work() {
  const bool isWriting = session_.IsCommitting();
  if (!isWriting) {
    tasks_.insert(tasks_.begin(), std::make_move_iterator(waiting_.begin()),
                  std::make_move_iterator(waiting_.end()));
    waiting_.clear();
  }
  const auto until = SteadyClock::now() + settings_.limits.round;
  bool isFirst = true;
  while (!tasks_.empty() && (isFirst || SteadyClock::now() < until)) {
    FloorTask& task = tasks_.front();
    if (isWriting && FloorRoutes::IsForJournal(task)) {
      waiting_.push_back(std::move(task));
      tasks_.pop_front();
      continue;
    }
    while (!task.IsDecided() && (isFirst || SteadyClock::now() < until)) {
      Advance(task);
      isFirst = false;
    }
    if (task.poll) {
      Hold(task);
    } else if (!task.answer) {
      tasks_.push_back(std::move(task));
    } else if (task.needsCommit) {
      unwritten_.push_back(std::move(task));
    } else {
      task.exchange->Answer(std::move(*task.answer));
    }
    tasks_.pop_front();
  }
}

void FloorServer::Service::Advance(FloorTask& task) {
  const auto error = OrError([&] {
    routes_.Advance(task);
    return std::optional<HttpAnswer>();
  });
  if (error) task.answer = error;
}

/// A device has one request for changes; an earlier one is answered.
void FloorServer::Service::Hold(const FloorTask& task) {
  const auto earlier = std::find_if(held_.begin(), held_.end(), [&](const HeldPoll& held) {
    return held.count == task.count && held.poll.device == task.poll->device;
  });
  if (earlier != held_.end()) {
    earlier->exchange->Answer(*OrError([&] { return ChangesNow(*earlier); }));
    held_.erase(earlier);
  }
  held_.push_back({task.exchange, task.count, *task.poll, SteadyClock::now() + settings_.limits.poll});
}

std::optional<HttpAnswer> FloorServer::Service::ChangesNow(const HeldPoll& held) {
  return routes_.ChangesNow(FloorRoutes::CodeOf(held.exchange->Request()), held.poll);
}

/// After a change, looks at each held request once, and answers those that it concerns and those whose time
/// is over. As with tasks, those for which a turn has no time wait for the next one, and so does a later
/// change.
void FloorServer::Service::AnswerHeld() {
  const bool isLookedAt =
      std::none_of(held_.begin(), held_.end(), [](const HeldPoll& held) { return held.isDue; });
  if (hasChanged_ && !gather_.isActive() && isLookedAt) {
    hasChanged_ = false;
    for (HeldPoll& held : held_) held.isDue = true;
  }
  const auto now = SteadyClock::now();
  const auto until = now + settings_.limits.round;
  bool isFirst = true;
  bool isLeft = false;
  std::erase_if(held_, [&](HeldPoll& held) {
    const bool isOver = held.until <= now;
    if (!held.isDue && !isOver) return false;
    if (!std::exchange(isFirst, false) && SteadyClock::now() >= until) {
      isLeft = true;
      return false;
    }
    const auto answer = OrError([&] {
      auto changes = std::exchange(held.isDue, false)
                         ? routes_.Changes(FloorRoutes::CodeOf(held.exchange->Request()), held.poll)
                         : std::nullopt;
      return !changes && isOver ? ChangesNow(held) : changes;
    });
    if (answer) held.exchange->Answer(*answer);
    return answer.has_value();
  });
  if (isLeft || (hasChanged_ && !gather_.isActive())) Wake();
  if (held_.empty()) {
    expire_.stop();
  } else {
    const auto wait = std::chrono::ceil<std::chrono::milliseconds>(held_.front().until - now);
    expire_.start(std::max(wait, std::chrono::milliseconds(0)));
  }
}

/// Answers what is on the disk by now, and begins to write what was decided since. A disk that fails is tried
/// again for the next request.
void FloorServer::Service::Commit() {
  while (!session_.IsCommitting()) {
    const bool isOnDisk = session_.EndCommit();
    AnswerWritten(isOnDisk);
    written_.swap(unwritten_);
    if (isOnDisk || !written_.empty()) session_.BeginCommit();
    if (written_.empty()) break;
  }
}

void FloorServer::Service::AnswerWritten(bool isOnDisk) {
  for (FloorTask& task : std::exchange(written_, {})) {
    if (!isOnDisk) {
      task.answer = HttpAnswer::Refusal(
          kUnavailable,
          "ميز نمي‌تواند عددها را روي ديسك نگه دارد. آن‌ها "
          "دوباره "
          "فرستاده "
          "مي‌شوند.");
    }
    task.exchange->Answer(std::move(*task.answer));
  }
}

/// Runs a write of the journal beside the event loop, which takes the next turn when it has ended.
void FloorServer::Service::Write(std::packaged_task<void()> write) {
  writer_.Run(std::move(write), [this] {
    QMetaObject::invokeMethod(
        &turn_, [this] { Wake(); }, Qt::QueuedConnection);
  });
}

FloorServer::FloorServer(FloorSession& session, FloorServerSettings settings)
    : service_(std::make_unique<Service>(session, std::move(settings))) {}

FloorServer::~FloorServer() = default;

void FloorServer::OpenSecure() { service_->OpenSecure(); }
bool FloorServer::IsSecure() const { return service_->Secure() != nullptr; }
void FloorServer::SetAddresses(std::vector<std::string> addresses) {
  service_->SetAddresses(std::move(addresses));
}
std::uint16_t FloorServer::Port() const { return service_->Plain()->Port(); }
std::uint16_t FloorServer::SecurePort() const { return IsSecure() ? service_->Secure()->Port() : 0; }
const std::vector<std::string>& FloorServer::Addresses() const { return service_->Settings().addresses; }

std::string FloorServer::Url(int count, const std::string& address, bool secure) const {
  return std::string(secure ? "https://" : "http://") + address + ":" +
         std::to_string(secure ? SecurePort() : Port()) + "/#" + service_->Session().Code(count);
}

}  // namespace koru
