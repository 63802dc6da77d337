#include "services/Messages.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/sql/DatabaseError.h"
#include "platform/text/Errors.h"

namespace koru {
namespace {

/// What a message component was given, in order, and what it answers.
struct Recorded {
  std::vector<std::string> calls;
  int resualt = 1;
  bool fails = false;
  bool colorFails = false;
};

class RecordingComponent : public MessageComponent {
 public:
  explicit RecordingComponent(Recorded& recorded) : recorded_(recorded) {}
  void SetFormTitle(const std::string& title) override { Add("FormTitle " + title); }
  void SetFormMessage(const std::string& message) override { Add("FormMessage " + message); }
  void SetFormType(int type) override { Add("FormType " + std::to_string(type)); }
  void SetFormBackColor(std::uint32_t color) override {
    if (recorded_.colorFails) throw std::runtime_error("no such colour");
    Add("FormBackColor " + std::to_string(color));
  }
  void SetBtmBackColor(std::uint32_t color) override { Add("BtmBackColor " + std::to_string(color)); }
  void SetFrameBackColor(std::uint32_t color) override { Add("FrameBackColor " + std::to_string(color)); }
  void ClearShow() override {
    if (recorded_.fails) throw std::runtime_error("no window");
    Add("ClearShow");
  }
  [[nodiscard]] int Resualt() const override { return recorded_.resualt; }

 private:
  void Add(const std::string& call) { recorded_.calls.push_back(call); }
  Recorded& recorded_;
};

class MessagesTest : public testing::Test {
 protected:
  MessagesTest() {
    components.Register(std::string(MessageComponent::kClassName),
                        [this] { return std::make_unique<RecordingComponent>(recorded); });
  }
  Recorded recorded;
  ComponentRegistry components;
  Messages messages{components};
};

TEST_F(MessagesTest, A_write_that_may_be_stored_is_not_reported_as_one_that_was_not_done) {
  messages.ShowFailure(UncertainWrite("disk I/O error", 1034, "COMMIT"));
  ASSERT_GE(recorded.calls.size(), 2U);
  EXPECT_EQ(
      recorded.calls[1],
      "FormMessage به دليل خطاي پايگاه داده روشن نيست كه تغييرات اين فرمان ذخيره شده باشد.\ndisk I/O error");
}

TEST_F(MessagesTest, A_message_is_shown_with_its_title_and_the_suites_colours) {
  messages.ShowMessage("خطا", "متن");
  EXPECT_EQ(recorded.calls, (std::vector<std::string>{"FormTitle خطا", "FormMessage متن", "FormType 0",
                                                      "FormBackColor 14799304", "BtmBackColor 12490375",
                                                      "FrameBackColor 15655647", "ClearShow"}));
}

TEST_F(MessagesTest, A_question_is_answered_yes_no_or_not_at_all) {
  recorded.resualt = 1;
  EXPECT_EQ(messages.AskQuestion("هشدار", "؟"), 6);
  recorded.resualt = 0;
  EXPECT_EQ(messages.AskQuestion("هشدار", "؟"), 7);
  recorded.resualt = 5;
  EXPECT_EQ(messages.AskQuestion("هشدار", "؟"), 0);
  EXPECT_EQ(recorded.calls[2], "FormType 1");
}

TEST_F(MessagesTest, Without_the_message_component_nothing_is_shown_and_nothing_fails) {
  components.Unregister(MessageComponent::kClassName);
  EXPECT_NO_THROW(messages.ShowMessage("خطا", "متن"));
  EXPECT_EQ(messages.AskQuestion("هشدار", "؟"), 0);
  EXPECT_TRUE(recorded.calls.empty());
}

TEST_F(MessagesTest, A_message_that_cannot_be_shown_fails_nothing_else) {
  recorded.fails = true;
  EXPECT_NO_THROW(messages.ShowMessage("خطا", "متن"));
  EXPECT_EQ(messages.AskQuestion("هشدار", "؟"), 0);
}

TEST_F(MessagesTest, A_colour_that_cannot_be_set_does_not_keep_the_question_from_being_asked) {
  recorded.colorFails = true;
  EXPECT_EQ(messages.AskQuestion("هشدار", "؟"), 6);
  EXPECT_EQ(recorded.calls.back(), "ClearShow");
}

TEST_F(MessagesTest, A_database_failure_of_a_known_cause_says_what_to_do) {
  const std::vector<std::pair<DatabaseCause, const char*>> causes = {
      {DatabaseCause::DiskFull, "جا باز كنيد"},
      {DatabaseCause::Locked, "اندكي بعد"},
      {DatabaseCause::ReadOnly, "اجازة نوشتن"},
      {DatabaseCause::InputOutput, "نگهدارندة سيستم"},
      {DatabaseCause::Away, "روشن بودن سرور"}};
  for (const auto& [cause, advice] : causes) {
    recorded.calls.clear();
    messages.ShowFailure(DatabaseError("in English", 1, "select 1", cause));
    EXPECT_TRUE(recorded.calls.at(1).starts_with("FormMessage عمليات انجام نشد: ")) << recorded.calls[1];
    EXPECT_NE(recorded.calls[1].find(advice), std::string::npos) << recorded.calls[1];
    EXPECT_TRUE(recorded.calls[1].ends_with("\nin English")) << "on a line of its own";
  }
}

TEST_F(MessagesTest, A_database_failure_is_reported_in_Persian_with_the_servers_text_below_it) {
  messages.ShowFailure(DatabaseError("disk I/O error", 10, "select 1"));
  EXPECT_EQ(recorded.calls[0], "FormTitle خطا");
  EXPECT_EQ(recorded.calls[1], "FormMessage عمليات به دليل خطاي پايگاه داده انجام نشد.\ndisk I/O error");
  messages.ShowFailure(OverflowError("تعداد سطرها"));
  EXPECT_EQ(recorded.calls[8], "FormMessage تعداد سطرها");
}

}  // namespace
}  // namespace koru
