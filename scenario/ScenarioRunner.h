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

/// Plays one scenario on a stage of its own with a fresh database. A message, a question or a modal form
/// comes in the middle of the step that caused it; the steps behind that one then go on from inside, until
/// the message is answered or the form is hidden.
class ScenarioRunner : private ScenarioUser {
 public:
  /// How the steps of a scenario are written, for ParseScenario.
  [[nodiscard]] static const std::vector<std::string_view>& Patterns();

  /// `scenario` must outlive the player.
  ScenarioRunner(const Scenario& scenario, const DriverMaker& makeDriver, ScratchRoute route = {});

  /// Plays to the end or to the first failure. Answers the failure (`file:line: sentence`); empty when all
  /// went as the scenario says.
  [[nodiscard]] std::string Play();

 private:
  Answer AnswerMessage(const ShownMessage& message) override;
  void UseModalForm(Form& form) override;
  std::vector<std::string> PickGoods() override;
  DocumentUse UseDocument(const ShownDocument& document) override;
  void CannotDo(const std::string& what) override;

  [[nodiscard]] bool GoesOn() const { return failure_.empty() && next_ < scenario_.steps.size(); }
  [[nodiscard]] bool NextLooksOnly() const;
  void PlayNext();
  void Run(const ScenarioStep& step);
  void CheckError(const ScenarioStep* step);
  /// Plays the steps that only look, then takes the one that answers what is shown: its first word is one of
  /// `words`. nullptr when the scenario has another one there, or has failed.
  const ScenarioStep* TakeAnswer(const std::string& shown, std::initializer_list<std::string_view> words);
  Answer Compare(const ShownMessage& message);
  void Fail(const std::string& what);

  const Scenario& scenario_;
  ScenarioWorld world_;
  std::size_t next_ = 0;
  std::size_t current_ = 0;             ///< the step that failures are reported at
  std::size_t errorAt_ = 0;             ///< the step whose error has not been looked at
  const ShownMessage* open_ = nullptr;  ///< the message that stands before the person
  std::string failure_;
};

}  // namespace koru
