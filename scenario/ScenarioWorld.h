#pragma once

#include <chrono>
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
#include "scenario/ScenarioTables.h"
#include "scenario/StatementLog.h"
#include "scenario/UiDriver.h"
#include "scenario/WatchedScreen.h"

namespace koru {

class ScenarioFloor;

/// Makes the driver of a scenario. Windows that read records of their own (pickers) read them through
/// `databases`, so that the statements of the scenario are those of the component alone.
using DriverMaker =
    std::function<std::unique_ptr<UiDriver>(ScenarioUser& user, DatabaseConnector& databases)>;

/// A clock that a scenario can set; the machine's date until then. Its time passes as the scenario says.
class ScenarioClock : public Clock {
 public:
  [[nodiscard]] Date Today() const override { return today_ ? *today_ : real_.Today(); }
  void Set(Date today) { today_ = today; }
  [[nodiscard]] std::chrono::system_clock::time_point Now() const override { return now_; }
  void Pass(std::chrono::minutes minutes) { now_ += minutes; }

 private:
  SystemClock real_;
  std::optional<Date> today_;
  std::chrono::system_clock::time_point now_;
};

/// The environment of one scenario: a database of its own, a temporary folder, the driver, and the embedded
/// control.
class ScenarioWorld : private ControlHost {
 public:
  enum class Contents { Sample, Empty };

  /// `user` must outlive the world. `server`: see RunScenarios.
  ScenarioWorld(ScenarioUser& user, const DriverMaker& makeDriver, TableReader readTable,
                std::optional<std::string> server);

  /// Makes the scenario's database and connects the control to it. Throws ScenarioFailure the second time.
  void MakeDatabase(Contents contents);
  /// The scenario's own connection to its database, for rows that it sets up or checks. Throws
  /// ScenarioFailure before MakeDatabase.
  [[nodiscard]] ScratchDatabase& Sql();
  /// How the program is started without a database, or with the scenario's database and user. Throws
  /// ScenarioFailure before MakeDatabase.
  [[nodiscard]] ProgramStart StartOfProgram(bool withDatabase) const;
  /// The control ends without asking anything, as with a program that is killed, and another one takes its
  /// place, with the same database and user. Throws ScenarioFailure while a modal form is shown.
  void Restart();
  /// The folder of the files that the scenario writes for its user.
  [[nodiscard]] std::filesystem::path Folder() const { return folder_.Path(); }
  /// The folder of the workbooks that the scenario exports; does not exist before the first.
  [[nodiscard]] std::filesystem::path Workbooks() const { return folder_.Path() / "workbooks"; }

  /// A form that is loaded, by name; nullptr when there is none.
  [[nodiscard]] Form* FindForm(std::string_view name) const;
  /// The visible form that was shown last. Throws ScenarioFailure when none is visible.
  [[nodiscard]] Form& ActiveForm() const;
  /// A control by name, or by form and name (`frmInvSearch.cmdExit`). Without a form: of the active form, or,
  /// when none is visible or it has no control of that name, of the counting form. Throws ScenarioFailure.
  [[nodiscard]] Control& FindControl(const std::string& name) const;

 private:
  TemporaryFolder folder_;
  ConnectorByProvider databases_;
  std::optional<std::string> server_;
  std::unique_ptr<ScratchDatabase> database_;
  SystemFileSystem files_;

 public:
  ComponentRegistry components;
  StatementLog log{databases_};
  ScenarioClock clock;
  /// Workbooks stay in the scenario's folder and are not opened.
  XlsxStarter spreadsheets{{Workbooks().string(), {}, {}}, clock};
  /// The file that the user chooses next.
  ScenarioTables tables;
  const std::unique_ptr<UiDriver> driver;
  WatchedScreen screen;
  std::unique_ptr<comInvCounting> counting;
  std::optional<bool> viewResult;        ///< the result of the last View
  std::string hostError;                 ///< what the last call of the host threw, until a step checks it
  std::shared_ptr<ScenarioFloor> floor;  ///< made by the first step of the floor; only they know the class

 private:
  [[nodiscard]] std::unique_ptr<comInvCounting> NewCounting();
  [[nodiscard]] koru::Font AmbientFont() const override { return {}; }
  void PropertyChanged(std::string_view) override {}
};

}  // namespace koru
