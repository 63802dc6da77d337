#pragma once

#include <QColor>
#include <string>

#include "desktop/toolkit/MessageIcon.h"
#include "platform/ports/Components.h"

class QDialog;
class QVBoxLayout;

namespace koru {

/// The suite's message component on the desktop: a message with one button, or a question with yes and no.
/// What follows the first line of the message is shown below it in a field of its own: Persian sentences, and
/// paths and a server's English in small print, each in its direction. A path in a sentence (LeftToRight)
/// gets a line of its own. Enter presses the focused button, initially "no" in a question, since most
/// questions precede something that cannot be undone; ب and خ answer directly, and Escape is "no", as the
/// buttons say. A question has no close button, and a window manager that closes it answers "no".
class MessageDialog : public MessageComponent {
 public:
  static constexpr int kNoAnswer = -1;

  void SetFormTitle(const std::string& title) override { title_ = title; }
  void SetFormMessage(const std::string& message) override { message_ = message; }
  void SetFormType(int type) override { type_ = type; }
  void SetFormBackColor(std::uint32_t color) override;
  void SetBtmBackColor(std::uint32_t color) override;
  void SetFrameBackColor(std::uint32_t color) override;
  void ClearShow() override;
  [[nodiscard]] int Resualt() const override { return answer_; }

 private:
  [[nodiscard]] MessageIcon::Kind IconKind() const;
  void AddTexts(QDialog& dialog, QVBoxLayout& layout) const;
  void AddButtons(QDialog& dialog, QVBoxLayout& layout);
  void Paint(QDialog& dialog) const;

  std::string title_;
  std::string message_;
  int type_ = 0;
  int answer_ = kNoAnswer;
  QColor formColor_;
  QColor buttonColor_;
  QColor frameColor_;
};

}  // namespace koru
