#include "services/CapturedMessages.h"

#include <memory>
#include <utility>

namespace koru {

/// A message component without a window.
class CapturedMessages::Component : public MessageComponent {
 public:
  explicit Component(std::vector<std::string>& texts) : texts_(texts) {}
  void SetFormTitle(const std::string& /*title*/) override {}
  void SetFormMessage(const std::string& message) override { message_ = message; }
  void SetFormType(int /*type*/) override {}
  void SetFormBackColor(std::uint32_t /*color*/) override {}
  void SetBtmBackColor(std::uint32_t /*color*/) override {}
  void SetFrameBackColor(std::uint32_t /*color*/) override {}
  void ClearShow() override { texts_.push_back(message_); }
  [[nodiscard]] int Resualt() const override { return -1; }

 private:
  std::vector<std::string>& texts_;
  std::string message_;
};

CapturedMessages::CapturedMessages(ComponentRegistry& components)
    : components_(components), before_(components.Exchange(MessageComponent::kClassName, [this] {
        return std::make_unique<Component>(texts_);
      })) {}

CapturedMessages::~CapturedMessages() {
  components_.Exchange(MessageComponent::kClassName, std::move(before_));
}

std::string CapturedMessages::Text() const {
  std::string all;
  for (const std::string& text : texts_) {
    if (!all.empty()) all += '\n';
    all += text;
  }
  return all;
}

}  // namespace koru
