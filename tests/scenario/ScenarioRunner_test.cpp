#include "scenario/ScenarioRunner.h"

#include <gtest/gtest.h>

#include "tests/scenario/FailureOf.h"

namespace koru {
namespace {

using test::FailureOf;

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

TEST(ScenarioRun, A_scenario_whose_expectations_hold_passes) {
  EXPECT_EQ(FailureOf(kCompany + kRights +
                      "clearshow\nexpect form frmInvCounting shown modeless\nclick cmdNew\nexpect mode 2\n"
                      "expect txtCreator \"Sara\"\nexpect gmpInventory 1\n"),
            "");
}

TEST(ScenarioRun, A_wrong_expectation_fails_with_place_expected_and_found) {
  EXPECT_EQ(FailureOf(kCompany + kRights + "clearshow\nexpect mode 2\n"),
            "s.scenario:8: mode: expected 2, found 3");
  EXPECT_EQ(FailureOf(kCompany + kRights + "clearshow\nexpect txtCode \"7\"\n"),
            "s.scenario:8: txtCode: expected \"7\", found \"\"");
  EXPECT_EQ(FailureOf(kCompany + kRights + "clearshow\nexpect cmdEdit enabled\n"),
            "s.scenario:8: cmdEdit is not enabled");
  EXPECT_EQ(FailureOf(kCompany + "expect sql \"select ID, FullName, NULL from tblUser\"\n| 1 \"Ali\" NULL\n"),
            "s.scenario:6: row 1: expected | 1 \"Ali\" NULL, found | 1 \"Sara\" NULL");
  EXPECT_EQ(FailureOf(kCompany + "expect sql \"select ID from tblUser\"\n"),
            "s.scenario:6: row 1: expected no more, found | 1");
}

TEST(ScenarioRun, A_message_that_no_step_expects_fails_the_scenario_with_its_text) {
  EXPECT_EQ(
      FailureOf(kCompany + "clearshow\nexpect mode 3\n"),
      "s.scenario:6: a message is shown that the scenario does not expect; the screen shows the message "
      "\"خطا\" "
      "\"شما مجاز به انجام اين عمليات نيستيد. با نگهدارنده سيستم هماهنگ نماييد.\"");
}

TEST(ScenarioRun, A_message_that_does_not_come_fails_the_scenario) {
  EXPECT_EQ(FailureOf(kCompany + kRights + "clearshow\nmessage \"a\" \"b\"\n"),
            "s.scenario:8: expected the message \"a\" \"b\", and none is shown");
}

TEST(ScenarioRun, A_question_is_answered_and_what_follows_runs_after_it) {
  const std::string question =
      "clearshow\nclick cmdNew\nclick cmdCancel\n"
      "question \"انصراف از ثبت شمارش\" \"آيا مطمئن هستيد؟\" ";
  EXPECT_EQ(FailureOf(kCompany + kRights + question + "yes\nexpect mode 3\n"), "");
  EXPECT_EQ(FailureOf(kCompany + kRights + question + "no\nexpect mode 2\n"), "");
  EXPECT_EQ(FailureOf(kCompany + kRights + question + "close\nexpect mode 2\n"), "");
}

TEST(ScenarioRun, A_control_that_cannot_be_used_fails_the_step) {
  EXPECT_EQ(FailureOf(kCompany + kRights + "clearshow\nclick cmdEdit\n"),
            "s.scenario:8: the user cannot click cmdEdit: it is disabled");
  EXPECT_EQ(FailureOf(kCompany + kRights + "clearshow\ntype txtGNO \"1\"\n"),
            "s.scenario:8: the user cannot type txtGNO: it is locked");
  EXPECT_EQ(FailureOf(kCompany + kRights + "clearshow\nclick txtGNO\n"), "s.scenario:8: txtGNO is no button");
  EXPECT_EQ(FailureOf(kCompany + kRights + "clearshow\nclick cmdNone\n"),
            "s.scenario:8: no loaded form has a control cmdNone");
}

TEST(ScenarioRun, A_key_where_the_keyboard_is_needs_windows) {
  const std::string nothing = "nothing has the keyboard; without windows (--desktop), nothing ever has";
  EXPECT_EQ(FailureOf(kCompany + kRights + "clearshow\npress F1\n"), "s.scenario:8: " + nothing);
  EXPECT_EQ(FailureOf(kCompany + kRights + "clearshow\npress \"1\"\n"), "s.scenario:8: " + nothing);
  EXPECT_EQ(FailureOf(kCompany + kRights + "clearshow\nexpect window manual\n"),
            "s.scenario:8: window with the keyboard: expected manual, found ");
  EXPECT_EQ(FailureOf(kCompany + kRights + "clearshow\nexpect part page \"index.html\"\n"),
            "s.scenario:8: the window with the keyboard has no page");
}

TEST(ScenarioRun, The_program_and_the_parts_of_its_windows_need_windows) {
  const std::string program = "the program has a window alone, and so needs windows (--desktop)";
  EXPECT_EQ(FailureOf(kCompany + kRights + "program\n"), "s.scenario:7: " + program);
  EXPECT_EQ(FailureOf(kCompany + kRights + "program database\n"), "s.scenario:7: " + program);
  EXPECT_EQ(FailureOf("program database\n"),
            "s.scenario:1: the scenario has no database that the program could open");
  EXPECT_EQ(
      FailureOf(kCompany + kRights + "click part backUp\n"),
      "s.scenario:7: the user cannot click backUp: the window with the keyboard has no such part that can "
      "be used");
  EXPECT_EQ(FailureOf(kCompany + kRights + "dialog backup\n"),
            "s.scenario:7: expected the dialog backup, and it is not shown");
}

TEST(ScenarioRun, A_modal_form_is_used_from_inside_the_call_that_showed_it) {
  EXPECT_EQ(FailureOf(kCompany + kRights +
                      "sql \"insert into tblInventoryCounting(ID,InventoryID,CreatorID) values(5,1,1)\"\n"
                      "sql \"insert into tblPelinSystemParameters(ID,SystemID,Value) values(123,1,1)\"\n"
                      "view 5\nexpect form frmInvCounting shown modal\nclick cmdExit\nexpect result true\n"
                      "expect form frmInvCounting unloaded\n"),
            "");
  EXPECT_EQ(FailureOf(kCompany + kRights +
                      "sql \"insert into tblInventoryCounting(ID,InventoryID,CreatorID) values(5,1,1)\"\n"
                      "sql \"insert into tblPelinSystemParameters(ID,SystemID,Value) values(123,1,1)\"\n"
                      "view 5\nexpect result true\n"),
            "s.scenario:10: no view has returned");
}

TEST(ScenarioRun, What_a_call_of_the_host_throws_must_be_expected) {
  const std::string call = kCompany + "connection \"0\"\nview 5\n";
  EXPECT_EQ(FailureOf(kCompany + "fail statement 1 \"dead\"\nview 5\nerror \"dead\"\n"), "");
  EXPECT_EQ(FailureOf(kCompany + "fail statement 1 \"dead\"\nview 5\n"),
            "s.scenario:7: this step failed with the error \"dead\"");
  EXPECT_EQ(FailureOf(kCompany + "fail statement 1 \"dead\"\nview 5\nexpect mode 0\n"),
            "s.scenario:7: this step failed with the error \"dead\"");
  EXPECT_EQ(FailureOf(kCompany + "fail statement 1 \"dead\"\nview 5\nerror \"live\"\n"),
            "s.scenario:8: expected the error \"live\", found \"dead\"");
  EXPECT_EQ(FailureOf(kCompany + "fail statement 99 \"dead\"\n"),
            "s.scenario:6: the scenario ends before the statement that was to fail");
}

TEST(ScenarioRun, The_statements_are_compared_whole_and_in_order) {
  EXPECT_EQ(FailureOf(kCompany + kRights + "clearshow\nforget statements\nclick cmdEdit\n"),
            "s.scenario:9: the user cannot click cmdEdit: it is disabled");
  EXPECT_EQ(FailureOf(kCompany + kRights + "clearshow\nforget statements\nexpect statements\n"), "");
  EXPECT_EQ(
      FailureOf(kCompany + kRights + "clearshow\nforget statements\nexpect statements\n| \"select 1\"\n"),
      "s.scenario:9: statement 1: expected | \"select 1\", found no more");
}

/// A counting whose receipt 7 is temporary and whose dispatch 9 is registered, and two goods.
const std::string kStock =
    kCompany + kRights +
    "sql \"insert into tblInventoryReceipt(ID,InventoryID) values(7,1)\"\n"
    "sql \"insert into tblInventoryDispatch(ID,InventoryID,Code) values(9,1,3)\"\n"
    "sql \"insert into tblInventoryCounting(ID,InventoryID,CreatorID,ReceiptID,DispatchID) "
    "values(5,1,1,7,9)\"\n"
    "sql \"insert into tblGood(Barcode,Code,Name) values('100','A','Rope'),('200','B','Lamp')\"\n"
    "view 5\n";
/// Into the goods search of that store.
const std::string kSearch = "click cmdNew\npick gmpInventory 1\nclick cmdGoods\n";

TEST(ScenarioRun, A_document_is_closed_again_or_registered_after_its_question) {
  const std::string code = "expect sql \"select Code from tblInventoryReceipt\"\n";
  const std::string question = "question \"هشدار\" \"آيا از ثبت نهايي رسيد انبار اطمينان داريد؟\" ";
  EXPECT_EQ(FailureOf(kStock + "click cmdInvReceipt\ndocument receipt 7 view\n" + code + "| NULL\n"), "");
  const std::string registered = kStock + "click cmdInvReceipt\ndocument receipt 7 register\n" + question;
  EXPECT_EQ(FailureOf(registered + "yes\n" + code + "| 1\n"), "");
  EXPECT_EQ(FailureOf(registered + "no\n" + code + "| NULL\n"), "");
}

TEST(ScenarioRun, A_document_that_is_another_or_none_or_registered_already_fails_the_scenario) {
  EXPECT_EQ(FailureOf(kStock + "click cmdInvReceipt\ndocument dispatch 7 view\n"),
            "s.scenario:13: another document is shown than the scenario expects: the receipt 7");
  EXPECT_EQ(FailureOf(kStock + "click cmdInvReceipt\nexpect mode 0\n"),
            "s.scenario:12: a document, the receipt 7, is shown that the scenario does not expect");
  EXPECT_EQ(FailureOf(kStock + "document receipt 7 view\n"),
            "s.scenario:12: expected the receipt 7, and it is not shown");
  EXPECT_EQ(FailureOf(kStock + "click cmdInvExit\ndocument dispatch 9 register\n"),
            "s.scenario:13: the user cannot register the dispatch 9: it is registered already");
  EXPECT_EQ(FailureOf(kStock + "click cmdInvReceipt\ndocument receipt 7 register\nexpect mode 0\n"),
            "s.scenario:13: a question is shown that the scenario does not expect; the screen shows the "
            "question "
            "\"هشدار\" \"آيا از ثبت نهايي رسيد انبار اطمينان داريد؟\"");
}

TEST(ScenarioRun, Goods_are_picked_in_the_picker_or_not) {
  const std::string moved =
      "sql \"insert into tblInventoryReceiptDetail(ReceiptID,Barcode) values(7,'100')\"\n";
  EXPECT_EQ(
      FailureOf(kStock + moved + kSearch + "key txtTitle F3\npicked \"100\"\nexpect txtTitle \"Rope\"\n"),
      "");
  EXPECT_EQ(FailureOf(kStock + moved + kSearch + "key txtTitle F3\npicked nothing\nexpect txtTitle \"\"\n"),
            "");
  EXPECT_EQ(FailureOf(kStock + moved + kSearch + "key txtTitle F3\npicked \"200\"\n"),
            "s.scenario:17: the user cannot pick \"200\": the goods picker does not offer it");
  EXPECT_EQ(FailureOf(kStock + moved + kSearch + "key txtTitle F3\nclick cmdExit\n"),
            "s.scenario:16: a goods picker is shown that the scenario does not expect");
  EXPECT_EQ(FailureOf(kStock + "picked \"100\"\n"),
            "s.scenario:12: expected the goods picker, and it is not shown");
}

TEST(ScenarioRun, Workbooks_are_compared_by_number_and_rows) {
  const std::string exported = "database sample\nuser 1\nview 17\nclick cmdExcel\nexpect workbooks ";
  EXPECT_EQ(FailureOf(exported + "6\n"), "");
  EXPECT_EQ(FailureOf(exported + "7\n"), "s.scenario:5: rows of the workbooks: expected 7, found 6");
  EXPECT_EQ(FailureOf(exported + "6 6\n"), "s.scenario:5: rows of the workbooks: expected 6 6, found 6");
  EXPECT_EQ(FailureOf(exported + "none\n"), "s.scenario:5: rows of the workbooks: expected none, found 6");
  EXPECT_EQ(FailureOf("database sample\nuser 1\nexpect workbooks 6\n"),
            "s.scenario:3: rows of the workbooks: expected 6, found none");
}

TEST(ScenarioRun, A_report_is_read_page_by_page_and_closed) {
  const std::string shown =
      "database sample\nuser 1\nview 1\ntick\nclick cmdView\nclick frmReport.cmdPrint\n";
  EXPECT_EQ(
      FailureOf(shown + "expect report 3 pages\nexpect report page 3 \"۶۰\" \"جمع ۶۰ سطر\" \"صفحه ۳ از ۳\"\n"
                        "save report\nclose report\nexpect report none\n"),
      "");
  EXPECT_EQ(FailureOf(shown + "expect report 2 pages\n"),
            "s.scenario:7: pages of the report: expected 2, found 3");
  EXPECT_EQ(FailureOf(shown + "expect report page 4 \"x\"\n"), "s.scenario:7: the report has no page 4");
  EXPECT_EQ(FailureOf(shown + "expect report page 1 \"جمع ۶۰ سطر\"\n"),
            "s.scenario:7: page 1 of the report does not show \"جمع ۶۰ سطر\"");
  EXPECT_EQ(FailureOf(shown + "expect report page 3 \"جمع ۶۰ سطر\" \"۶۰\"\n"),
            "s.scenario:7: page 3 of the report does not show \"۶۰\" after \"جمع ۶۰ سطر\"");
  EXPECT_EQ(FailureOf(shown + "expect report none\n"), "s.scenario:7: a report is shown");
  EXPECT_EQ(FailureOf(shown), "s.scenario:6: the scenario ends with a report that it does not close");
  EXPECT_EQ(FailureOf("database sample\nclose report\n"), "s.scenario:2: no report is shown");
}

TEST(ScenarioRun, A_scenario_without_a_database_fails_with_a_hint) {
  EXPECT_EQ(
      FailureOf("sql \"select 1\"\n"),
      "s.scenario:1: the scenario has no database; it begins with `database sample` or `database empty`");
  EXPECT_EQ(FailureOf("database empty\ndatabase empty\n"),
            "s.scenario:2: the scenario has its database already");
}

}  // namespace
}  // namespace koru
