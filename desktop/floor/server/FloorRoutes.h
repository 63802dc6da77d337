#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "desktop/floor/server/AllowedHosts.h"
#include "desktop/floor/server/FloorRequests.h"
#include "desktop/floor/server/FloorServer.h"
#include "desktop/floor/server/HttpServer.h"
#include "desktop/floor/server/KeptLines.h"
#include "desktop/floor/server/PageFiles.h"
#include "desktop/floor/server/RequestRate.h"

namespace koru {

/// A request of a device on its way through the session.
struct FloorTask {
  FloorTask(HttpExchange& asked, std::int64_t made) : exchange(&asked), linesMade(made) {}

  HttpExchange* exchange;
  std::int64_t linesMade;                 ///< how often, when the request came
  std::optional<FiguresRequest> figures;  ///< once it has been read
  std::vector<FloorAnswer> answers;       ///< to the first of them
  std::int64_t revision = 0;              ///< of the lines with these
  std::optional<ChangesRequest> poll;     ///< it is to be held until something changes
  std::optional<HttpAnswer> answer;
  int count = 0;
  bool needsCommit = false;  ///< the answer must not be sent before a commit that began later is on the disk

  [[nodiscard]] bool IsDecided() const { return answer.has_value() || poll.has_value(); }
};

/// What the server answers to which request.
class FloorRoutes {
 public:
  FloorRoutes(FloorSession& session, const FloorServerSettings& settings);

  [[nodiscard]] AllowedHosts& Hosts() { return hosts_; }

  /// The page's files, and refusals that the head of a request calls for.
  [[nodiscard]] std::optional<HttpAnswer> Admit(const HttpRequest& head);
  /// A request that was read whole.
  [[nodiscard]] FloorTask TaskOf(HttpExchange& exchange) const { return {exchange, lines_.Made()}; }
  /// Whether the task adds to the journal of the session.
  [[nodiscard]] static bool IsForJournal(const FloorTask& task) {
    return task.exchange->Request().method == "POST";
  }
  /// Takes the task a step further: one figure, some lines, or all that another request asks for.
  void Advance(FloorTask& task);
  /// Whether some figures of the task were decided, and others not yet.
  [[nodiscard]] static bool IsHalfDecided(const FloorTask& task) {
    return !task.answer && !task.answers.empty();
  }
  /// Answers figures: what was decided, and that the others are paused. What is in the counting is never
  /// denied to its device.
  void AnswerFigures(FloorTask& task);
  /// The answer to a request for changes; nothing while it is to be held. `since` is advanced over what
  /// does not matter to the device.
  [[nodiscard]] std::optional<HttpAnswer> Changes(const std::string& code, ChangesRequest& poll);
  /// The same when it has been held long enough.
  [[nodiscard]] HttpAnswer ChangesNow(const std::string& code, const ChangesRequest& poll);

  /// The code in the header field Authorization; empty when there is none.
  [[nodiscard]] static std::string CodeOf(const HttpRequest& request);

 private:
  using DeviceKey = std::pair<int, std::string>;

  void Hello(FloorTask& task);
  void Lines(FloorTask& task);
  void Figures(FloorTask& task);
  void AskForChanges(FloorTask& task);
  void Unknown(FloorTask& task);
  [[nodiscard]] bool Admits(int count, const std::string& device);
  [[nodiscard]] HttpAnswer ChangesAnswer(int count, const std::string& device, const FloorChanges& changes);

  FloorSession& session_;
  const FloorServerLimits limits_;
  const std::string store_;
  const std::string counting_;
  AllowedHosts hosts_;
  PageFiles page_;
  KeptLines lines_;
  RequestRate rate_;
  std::set<DeviceKey> devices_;   ///< that take part
  std::set<DeviceKey> openTold_;  ///< those that know the session as open
  std::set<DeviceKey> told_;      ///< those that know whether it is
};

}  // namespace koru
