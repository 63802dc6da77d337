#include <gtest/gtest.h>

#include <utility>

#include "tests/counting/CountingWorld.h"

namespace koru::test {
namespace {

using Answer = FakeMessages::Answer;

/// Another station registers counting 10 while the form opens it: the header has been read, the rest has not.
class OtherStationMeanwhile : public CountingWorld {
 protected:
  void SetUp() override {
    View(12);
    bool isRegistered = false;
    const Subscription opening = Form().lblIDVal.StateChanged.Subscribe([&] {
      if (std::exchange(isRegistered, true)) return;
      database.Execute("update tblInventoryCounting set Code=2,CreatorID=8 where ID=10");
    });
    View(10);
    ASSERT_TRUE(isRegistered);
    ASSERT_EQ(Form().txtCode.Text(), "");
    NewMessages();
  }
};

TEST_F(OtherStationMeanwhile, The_registered_counting_is_not_deleted) {
  messages.WillAnswer(Answer::Yes);
  messages.WillAnswer(Answer::No);
  Click(Form().cmdDelete);
  const Texts shown = NewMessages();
  ASSERT_EQ(shown.size(), 2U);
  EXPECT_NE(shown[1].find("با شماره 2 ثبت نهايي شده است"), std::string::npos) << shown[1];
  EXPECT_EQ(database.Scalar("select count(*) from tblInventoryCounting where ID=10"), "1");
}

TEST_F(OtherStationMeanwhile, Edit_shows_the_registered_counting_first) {
  Click(Form().cmdEdit);
  const Texts shown = NewMessages();
  ASSERT_FALSE(shown.empty());
  EXPECT_NE(shown[0].find("تازه خوانده شد"), std::string::npos) << shown[0];
  EXPECT_EQ(Form().txtCode.Text(), "2");
  EXPECT_EQ(Mode(), DocumentMode::Viewing);
}

}  // namespace
}  // namespace koru::test
