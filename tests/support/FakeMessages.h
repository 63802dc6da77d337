#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "platform/ports/Components.h"

namespace koru::test {

/// Replaces the user who reads the suite's messages and answers its questions. Must outlive the registry
/// that it is registered in.
class FakeMessages {
 public:
  enum class Answer { Yes, No, None };

  struct Message {
    std::string title;
    std::string text;
    int type = 0;  ///< 0 message, 1 question
    std::uint32_t formColor = 0;
    std::uint32_t buttonColor = 0;
    std::uint32_t frameColor = 0;
  };

  /// Registers the message component that shows here, instead of any other.
  void RegisterIn(ComponentRegistry& registry);
  /// The answer to the next question that has none yet. Questions without one are closed without an answer.
  void WillAnswer(Answer answer) { answers_.push_back(answer); }
  /// Called while a message is shown.
  std::function<void(const Message&)> OnShow;

  [[nodiscard]] const std::vector<Message>& Shown() const { return shown_; }
  /// The texts of what was shown, in order.
  [[nodiscard]] std::vector<std::string> Texts() const;
  [[nodiscard]] std::size_t UnusedAnswers() const { return answers_.size(); }
  void Forget() { shown_.clear(); }

 private:
  class Component;
  Answer Show(const Message& message);

  std::deque<Answer> answers_;
  std::vector<Message> shown_;
};

}  // namespace koru::test
