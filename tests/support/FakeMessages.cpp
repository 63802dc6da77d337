#include "tests/support/FakeMessages.h"

#include <memory>

namespace koru::test {

class FakeMessages::Component : public MessageComponent {
 public:
  explicit Component(FakeMessages& messages) : messages_(messages) {}

  void SetFormTitle(const std::string& title) override { message_.title = title; }
  void SetFormMessage(const std::string& message) override { message_.text = message; }
  void SetFormType(int type) override { message_.type = type; }
  void SetFormBackColor(std::uint32_t color) override { message_.formColor = color; }
  void SetBtmBackColor(std::uint32_t color) override { message_.buttonColor = color; }
  void SetFrameBackColor(std::uint32_t color) override { message_.frameColor = color; }
  void ClearShow() override { answer_ = messages_.Show(message_); }
  [[nodiscard]] int Resualt() const override {
    if (answer_ == Answer::None) return -1;
    return answer_ == Answer::Yes ? 1 : 0;
  }

 private:
  FakeMessages& messages_;
  Message message_;
  Answer answer_ = Answer::None;
};

void FakeMessages::RegisterIn(ComponentRegistry& registry) {
  registry.Register(std::string(MessageComponent::kClassName),
                    [this] { return std::make_unique<Component>(*this); });
}

std::vector<std::string> FakeMessages::Texts() const {
  std::vector<std::string> texts;
  for (const Message& message : shown_) texts.push_back(message.text);
  return texts;
}

FakeMessages::Answer FakeMessages::Show(const Message& message) {
  shown_.push_back(message);
  if (OnShow) OnShow(message);
  if (message.type != 1 || answers_.empty()) return Answer::None;
  const Answer answer = answers_.front();
  answers_.pop_front();
  return answer;
}

}  // namespace koru::test
