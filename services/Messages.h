#pragma once

#include <exception>
#include <string>

#include "platform/ports/Components.h"

namespace koru {

/// The answers of AskQuestion.
inline constexpr int kAnswerYes = 6;
inline constexpr int kAnswerNo = 7;
inline constexpr int kNoAnswer = 0;

/// Titles and sentences that more than one command shows.
namespace sentences {
inline constexpr const char* kError = "خطا";
inline constexpr const char* kWarning = "هشدار";
inline constexpr const char* kNotPermitted =
    "شما مجاز به انجام اين عمليات نيستيد. با نگهدارنده سيستم هماهنگ نماييد.";
inline constexpr const char* kAreYouSure = "آيا مطمئن هستيد؟";
}  // namespace sentences

/// Shows messages and questions through the suite's message component, which is made anew for each of them.
class Messages {
 public:
  /// `components` must outlive the object.
  explicit Messages(const ComponentRegistry& components) : components_(components) {}

  /// Shows a message with one button. When the message component is missing or fails, the message is dropped
  /// silently.
  void ShowMessage(const std::string& title, const std::string& message) const;

  /// Asks a yes/no question. Returns kAnswerYes, kAnswerNo, or kNoAnswer when it was closed or could not be
  /// asked.
  [[nodiscard]] int AskQuestion(const std::string& title, const std::string& message) const;

  /// Reports a command that failed: a database failure as a sentence that names its cause and what to do,
  /// followed by the database's own text on lines of its own, any other failure as its own sentence.
  void ShowFailure(const std::exception& failure) const;

 private:
  const ComponentRegistry& components_;
};

}  // namespace koru
