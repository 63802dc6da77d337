#include "control/services/Messages.h"

#include <cstdint>

#include "platform/Errors.h"

namespace koru {
namespace {

constexpr std::uint32_t kFormBackColor = 14799304;
constexpr std::uint32_t kBtmBackColor = 12490375;
constexpr std::uint32_t kFrameBackColor = 15655647;

constexpr int kMessage = 0;
constexpr int kQuestion = 1;

/// Shows the component and answers what it has as its result; -1 when it is missing or fails, which must
/// never become a failure of the command that had something to say.
int Show(const ComponentRegistry& components, const std::string& title, const std::string& text, int type) {
  try {
    const auto component = components.Create(MessageComponent::kClassName);
    auto* message = dynamic_cast<MessageComponent*>(component.get());
    if (message == nullptr) return -1;
    message->SetFormTitle(title);
    message->SetFormMessage(text);
    message->SetFormType(type);
    message->SetFormBackColor(kFormBackColor);
    message->SetBtmBackColor(kBtmBackColor);
    message->SetFrameBackColor(kFrameBackColor);
    message->ClearShow();
    return type == kQuestion ? message->Resualt() : -1;
  } catch (const std::exception&) {
    return -1;
  }
}

}  // namespace

void Messages::ShowMessage(const std::string& title, const std::string& message) const {
  Show(components_, title, message, kMessage);
}

int Messages::AskQuestion(const std::string& title, const std::string& message) const {
  switch (Show(components_, title, message, kQuestion)) {
    case 1:
      return kAnswerYes;
    case 0:
      return kAnswerNo;
    default:
      return kNoAnswer;
  }
}

void Messages::ShowFailure(const std::exception& failure) const {
  const auto* database = dynamic_cast<const DatabaseError*>(&failure);
  const std::string text = database == nullptr
                               ? failure.what()
                               : "عمليات به دليل خطاي پايگاه داده انجام نشد.\n" + database->ServerText();
  ShowMessage(sentences::kError, text);
}

}  // namespace koru
