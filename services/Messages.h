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

/// Messages and questions, shown through the suite's message component, which is made anew for each of them.
class Messages {
 public:
  /// `components` must outlive the object.
  explicit Messages(const ComponentRegistry& components) : components_(components) {}

  /// Shows a message with one button. Dropped silently when the message component is missing or fails.
  void ShowMessage(const std::string& title, const std::string& message) const;

  /// Asks a yes/no question: kAnswerYes, kAnswerNo, or kNoAnswer when it was closed or could not be asked.
  [[nodiscard]] int AskQuestion(const std::string& title, const std::string& message) const;

  /// Tells the person of a command that failed: for a database failure a sentence with the server's text
  /// under it, for any other failure its own sentence.
  void ShowFailure(const std::exception& failure) const;

 private:
  const ComponentRegistry& components_;
};

}  // namespace koru
