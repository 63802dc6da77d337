#include "services/CapturedMessages.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

#include "services/Messages.h"

namespace koru {
namespace {

/// Counts what is shown at the desk.
class DeskComponent : public MessageComponent {
 public:
  explicit DeskComponent(int& shown) : shown_(shown) {}
  void SetFormTitle(const std::string& /*title*/) override {}
  void SetFormMessage(const std::string& /*message*/) override {}
  void SetFormType(int /*type*/) override {}
  void SetFormBackColor(std::uint32_t /*color*/) override {}
  void SetBtmBackColor(std::uint32_t /*color*/) override {}
  void SetFrameBackColor(std::uint32_t /*color*/) override {}
  void ClearShow() override { ++shown_; }
  [[nodiscard]] int Resualt() const override { return 1; }

 private:
  int& shown_;
};

class CapturedMessagesTest : public testing::Test {
 protected:
  CapturedMessagesTest() {
    components.Register(std::string(MessageComponent::kClassName),
                        [this] { return std::make_unique<DeskComponent>(shown); });
  }
  int shown = 0;
  ComponentRegistry components;
  Messages messages{components};
};

TEST_F(CapturedMessagesTest, Are_read_here_and_not_shown_at_the_desk) {
  const CapturedMessages captured(components);
  EXPECT_EQ(captured.Text(), "");
  messages.ShowMessage("خطا", "تعداد كمتر از اندازة مجاز است.");
  messages.ShowFailure(std::runtime_error("نوشته نشد."));
  EXPECT_EQ(captured.Text(), "تعداد كمتر از اندازة مجاز است.\nنوشته نشد.");
  EXPECT_EQ(messages.AskQuestion("حذف", "آيا مطمئن هستيد؟"), kNoAnswer);
  EXPECT_EQ(shown, 0);
}

TEST_F(CapturedMessagesTest, Afterwards_the_desk_is_shown_its_messages_again) {
  try {
    const CapturedMessages captured(components);
    throw std::runtime_error("an entry fails");
  } catch (const std::runtime_error&) {
    EXPECT_EQ(messages.AskQuestion("حذف", "آيا مطمئن هستيد؟"), kAnswerYes);
  }
  EXPECT_EQ(shown, 1);
}

TEST_F(CapturedMessagesTest, A_host_without_the_component_is_without_it_afterwards) {
  components.Unregister(MessageComponent::kClassName);
  {
    const CapturedMessages captured(components);
    messages.ShowMessage("خطا", "متن");
    EXPECT_EQ(captured.Text(), "متن");
  }
  EXPECT_THROW(static_cast<void>(components.Create(MessageComponent::kClassName)), std::exception);
}

}  // namespace
}  // namespace koru
