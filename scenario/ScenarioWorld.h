#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "adapters/provider/ConnectorByProvider.h"
#include "adapters/system/SystemServices.h"
#include "adapters/system/TemporaryFolder.h"
#include "adapters/xlsx/XlsxStarter.h"
#include "component/comInvCounting.h"
#include "database/scratch/ScratchDatabase.h"
#include "scenario/StatementLog.h"
#include "scenario/UiDriver.h"
#include "scenario/WatchedScreen.h"

namespace koru {

/// Makes the stage of a scenario. Windows that read records of their own (pickers) read them through
/// `databases`, so that the scenario sees the component's statements alone.
using DriverMaker =
    std::function<std::unique_ptr<UiDriver>(ScenarioUser& user, DatabaseConnector& databases)>;

/// A clock that a scenario sets; without that it shows the real day.
class ScenarioClock : public Clock {
 public:
  [[nodiscard]] Date Today() const override { return today_ ? *today_ : real_.Today(); }
  void Set(Date today) { today_ = today; }

 private:
  SystemClock real_;
  std::optional<Date> today_;
};

/// All that a scenario is played in: a database of its own, a temporary folder, the driver, and the embedded
/// control.
class ScenarioWorld : private ControlHost {
 public:
  enum class Contents { Sample, Empty };

  /// `person` must outlive the world.
  ScenarioWorld(ScenarioUser& user, const DriverMaker& makeDriver, ScratchRoute route);

  /// Makes the scenario's database and connects the control to it. A scenario does so once, before anything
  /// else.
  void MakeDatabase(Contents contents);
  /// The scenario's own way to its database, for rows that it sets up or looks at.
  [[nodiscard]] ScratchDatabase& Sql();
  /// Where the workbooks of the scenario go; not there before the first one.
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
  ScratchRoute route_;
  std::unique_ptr<ScratchDatabase> database_;
  SystemFileSystem files_;

 public:
  ComponentRegistry components;
  StatementLog log{databases_};
  ScenarioClock clock;
  /// Workbooks stay in the scenario's folder; nobody opens them.
  XlsxStarter spreadsheets{{Workbooks().string(), {}, {}}, clock};
  const std::unique_ptr<UiDriver> driver;
  WatchedScreen screen;
  comInvCounting counting;
  std::optional<bool> viewResult;  ///< what the last View gave back
  std::string hostError;           ///< what the last call of the host threw, until a step has looked at it

 private:
  [[nodiscard]] koru::Font AmbientFont() const override { return {}; }
  void PropertyChanged(std::string_view) override {}
};

}  // namespace koru
