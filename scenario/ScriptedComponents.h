#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/ports/Components.h"
#include "scenario/UiDriver.h"
#include "siblings/documents/SuiteDocument.h"
#include "siblings/goods/SuiteGoodsPicker.h"

namespace koru {

// The suite's sibling components without windows: the scenario's user does at once what a user would do in
// the window.

/// The message component: the user answers.
class ScriptedMessage : public MessageComponent {
 public:
  /// `user` must outlive it.
  explicit ScriptedMessage(ScenarioUser& user) : user_(user) {}

  void SetFormTitle(const std::string& title) override { message_.title = title; }
  void SetFormMessage(const std::string& message) override { message_.text = message; }
  void SetFormType(int type) override { message_.type = type; }
  void SetFormBackColor(std::uint32_t) override {}
  void SetBtmBackColor(std::uint32_t) override {}
  void SetFrameBackColor(std::uint32_t) override {}
  void ClearShow() override { result_ = static_cast<int>(user_.AnswerMessage(message_)); }
  [[nodiscard]] int Resualt() const override { return result_; }

 private:
  ScenarioUser& user_;
  ShownMessage message_;
  int result_ = static_cast<int>(Answer::Closed);
};

/// Picks what the user wants among the goods that the picker offers (see PickGoods).
[[nodiscard]] std::optional<std::vector<PickedGood>> PickScripted(ScenarioUser& user, GoodsFinder& finder,
                                                                  const PickRequest& request);

/// Lets the user read a document, and register it (see ShowDocument).
void UseScripted(ScenarioUser& user, const OpenedDocument& opened);

}  // namespace koru
