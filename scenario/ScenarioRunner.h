#pragma once

#include <cstddef>
#include <functional>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "scenario/Scenario.h"
#include "scenario/ScenarioWorld.h"
#include "scenario/UiDriver.h"

namespace koru {

/// Runs one scenario with a driver of its own and a new database. A message, a question or a modal form
/// appears during the step that causes it; the following steps then run inside that step, until the message
/// is answered or the form is hidden.
class ScenarioRunner : private ScenarioUser {
 public:
  /// How the steps of a scenario are written, for ParseScenario.
  [[nodiscard]] static const std::vector<std::string_view>& Patterns();

  /// `scenario` must outlive the runner. `readTable`, `server`: see RunScenarios.
  ScenarioRunner(const Scenario& scenario, const DriverMaker& makeDriver, TableReader readTable = {},
                 std::optional<std::string> server = {});

  /// Runs to the end or to the first failure. Returns the failure (`file:line: sentence`), or an empty text.
  [[nodiscard]] std::string Run();

 private:
  Answer AnswerMessage(const ShownMessage& message) override;
  void UseModalForm(Form& form) override;
  std::vector<std::string> PickGoods() override;
  DocumentUse UseDocument(const ShownDocument& document) override;
  void UseDialog(const std::string& name) override;
  void CannotDo(const std::string& what) override;

  [[nodiscard]] bool HasNext() const { return failure_.empty() && next_ < scenario_.steps.size(); }
  [[nodiscard]] bool NextIsBeforeAnswer() const;
  void RunNext();
  void RunStep(const ScenarioStep& step);
  void CheckError(const ScenarioStep* step);
  /// Runs the steps that only check or press keys, then takes the one that answers what is shown: its first
  /// word is one of `words`. nullptr when the next step is another, or the scenario has failed.
  const ScenarioStep* TakeAnswer(const std::string& shown, std::initializer_list<std::string_view> words);
  Answer Compare(const ShownMessage& message);
  void Fail(const std::string& what);

  const Scenario& scenario_;
  ScenarioWorld world_;
  std::size_t next_ = 0;
  std::size_t current_ = 0;             ///< the step that failures are reported at
  std::size_t errorAt_ = 0;             ///< the step whose error has not been checked
  const ShownMessage* open_ = nullptr;  ///< the message that is shown
  std::string failure_;
};

}  // namespace koru
