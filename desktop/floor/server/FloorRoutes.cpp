#include "desktop/floor/server/FloorRoutes.h"

#include <array>
#include <limits>
#include <string_view>

#include "desktop/floor/server/FloorJson.h"

namespace koru {
namespace {

constexpr unsigned kOk = 200;
constexpr unsigned kBadRequest = 400;
constexpr unsigned kUnauthorized = 401;
constexpr unsigned kNotFound = 404;
constexpr unsigned kMethodNotAllowed = 405;
constexpr unsigned kMisdirected = 421;
constexpr unsigned kTooMany = 429;

constexpr std::string_view kCalls = "/a/";

/// The calls of devices and their methods.
constexpr std::array<std::pair<std::string_view, std::string_view>, 5> kMethods = {{
    {"/a/hello", "POST"},
    {"/a/lines", "GET"},
    {"/a/figures", "POST"},
    {"/a/changes", "GET"},
    {"/a/unknown", "POST"},
}};

HttpAnswer Json(std::string text) { return {kOk, "application/json", std::move(text)}; }

HttpAnswer BadRequest() { return HttpAnswer::Refusal(kBadRequest, "درخواست خوانده نشد."); }
HttpAnswer Unauthorized() {
  return HttpAnswer::Refusal(kUnauthorized, "اين شمارش بسته است يا كد آن عوض شده است.");
}
HttpAnswer WrongMethod(const char* allowed) {
  return HttpAnswer::Refusal(kMethodNotAllowed, "اين درخواست پذيرفته نيست.").With("Allow", allowed);
}
HttpAnswer TooManyDevices() {
  return HttpAnswer::Refusal(kTooMany, "شمار دستگاه‌هاي اين شمارش كامل است.");
}

}  // namespace

FloorRoutes::FloorRoutes(FloorSession& session, const FloorServerSettings& settings)
    : session_(session),
      limits_(settings.limits),
      store_(settings.store),
      counting_(settings.counting),
      hosts_(settings.addresses),
      lines_(session),
      rate_(settings.limits.requestsOfAddress) {
  for (const FloorDevice& device : session.Devices()) devices_.emplace(device.count, device.id);
}

std::string FloorRoutes::CodeOf(const HttpRequest& request) {
  constexpr std::string_view kScheme = "Bearer ";
  if (!request.authorization.starts_with(kScheme)) return {};
  return request.authorization.substr(kScheme.size());
}

std::optional<HttpAnswer> FloorRoutes::Admit(const HttpRequest& head) {
  if (!hosts_.Contain(head.host)) {
    return HttpAnswer::Refusal(kMisdirected, "اين نشاني از اين ميز نيست.");
  }
  if (!rate_.Take(head.address)) {
    return HttpAnswer::Refusal(kTooMany, "درخواست‌ها بيش از اندازه است.")
        .With("Retry-After", "1");
  }
  if (!head.path.starts_with(kCalls)) {
    if (head.method != "GET" && head.method != "HEAD") return WrongMethod("GET, HEAD");
    auto file = page_.Find(head.path, head.acceptsGzip);
    return file ? std::move(*file) : HttpAnswer::Refusal(kNotFound, "پيدا نشد.");
  }
  for (const auto& [path, method] : kMethods) {
    if (head.path != path) continue;
    if (head.method != method) return WrongMethod(method.data());
    if (!session_.CountOf(CodeOf(head))) return Unauthorized();
    return std::nullopt;
  }
  return HttpAnswer::Refusal(kNotFound, "پيدا نشد.");
}

/// The code is looked at again: it may have been renewed since the head was read, or between two figures.
void FloorRoutes::Advance(FloorTask& task) {
  const HttpRequest& request = task.exchange->Request();
  const auto count = session_.CountOf(CodeOf(request));
  if (!count) {
    if (IsHalfDecided(task)) return AnswerFigures(task);
    task.answer = Unauthorized();
    return;
  }
  task.count = *count;
  if (request.path == "/a/hello") {
    Hello(task);
  } else if (request.path == "/a/lines") {
    Lines(task);
  } else if (request.path == "/a/figures") {
    Figures(task);
  } else if (request.path == "/a/changes") {
    AskForChanges(task);
  } else {
    Unknown(task);
  }
}

bool FloorRoutes::Admits(int count, const std::string& device) {
  const DeviceKey key(count, device);
  if (devices_.contains(key)) return true;
  if (devices_.size() >= limits_.devices) return false;
  devices_.insert(key);
  return true;
}

void FloorRoutes::Hello(FloorTask& task) {
  const auto hello = ReadHello(task.exchange->Request().body);
  if (!hello) {
    task.answer = BadRequest();
  } else if (!Admits(task.count, hello->device)) {
    task.answer = TooManyDevices();
  } else {
    session_.Hello(task.count, hello->device, hello->name);
    task.needsCommit = true;
    task.answer = Json(HelloJson(task.count, store_, counting_, session_.IsOpen()));
  }
}

void FloorRoutes::Lines(FloorTask& task) {
  task.answer = lines_.Answer(task.count, task.exchange->Request().acceptsGzip, task.linesMade);
}

void FloorRoutes::Figures(FloorTask& task) {
  if (!task.figures) {
    task.figures = ReadFigures(task.exchange->Request().body);
    if (!task.figures) {
      task.answer = BadRequest();
      return;
    }
    if (!Admits(task.count, task.figures->device)) {
      task.answer = TooManyDevices();
      return;
    }
    task.needsCommit = true;
  }
  const auto& figures = task.figures->figures;
  if (task.answers.size() < figures.size()) {
    const std::span<const FloorFigure> next(&figures[task.answers.size()], 1);
    const auto answers = session_.Enter(task.count, task.figures->device, next);
    task.answers.insert(task.answers.end(), answers.begin(), answers.end());
  }
  task.revision = session_.ChangesSince(std::numeric_limits<std::int64_t>::max(), task.count).revision;
  if (task.answers.size() == figures.size()) AnswerFigures(task);
}

void FloorRoutes::AnswerFigures(FloorTask& task) {
  const auto& figures = task.figures->figures;
  for (std::size_t next = task.answers.size(); next < figures.size(); ++next) {
    task.answers.push_back({figures[next].sequence, FigureState::Paused, {}, {}, {}});
  }
  task.answer = Json(FiguresJson(task.revision, session_.IsOpen(), task.answers));
}

void FloorRoutes::AskForChanges(FloorTask& task) {
  const HttpRequest& request = task.exchange->Request();
  auto poll = ReadChanges(request.Query("since"), request.Query("device"));
  if (!poll) {
    task.answer = BadRequest();
    return;
  }
  if (!Admits(task.count, poll->device)) {
    task.answer = TooManyDevices();
    return;
  }
  static_cast<void>(session_.Enter(task.count, poll->device, {}));  // it is in contact
  task.answer = Changes(CodeOf(request), *poll);
  if (!task.answer) task.poll = std::move(poll);
}

std::optional<HttpAnswer> FloorRoutes::Changes(const std::string& code, ChangesRequest& poll) {
  const auto count = session_.CountOf(code);
  if (!count) return Unauthorized();
  const FloorChanges changes = session_.ChangesSince(poll.since, *count);
  const DeviceKey key(*count, poll.device);
  const bool knowsOpen = told_.contains(key) && openTold_.contains(key) == changes.open;
  if (knowsOpen && !changes.linesChanged && changes.cells.empty()) {
    poll.since = changes.revision;
    return std::nullopt;
  }
  return ChangesAnswer(*count, poll.device, changes);
}

HttpAnswer FloorRoutes::ChangesNow(const std::string& code, const ChangesRequest& poll) {
  const auto count = session_.CountOf(code);
  if (!count) return Unauthorized();
  return ChangesAnswer(*count, poll.device, session_.ChangesSince(poll.since, *count));
}

HttpAnswer FloorRoutes::ChangesAnswer(int count, const std::string& device, const FloorChanges& changes) {
  told_.emplace(count, device);
  if (changes.open) {
    openTold_.emplace(count, device);
  } else {
    openTold_.erase({count, device});
  }
  return Json(ChangesJson(changes));
}

void FloorRoutes::Unknown(FloorTask& task) {
  const auto unknown = ReadUnknown(task.exchange->Request().body);
  if (!unknown) {
    task.answer = BadRequest();
  } else if (!Admits(task.count, unknown->device)) {
    task.answer = TooManyDevices();
  } else if (session_.Unknown().size() >= limits_.unknownBarcodes) {
    // Not kTooMany, after which the device would send it again and again.
    task.answer = HttpAnswer::Refusal(kBadRequest, "باركدهاي ناشناختهٔ بسياري در ميز مانده است.");
  } else {
    session_.NoteUnknown(task.count, unknown->device, unknown->barcode);
    task.needsCommit = true;
    task.answer = Json("{}");
  }
}

}  // namespace koru
