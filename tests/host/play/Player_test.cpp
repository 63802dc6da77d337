#include "host/play/Player.h"

#include <gtest/gtest.h>

#include <memory>

#include "host/play/FormStage.h"

namespace koru {
namespace {

/// Plays a story on the forms; "" when it passed.
std::string Play(const std::string& text) {
  const Story story = ParseStory(text, "s.story", Player::Patterns());
  const auto stage = [](Person& person, DatabaseConnector&) -> std::unique_ptr<Stage> {
    return std::make_unique<FormStage>(person);
  };
  return Player(story, stage).Play();
}

/// A company with one user who may do everything and one store.
const std::string kCompany =
    "database empty\n"
    "sql \"insert into tblUser(ID,FullName) values(1,'Sara')\"\n"
    "sql \"insert into tblInventory(ID,Name,IsDefault) values(1,'Main',1)\"\n"
    "sql \"insert into tblInventoryUser(UserID,InventoryID) values(1,1)\"\n"
    "user 1\n";
const std::string kRights =
    "sql \"insert into tblPelinUserPermission(UserID,FormPermissionID) "
    "values(1,806),(1,80601),(1,80602),(1,80603)\"\n";

TEST(Playing, A_story_that_goes_as_it_says_passes) {
  EXPECT_EQ(Play(kCompany + kRights +
                 "clearshow\nexpect form frmInvCounting shown modeless\nclick cmdNew\nexpect mode 2\n"
                 "expect txtCreator \"Sara\"\nexpect gmpInventory 1\n"),
            "");
}

TEST(Playing, A_wrong_expectation_fails_with_place_expected_and_found) {
  EXPECT_EQ(Play(kCompany + kRights + "clearshow\nexpect mode 2\n"), "s.story:8: mode: expected 2, found 3");
  EXPECT_EQ(Play(kCompany + kRights + "clearshow\nexpect txtCode \"7\"\n"),
            "s.story:8: txtCode: expected \"7\", found \"\"");
  EXPECT_EQ(Play(kCompany + kRights + "clearshow\nexpect cmdEdit enabled\n"),
            "s.story:8: cmdEdit is not enabled");
  EXPECT_EQ(Play(kCompany + "expect sql \"select ID, FullName, NULL from tblUser\"\n| 1 \"Ali\" NULL\n"),
            "s.story:6: row 1: expected | 1 \"Ali\" NULL, found | 1 \"Sara\" NULL");
  EXPECT_EQ(Play(kCompany + "expect sql \"select ID from tblUser\"\n"),
            "s.story:6: row 1: expected no more, found | 1");
}

TEST(Playing, A_message_that_no_step_expects_fails_the_story_with_its_text) {
  EXPECT_EQ(Play(kCompany + "clearshow\nexpect mode 3\n"),
            "s.story:6: a message is shown that the story does not expect; on the screen stands the message "
            "\"خطا\" "
            "\"شما مجاز به انجام اين عمليات نيستيد. با نگهدارنده سيستم هماهنگ نماييد.\"");
}

TEST(Playing, A_message_that_does_not_come_fails_the_story) {
  EXPECT_EQ(Play(kCompany + kRights + "clearshow\nmessage \"a\" \"b\"\n"),
            "s.story:8: expected the message \"a\" \"b\", and none is shown");
}

TEST(Playing, A_question_is_answered_and_what_follows_goes_on_behind_it) {
  const std::string question =
      "clearshow\nclick cmdNew\nclick cmdCancel\n"
      "question \"انصراف از ثبت شمارش\" \"آيا مطمئن هستيد؟\" ";
  EXPECT_EQ(Play(kCompany + kRights + question + "yes\nexpect mode 3\n"), "");
  EXPECT_EQ(Play(kCompany + kRights + question + "no\nexpect mode 2\n"), "");
  EXPECT_EQ(Play(kCompany + kRights + question + "close\nexpect mode 2\n"), "");
}

TEST(Playing, A_control_that_cannot_be_used_fails_the_step) {
  EXPECT_EQ(Play(kCompany + kRights + "clearshow\nclick cmdEdit\n"),
            "s.story:8: a person cannot click cmdEdit: it is disabled");
  EXPECT_EQ(Play(kCompany + kRights + "clearshow\ntype txtGNO \"1\"\n"),
            "s.story:8: a person cannot type txtGNO: it is locked");
  EXPECT_EQ(Play(kCompany + kRights + "clearshow\nclick txtGNO\n"), "s.story:8: txtGNO is no button");
  EXPECT_EQ(Play(kCompany + kRights + "clearshow\nclick cmdNone\n"),
            "s.story:8: no loaded form has a control cmdNone");
}

TEST(Playing, A_modal_form_is_used_from_inside_the_call_that_showed_it) {
  EXPECT_EQ(Play(kCompany + kRights +
                 "sql \"insert into tblInventoryCounting(ID,InventoryID,CreatorID) values(5,1,1)\"\n"
                 "sql \"insert into tblPelinSystemParameters(ID,SystemID,Value) values(123,1,1)\"\n"
                 "view 5\nexpect form frmInvCounting shown modal\nclick cmdExit\nexpect result true\n"
                 "expect form frmInvCounting unloaded\n"),
            "");
  EXPECT_EQ(Play(kCompany + kRights +
                 "sql \"insert into tblInventoryCounting(ID,InventoryID,CreatorID) values(5,1,1)\"\n"
                 "sql \"insert into tblPelinSystemParameters(ID,SystemID,Value) values(123,1,1)\"\n"
                 "view 5\nexpect result true\n"),
            "s.story:10: no view has come to its end");
}

TEST(Playing, What_a_call_of_the_host_throws_must_be_expected) {
  const std::string call = kCompany + "connection \"0\"\nview 5\n";
  EXPECT_EQ(Play(kCompany + "fail statement 1 \"dead\"\nview 5\nerror \"dead\"\n"), "");
  EXPECT_EQ(Play(kCompany + "fail statement 1 \"dead\"\nview 5\n"),
            "s.story:7: this step failed with the error \"dead\"");
  EXPECT_EQ(Play(kCompany + "fail statement 1 \"dead\"\nview 5\nexpect mode 0\n"),
            "s.story:7: this step failed with the error \"dead\"");
  EXPECT_EQ(Play(kCompany + "fail statement 1 \"dead\"\nview 5\nerror \"live\"\n"),
            "s.story:8: expected the error \"live\", found \"dead\"");
  EXPECT_EQ(Play(kCompany + "fail statement 99 \"dead\"\n"),
            "s.story:6: the story ends before the statement that was to fail");
}

TEST(Playing, The_statements_are_compared_whole_and_in_order) {
  EXPECT_EQ(Play(kCompany + kRights + "clearshow\nforget statements\nclick cmdEdit\n"),
            "s.story:9: a person cannot click cmdEdit: it is disabled");
  EXPECT_EQ(Play(kCompany + kRights + "clearshow\nforget statements\nexpect statements\n"), "");
  EXPECT_EQ(Play(kCompany + kRights + "clearshow\nforget statements\nexpect statements\n| \"select 1\"\n"),
            "s.story:9: statement 1: expected | \"select 1\", found no more");
}

TEST(Playing, A_story_without_a_database_is_told_so) {
  EXPECT_EQ(Play("sql \"select 1\"\n"),
            "s.story:1: the story has no database; it begins with `database sample` or `database empty`");
  EXPECT_EQ(Play("database empty\ndatabase empty\n"), "s.story:2: the story has its database already");
}

}  // namespace
}  // namespace koru
