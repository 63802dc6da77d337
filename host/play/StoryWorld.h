#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "adapters/xlsx/XlsxStarter.h"
#include "control/comInvCounting.h"
#include "database/trial/TrialDatabase.h"
#include "host/ConnectorByProvider.h"
#include "host/RealSurroundings.h"
#include "host/TemporaryFolder.h"
#include "host/play/Stage.h"
#include "host/play/StatementLog.h"
#include "host/play/WatchedScreen.h"

namespace koru {

/// Makes the stage of a story. Windows that read records of their own (pickers) read them through
/// `databases`, so that the story sees the component's statements alone.
using StageMaker = std::function<std::unique_ptr<Stage>(Person& person, DatabaseConnector& databases)>;

/// A clock that a story sets; without that it shows the real day.
class StoryClock : public Clock {
 public:
  [[nodiscard]] Date Today() const override { return today_ ? *today_ : real_.Today(); }
  void Set(Date today) { today_ = today; }

 private:
  RealClock real_;
  std::optional<Date> today_;
};

/// All that a story is played in: a database of its own, a temporary folder, the stage, and the embedded
/// control.
class StoryWorld : private ControlHost {
 public:
  enum class Contents { Sample, Empty };

  /// `person` must outlive the world.
  StoryWorld(Person& person, const StageMaker& makeStage, TrialRoute route);

  /// Makes the story's database and connects the control to it. A story does so once, before anything else.
  void MakeDatabase(Contents contents);
  /// The story's own way to its database, for rows that it sets up or looks at.
  [[nodiscard]] TrialDatabase& Sql();
  /// Where the workbooks of the story go; not there before the first one.
  [[nodiscard]] std::filesystem::path Workbooks() const { return folder_.Path() / "workbooks"; }

  /// A form that is loaded, by name; nullptr when there is none.
  [[nodiscard]] Form* FindForm(std::string_view name) const;
  /// The form that the person works with: the visible one that was shown last.
  [[nodiscard]] Form& ActiveForm() const;
  /// A control by name, or by form and name (`frmInvSearch.cmdExit`). Without a form: of the active form, or,
  /// when it has none of that name or none is visible, of the counting form.
  [[nodiscard]] Control& FindControl(const std::string& name) const;

 private:
  TemporaryFolder folder_;
  ConnectorByProvider databases_;
  TrialRoute route_;
  std::unique_ptr<TrialDatabase> database_;
  RealFileSystem files_;

 public:
  ComponentRegistry components;
  StatementLog log{databases_};
  StoryClock clock;
  /// Workbooks stay in the story's folder; nobody opens them.
  XlsxStarter spreadsheets{{Workbooks().string(), {}, {}}, clock};
  const std::unique_ptr<Stage> stage;
  WatchedScreen screen;
  comInvCounting counting;
  std::optional<bool> viewResult;  ///< what the last View gave back
  std::string hostError;           ///< what the last call of the host threw, until a step has looked at it

 private:
  [[nodiscard]] koru::Font AmbientFont() const override { return {}; }
  void PropertyChanged(std::string_view) override {}
};

}  // namespace koru
