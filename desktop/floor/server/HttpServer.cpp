#include "desktop/floor/server/HttpServer.h"

#include <microhttpd.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <QSocketNotifier>
#include <QTimer>
#include <algorithm>
#include <array>
#include <unordered_map>

#include "desktop/floor/server/HttpHead.h"
#include "platform/text/Errors.h"

namespace koru {
namespace {

using SteadyClock = std::chrono::steady_clock;

constexpr std::size_t kMemoryOfConnection = 24UL * 1024;  ///< for header fields, and for a piece of a body
constexpr const char* kTlsVersions = "NORMAL:-VERS-ALL:+VERS-TLS1.3:+VERS-TLS1.2";

/// A connection and what it may do until when.
struct Connection {
  enum class Phase { Idle, Request, Waiting, Answer };
  int socket = -1;
  Phase phase = Phase::Request;  ///< a new connection has come for a request
  SteadyClock::time_point until;
};

/// A request on its way: read, waiting for its answer, and answered.
class Exchange : public HttpExchange {
 public:
  explicit Exchange(MHD_Connection* connection) : connection_(connection) {}

  [[nodiscard]] const HttpRequest& Request() const override { return request_; }
  void Answer(HttpAnswer answer) override {
    answer_ = std::move(answer);
    MHD_resume_connection(connection_);
  }

  HttpRequest request_;
  std::optional<HttpAnswer> answer_;
  bool isWhole_ = false;

 private:
  MHD_Connection* connection_;
};

}  // namespace

std::optional<std::string_view> HttpRequest::Query(std::string_view name) const {
  const auto found =
      std::find_if(query.begin(), query.end(), [&](const auto& field) { return field.first == name; });
  if (found == query.end()) return std::nullopt;
  return found->second;
}

/// The daemon of libmicrohttpd and its callbacks, through which no exception may pass.
class HttpServer::Daemon {
 public:
  Daemon(HttpService& service, std::uint16_t port, HttpLimits limits, std::function<void()> ready,
         const std::optional<HttpIdentity>& identity);
  Daemon(const Daemon&) = delete;
  Daemon& operator=(const Daemon&) = delete;
  ~Daemon();

  [[nodiscard]] std::uint16_t Port() const;
  void Run();
  void SetWaiting(bool waits);

 private:
  static MHD_Result Handle(void* self, MHD_Connection* connection, const char* url, const char* method,
                           const char* version, const char* data, std::size_t* size, void** context);
  static void Complete(void* self, MHD_Connection* connection, void** context,
                       MHD_RequestTerminationCode reason);
  static void Notify(void* self, MHD_Connection* connection, void** context,
                     MHD_ConnectionNotificationCode what);
  static void* BeginRequest(void* self, const char* uri, MHD_Connection* connection);

  void Start(std::uint16_t port, const std::optional<HttpIdentity>& identity);
  MHD_Result Step(MHD_Connection* connection, const char* url, const char* method, std::string_view data,
                  void** context);
  MHD_Result Queue(MHD_Connection* connection, const HttpAnswer& answer);
  void Enter(MHD_Connection* connection, Connection::Phase phase);
  [[nodiscard]] SteadyClock::time_point Until(Connection::Phase phase) const;
  void DropLate();
  void Schedule();

  HttpService& service_;
  HttpLimits limits_;
  std::function<void()> ready_;
  MHD_Daemon* daemon_ = nullptr;
  std::unordered_map<MHD_Connection*, Connection> connections_;
  std::unique_ptr<QSocketNotifier> notifier_;
  QTimer again_;
  QTimer sweep_;
  bool waits_ = true;
  SteadyClock::time_point pausedAt_;
};

HttpServer::Daemon::Daemon(HttpService& service, std::uint16_t port, HttpLimits limits,
                           std::function<void()> ready, const std::optional<HttpIdentity>& identity)
    : service_(service), limits_(limits), ready_(std::move(ready)) {
  Start(port, identity);
  const auto* const info = MHD_get_daemon_info(daemon_, MHD_DAEMON_INFO_EPOLL_FD);
  notifier_ = std::make_unique<QSocketNotifier>(info->epoll_fd, QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this] { ready_(); });
  again_.setSingleShot(true);
  QObject::connect(&again_, &QTimer::timeout, &again_, [this] { ready_(); });
  const auto shortest = std::min({limits_.request, limits_.answer, limits_.idle});
  sweep_.setInterval(std::clamp<std::chrono::milliseconds>(shortest / 4, std::chrono::milliseconds(10),
                                                           std::chrono::milliseconds(1000)));
  QObject::connect(&sweep_, &QTimer::timeout, &sweep_, [this] { DropLate(); });
  sweep_.start();
}

void HttpServer::Daemon::Start(std::uint16_t port, const std::optional<HttpIdentity>& identity) {
  unsigned flags = MHD_USE_EPOLL | MHD_ALLOW_SUSPEND_RESUME;
  std::vector<MHD_OptionItem> options = {
      {MHD_OPTION_CONNECTION_LIMIT, static_cast<std::intptr_t>(limits_.connections), nullptr},
      {MHD_OPTION_PER_IP_CONNECTION_LIMIT, static_cast<std::intptr_t>(limits_.connectionsOfAddress), nullptr},
      {MHD_OPTION_CONNECTION_MEMORY_LIMIT, static_cast<std::intptr_t>(kMemoryOfConnection), nullptr},
      {MHD_OPTION_STRICT_FOR_CLIENT, 1, nullptr},
      {MHD_OPTION_NOTIFY_COMPLETED, reinterpret_cast<std::intptr_t>(&Complete), this},
      {MHD_OPTION_NOTIFY_CONNECTION, reinterpret_cast<std::intptr_t>(&Notify), this},
      {MHD_OPTION_URI_LOG_CALLBACK, reinterpret_cast<std::intptr_t>(&BeginRequest), this},
  };
  std::string key;
  std::string certificate;
  std::string versions = kTlsVersions;
  if (identity) {
    flags |= MHD_USE_TLS;
    key = identity->key;
    certificate = identity->certificate;
    options.push_back({MHD_OPTION_HTTPS_MEM_KEY, 0, key.data()});
    options.push_back({MHD_OPTION_HTTPS_MEM_CERT, 0, certificate.data()});
    options.push_back({MHD_OPTION_HTTPS_PRIORITIES, 0, versions.data()});
  }
  options.push_back({MHD_OPTION_END, 0, nullptr});
  daemon_ = MHD_start_daemon(flags, port, nullptr, nullptr, &Handle, this, MHD_OPTION_ARRAY, options.data(),
                             MHD_OPTION_END);
  if (daemon_ == nullptr) {
    throw InputError("درگاه " + std::to_string(port) +
                     " براي شمارش با گوشي باز نشد. شايد برنامهٔ ديگري آن را گرفته است.");
  }
}

/// A connection that waits for an answer is closed like the others: libmicrohttpd ends when none is
/// suspended.
HttpServer::Daemon::~Daemon() {
  notifier_.reset();
  for (const auto& [connection, state] : connections_) {
    if (state.phase == Connection::Phase::Waiting) MHD_resume_connection(connection);
  }
  MHD_stop_daemon(daemon_);
}

std::uint16_t HttpServer::Daemon::Port() const {
  return MHD_get_daemon_info(daemon_, MHD_DAEMON_INFO_BIND_PORT)->port;
}

void HttpServer::Daemon::Run() {
  MHD_run(daemon_);
  Schedule();
}

/// libmicrohttpd is triggered by the edges of its sockets: what it has not finished, it says here alone.
void HttpServer::Daemon::Schedule() {
  MHD_UNSIGNED_LONG_LONG wait = 0;
  if (!waits_ || MHD_get_timeout(daemon_, &wait) != MHD_YES) {
    again_.stop();
  } else {
    constexpr MHD_UNSIGNED_LONG_LONG kLongest = 60'000;
    again_.start(static_cast<int>(std::min(wait, kLongest)));
  }
}

void HttpServer::Daemon::SetWaiting(bool waits) {
  if (waits_ == waits) return;
  waits_ = waits;
  notifier_->setEnabled(waits);
  if (waits) {
    const auto paused = SteadyClock::now() - pausedAt_;
    for (auto& [connection, state] : connections_) {
      if (state.until != SteadyClock::time_point::max()) state.until += paused;
    }
  } else {
    pausedAt_ = SteadyClock::now();
  }
  Schedule();
}

SteadyClock::time_point HttpServer::Daemon::Until(Connection::Phase phase) const {
  switch (phase) {
    case Connection::Phase::Idle:
      return SteadyClock::now() + limits_.idle;
    case Connection::Phase::Request:
      return SteadyClock::now() + limits_.request;
    case Connection::Phase::Waiting:
      return SteadyClock::time_point::max();
    case Connection::Phase::Answer:
      return SteadyClock::now() + limits_.answer;
  }
  return SteadyClock::time_point::max();
}

void HttpServer::Daemon::Enter(MHD_Connection* connection, Connection::Phase phase) {
  const auto found = connections_.find(connection);
  if (found == connections_.end()) return;
  found->second.phase = phase;
  found->second.until = Until(phase);
}

/// Ends connections for both directions, which libmicrohttpd then notices and closes.
void HttpServer::Daemon::DropLate() {
  if (!waits_) return;
  const SteadyClock::time_point now = SteadyClock::now();
  for (auto& [connection, state] : connections_) {
    if (state.until > now) continue;
    shutdown(state.socket, SHUT_RDWR);
    state.until = SteadyClock::time_point::max();
  }
}

void HttpServer::Daemon::Notify(void* self, MHD_Connection* connection, void** /*context*/,
                                MHD_ConnectionNotificationCode what) {
  auto& daemon = *static_cast<Daemon*>(self);
  if (what == MHD_CONNECTION_NOTIFY_CLOSED) {
    daemon.connections_.erase(connection);
    return;
  }
  const auto* const info = MHD_get_connection_info(connection, MHD_CONNECTION_INFO_CONNECTION_FD);
  if (info == nullptr) return;
  daemon.connections_[connection] = {info->connect_fd, Connection::Phase::Request,
                                     daemon.Until(Connection::Phase::Request)};
}

/// Called with the first line of a request.
void* HttpServer::Daemon::BeginRequest(void* self, const char* /*uri*/, MHD_Connection* connection) {
  static_cast<Daemon*>(self)->Enter(connection, Connection::Phase::Request);
  return nullptr;
}

void HttpServer::Daemon::Complete(void* self, MHD_Connection* connection, void** context,
                                  MHD_RequestTerminationCode /*reason*/) {
  std::unique_ptr<Exchange>(static_cast<Exchange*>(*context)).reset();
  *context = nullptr;
  static_cast<Daemon*>(self)->Enter(connection, Connection::Phase::Idle);
}

MHD_Result HttpServer::Daemon::Handle(void* self, MHD_Connection* connection, const char* url,
                                      const char* method, const char* /*version*/, const char* data,
                                      std::size_t* size, void** context) {
  try {
    const std::string_view piece(*size == 0 ? "" : data, *size);
    *size = 0;
    return static_cast<Daemon*>(self)->Step(connection, url, method, piece, context);
  } catch (...) {  // memory above all: the connection is closed
    return MHD_NO;
  }
}

/// A request comes here with its header fields, with each piece of its body, at its end, and with its answer.
MHD_Result HttpServer::Daemon::Step(MHD_Connection* connection, const char* url, const char* method,
                                    std::string_view data, void** context) {
  if (*context == nullptr) {
    auto exchange = std::make_unique<Exchange>(connection);
    Exchange& begun = *exchange;
    *context = exchange.release();  // Complete has it
    begun.request_ = ReadHead(connection, url, method);
    if (const auto refusal = RefusalOfHead(connection, begun.request_)) return Queue(connection, *refusal);
    begun.answer_ = service_.Admit(begun.request_);
    // After an answer that comes before the body, libmicrohttpd closes the connection.
    const bool isEarly = begun.answer_ && begun.request_.method == MHD_HTTP_METHOD_POST;
    return isEarly ? Queue(connection, *begun.answer_) : MHD_YES;
  }
  auto& exchange = *static_cast<Exchange*>(*context);
  if (exchange.answer_) return Queue(connection, *exchange.answer_);
  if (!data.empty()) {
    if (data.size() > kMaxHttpBody - exchange.request_.body.size()) return MHD_NO;
    exchange.request_.body += data;
    return MHD_YES;
  }
  if (exchange.isWhole_) return MHD_YES;
  exchange.isWhole_ = true;
  Enter(connection, Connection::Phase::Waiting);
  MHD_suspend_connection(connection);
  service_.Receive(exchange);
  return MHD_YES;
}

MHD_Result HttpServer::Daemon::Queue(MHD_Connection* connection, const HttpAnswer& answer) {
  Enter(connection, Connection::Phase::Answer);
  return MHD_queue_response(connection, answer.Status(), answer.Response());
}

HttpServer::HttpServer(HttpService& service, std::uint16_t port, HttpLimits limits,
                       std::function<void()> ready, const std::optional<HttpIdentity>& identity)
    : daemon_(std::make_unique<Daemon>(service, port, limits, std::move(ready), identity)) {}

HttpServer::~HttpServer() = default;

std::uint16_t HttpServer::Port() const { return daemon_->Port(); }
void HttpServer::Run() { daemon_->Run(); }
void HttpServer::SetWaiting(bool waits) { daemon_->SetWaiting(waits); }

}  // namespace koru
