#include "services/Messages.h"

#include <cstdint>
#include <memory>

#include "platform/sql/DatabaseError.h"

namespace koru {
namespace {

constexpr std::uint32_t kFormBackColor = 14799304;
constexpr std::uint32_t kBtmBackColor = 12490375;
constexpr std::uint32_t kFrameBackColor = 15655647;

constexpr int kMessage = 0;
constexpr int kQuestion = 1;

/// Runs one step of showing a message. A failure of the message must not become a failure of the command that
/// shows it.
template <class Step>
void IgnoringErrors(const Step& step) {
  try {
    step();
  } catch (const std::exception&) {
    return;
  }
}

/// Shows the component and returns its result; -1 for a message, and when the component is missing.
int Show(const ComponentRegistry& components, const std::string& title, const std::string& text, int type) {
  std::unique_ptr<SiblingComponent> component;
  IgnoringErrors([&] { component = components.Create(MessageComponent::kClassName); });
  auto* const message = dynamic_cast<MessageComponent*>(component.get());
  if (message == nullptr) return -1;
  IgnoringErrors([&] { message->SetFormTitle(title); });
  IgnoringErrors([&] { message->SetFormMessage(text); });
  IgnoringErrors([&] { message->SetFormType(type); });
  IgnoringErrors([&] { message->SetFormBackColor(kFormBackColor); });
  IgnoringErrors([&] { message->SetBtmBackColor(kBtmBackColor); });
  IgnoringErrors([&] { message->SetFrameBackColor(kFrameBackColor); });
  int resualt = -1;
  IgnoringErrors([&] {
    message->ClearShow();
    if (type == kQuestion) resualt = message->Resualt();
  });
  return resualt;
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
  std::string text;
  if (dynamic_cast<const UncertainWrite*>(&failure) != nullptr) {
    text = "به دليل خطاي پايگاه داده روشن نيست كه تغييرات اين فرمان ذخيره شده باشد.\n";
  } else if (database != nullptr) {
    text = "عمليات به دليل خطاي پايگاه داده انجام نشد.\n";
  }
  ShowMessage(sentences::kError, text + failure.what());
}

}  // namespace koru
