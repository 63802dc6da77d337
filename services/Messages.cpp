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

/// What has happened to a command that failed, and what the user can do about it.
const char* WhatToDo(DatabaseCause cause) {
  switch (cause) {
    case DatabaseCause::DiskFull:
      return "عمليات انجام نشد: ديسك پايگاه داده پر است. روي آن جا باز كنيد و فرمان را دوباره بزنيد.";
    case DatabaseCause::Locked:
      return "عمليات انجام نشد: برنامة ديگري در حال نوشتن در پايگاه داده است. اندكي بعد فرمان را دوباره "
             "بزنيد.";
    case DatabaseCause::ReadOnly:
      return "عمليات انجام نشد: پايگاه داده فقط خواندني است. اجازة نوشتن آن و پوشة آن را از نگهدارندة سيستم "
             "بخواهيد.";
    case DatabaseCause::InputOutput:
      return "عمليات انجام نشد: ديسك پايگاه داده خطا داد. فرمان را دوباره بزنيد؛ اگر تكرار شد، كار را متوقف "
             "كنيد و نگهدارندة سيستم را خبر كنيد.";
    case DatabaseCause::Away:
      return "عمليات انجام نشد: سرور پايگاه داده در دسترس نيست. شبكه و روشن بودن سرور را بررسي كنيد و فرمان "
             "را "
             "دوباره بزنيد.";
    case DatabaseCause::Other:
      break;
  }
  return "عمليات به دليل خطاي پايگاه داده انجام نشد.";
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
    text = std::string(WhatToDo(database->Cause())) + "\n";
  }
  ShowMessage(sentences::kError, text + failure.what());
}

}  // namespace koru
