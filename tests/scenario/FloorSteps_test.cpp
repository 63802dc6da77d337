// Steps of devices on the floor: what they refuse, and that each of their expectations can fail.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "tests/scenario/FailureOf.h"

namespace koru {
namespace {

/// A company with one user, one store and its countings 5 and 6; the first one has a rope, 100, and a lamp,
/// 200, of which nothing is counted.
const std::string kCounting = R"steps(database empty
sql "insert into tblUser(ID,FullName) values(1,'Sara')"
sql "insert into tblInventory(ID,Name,IsDefault) values(1,'Main',1)"
sql "insert into tblInventoryUser(UserID,InventoryID) values(1,1)"
sql "insert into tblPelinUserPermission(UserID,FormPermissionID) values(1,80602),(1,80605)"
sql "insert into tblGood(Barcode,Code,Name) values('100','A','Rope'),('200','B','Lamp')"
sql "insert into tblInventoryCounting(ID,InventoryID,CreatorID,CreateDate) values(5,1,1,'2025-12-20'),(6,1,1,'2025-12-20')"
sql "insert into tblInventoryCountingDetail(CountingID,Barcode,RowNumber) values(5,'100',1),(5,'200',2)"
user 1
)steps";
const std::string kEdited = kCounting + "view 5\nclick cmdEdit\n";
const std::string kOpen = kEdited + "floor open\ndevice \"a\" open 1\n";
const std::string kSet = kOpen + "device \"a\" set \"100\" \"12\"\n";

/// The failure of a scenario that has `steps` after `begin`, with the step's number among them; "" when it
/// passes.
std::string After(const std::string& begin, const std::string& steps) {
  std::string failure = test::FailureOf(begin + steps + "\n");
  const std::string place = "s.scenario:";
  if (!failure.starts_with(place)) return failure;
  const std::size_t end = failure.find(':', place.size());
  const auto line = std::stol(failure.substr(place.size(), end - place.size()));
  return std::to_string(line - std::count(begin.begin(), begin.end(), '\n')) + failure.substr(end);
}

TEST(FloorSteps, A_figure_reaches_its_count_and_its_device_shows_it) {
  EXPECT_EQ(After(kSet, R"(expect cell flexDetail 1 6 "12"
expect device "a" figure "100" "12"
expect device "a" unsent 0
expect device "a" left 1)"),
            "");
  EXPECT_EQ(After(kEdited, R"(floor open
device "a" open 3
device "a" add "200" "۲"
device "a" add "200" "3"
expect cell flexDetail 2 8 "5"
expect cell flexDetail 2 6 "")"),
            "");
}

TEST(FloorSteps, What_a_device_shows_is_compared) {
  EXPECT_EQ(After(kSet, R"(expect device "a" figure "100" "7")"),
            R"(1: figure of 100: expected "7", found "12")");
  EXPECT_EQ(After(kSet, R"(expect device "a" unsent 1)"), "1: unsent figures: expected 1, found 0");
  EXPECT_EQ(After(kSet, R"(expect device "a" left 2)"), "1: lines left: expected 2, found 1");
  EXPECT_EQ(After(kSet, R"(expect device "a" paused)"), "1: a: expected paused, found open");
  EXPECT_EQ(After(kSet, R"(expect device "b" open)"), "1: b: expected open, found nothing");
  EXPECT_EQ(After(kSet, "expect device \"a\" answers\n| \"100\" conflict \"7\" \"b\""),
            R"(1: answer 1: expected | "100" conflict "7" "b", found | "100" stored "12")");
  EXPECT_EQ(After(kSet, R"(expect device "a" answers)"),
            R"(1: answer 1: expected no more, found | "100" stored "12")");
}

TEST(FloorSteps, What_the_desk_sees_is_compared) {
  const std::string seen = kOpen + "device \"a\" set \"100\" \"-1\"\ndevice \"a\" scan \"99\"\n";
  EXPECT_EQ(After(seen, "expect devices\n| \"a\" 1 1 0"),
            R"(1: device 1: expected | "a" 1 1 0, found | "a" 1 1 1)");
  EXPECT_EQ(After(seen, "expect unknown"), R"(1: unknown barcode 1: expected no more, found | "99" 1 "a")");
  EXPECT_EQ(After(seen, "expect arrivals"), "");
  EXPECT_EQ(After(kSet, "expect arrivals"), R"(1: arrival 1: expected no more, found | 1 6 "" "12" "a")");
  EXPECT_EQ(After(kSet, "forget arrivals\nexpect arrivals"), "");
  EXPECT_EQ(After(kSet, "expect floor paused"), "1: floor: expected paused, found open");
  EXPECT_EQ(After(kSet, "expect left 1"), "1: left figures: expected 1, found 0");
}

TEST(FloorSteps, Without_a_network_figures_stay_in_the_device_and_are_sent_in_their_order) {
  const std::string offline = kOpen + R"(device "a" offline
device "a" set "100" "3"
device "a" add "100" "0.5"
device "a" send
expect device "a" unsent 2
expect device "a" unreachable
expect device "a" figure "100" "3.5"
expect cell flexDetail 1 6 ""
)";
  EXPECT_EQ(After(offline, R"(device "a" online
expect device "a" unsent 0
expect cell flexDetail 1 6 "3.5")"),
            "");
}

TEST(FloorSteps, A_lost_answer_leaves_the_figure_in_the_device_until_it_is_sent_again) {
  EXPECT_EQ(After(kSet, R"(device "a" lose answer
device "a" send
device "a" add "100" "5"
expect cell flexDetail 1 6 "17"
expect device "a" unsent 1
expect device "a" figure "100" "17"
device "a" send
expect device "a" unsent 0
expect cell flexDetail 1 6 "17"
expect device "a" figure "100" "17")"),
            "");
}

TEST(FloorSteps, A_figure_under_a_code_that_was_replaced_is_sent_under_the_new_one) {
  EXPECT_EQ(After(kOpen, R"(device "a" offline
device "a" set "100" "4"
floor renew 1
device "a" online
expect device "a" closed
expect device "a" unsent 1
device "a" open 1
expect device "a" unsent 0
expect cell flexDetail 1 6 "4")"),
            "");
}

TEST(FloorSteps, What_cannot_be_done_fails_the_step) {
  EXPECT_EQ(After(kCounting, "floor open"), "1: no counting form is loaded");
  EXPECT_EQ(After(kEdited, R"(device "a" open 1)"), "1: the desk has not opened the floor");
  EXPECT_EQ(After(kEdited, "floor stop"), "1: the desk has not opened the floor");
  EXPECT_EQ(After(kOpen, "floor open"), "1: the desk has opened the floor already");
  EXPECT_EQ(After(kOpen, R"(device "a" open 4)"), "1: the counts are 1, 2 and 3");
  EXPECT_EQ(After(kOpen, "floor renew 0"), "1: the counts are 1, 2 and 3");
  EXPECT_EQ(After(kOpen, "floor recall"), "1: no figures were set aside that the counting lacks");
  EXPECT_EQ(After(kOpen, R"(device "b" set "100" "1")"), "1: the device has opened no count");
  EXPECT_EQ(After(kOpen, R"(device "a" set "99" "1")"),
            R"(1: the device shows no line with the barcode "99")");
  EXPECT_EQ(After(kOpen, "device \"a\" offline\ndevice \"a\" open 2"), "2: the device has no network");
  EXPECT_EQ(After(kSet, "device \"a\" lose answer\ndevice \"a\" add \"100\" \"1\"\ndevice \"a\" open 2"),
            "3: the device has unsent figures of the count 1");
  EXPECT_EQ(After(kOpen, "floor stop\ndevice \"a\" add \"100\" \"1\""),
            "2: the device shows that the count is closed");
  EXPECT_EQ(After(kCounting,
                  "sql \"insert into tblPelinSystemParameters(ID,SystemID,Value) values(123,1,1)\"\n"
                  "view 5\ncrash"),
            "3: the program cannot end in a scenario while a modal form is shown");
}

TEST(FloorSteps, A_session_opens_for_a_counting_that_is_edited) {
  EXPECT_EQ(After(kCounting, R"(view 5
floor open
error "شمارش با گوشي براي شمارشي است كه ذخيره شده و در حال اصلاح است. نخست ثبت موقت و سپس اصلاح را بزنيد."
expect floor none)"),
            "");
}

TEST(FloorSteps, How_a_session_ends_can_be_read) {
  EXPECT_EQ(After(kOpen, "floor stop\nexpect floor stopped\nexpect device \"a\" closed"), "");
  EXPECT_EQ(After(kSet, R"(click cmdCancel
question "انصراف از ثبت شمارش" "آيا مطمئن هستيد؟" yes
expect floor cancelled)"),
            "");
  EXPECT_EQ(After(kSet, "tick\nclick cmdTmpSave\nexpect floor paused\nview 6\nexpect floor other"), "");
  EXPECT_EQ(After(kSet, R"(tick
click cmdTmpSave
tick
click cmdExit
expect floor closed
expect device "a" unreachable
view 5
expect floor closed
click cmdEdit
floor open
expect floor open)"),
            "");
}

TEST(FloorSteps, A_program_that_ends_without_notice_leaves_its_figures_to_the_next) {
  const std::string crashed = kSet + R"(crash
expect form frmInvCounting unloaded
expect floor none
view 5
expect cell flexDetail 1 6 ""
click cmdEdit
floor open
expect left 1
expect floor paused
)";
  EXPECT_EQ(After(crashed, "floor replay\nexpect floor open\nexpect cell flexDetail 1 6 \"12\""), "");
  EXPECT_EQ(After(crashed, R"(floor forgo
expect floor open
expect cell flexDetail 1 6 ""
floor recall
expect left 1)"),
            "");
}

TEST(FloorSteps, Devices_enter_figures_while_a_question_is_shown) {
  EXPECT_EQ(After(kOpen, R"(delete flexDetail 2
device "a" set "100" "1"
question "حذف كالا از شمارش" "آيا مطمئن هستيد؟" yes
expect column flexDetail 6 "1")"),
            "");
}

}  // namespace
}  // namespace koru
