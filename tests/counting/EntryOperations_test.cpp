#include <gtest/gtest.h>

#include "platform/sql/DatabaseError.h"
#include "tests/counting/CountingWorld.h"

namespace koru::test {
namespace {

using EntryOperations = CountingWorld;

constexpr const char* kParameter123 = "Select * from tblPelinSystemParameters Where ID=123 and Value=1";

TEST_F(EntryOperations, View_opens_a_stored_counting_modeless) {
  EXPECT_TRUE(control.View(10));
  EXPECT_TRUE(Form().Visible());
  EXPECT_EQ(Mode(), DocumentMode::Viewing);
  EXPECT_EQ(control.Shared().CurrentCountingID, 10);
  EXPECT_FALSE(control.Shared().ShowAsModal);
  ASSERT_EQ(screen.Shown().size(), 1U);
  EXPECT_FALSE(screen.Shown()[0].modal);
  EXPECT_EQ(screen.Cursors().back(), Cursor::Normal);
  EXPECT_EQ(
      NewStatements(),
      (Texts{"Select Isnull(BasePath,'') as BasePath from vwPelinBasePath",
             "select FullName from tbluser where ID =7", "Select ID from tblInventory where IsDefault=1",
             "Select * from tblInventoryCounting where ID =10", "Select FullName from tblUser where ID=7",
             "select round(isnull(BaseValue,0),0) as Value, "
             "tblGood.barcode,FirstCounting,SecondCounting,ThirdCounting,AcceptedCounting,SystemCounting,"
             "ContradictionCounting,isnull(ScaleID,-1) as ScaleID,isnull(tblGoodScale.Name,'') as "
             "UnitName,isnull(tblGood.Code,'') as GoodCode,tblGood.Name as GoodName from "
             "tblInventoryCountingDetail Inner Join tblGood on "
             "tblInventoryCountingDetail.Barcode=tblGood.Barcode Left Outer Join tblGoodScale On "
             "ScaleID=tblGoodScale.ID where CountingID =10 Order By RowNumber",
             kParameter123}));
}

TEST_F(EntryOperations, View_of_a_deleted_counting_says_so_and_leaves_mode_0) {
  EXPECT_FALSE(control.View(999));
  EXPECT_EQ(NewMessages(), Texts{"شمارش بااين شماره موجود نميباشد."});
  EXPECT_EQ(Mode(), DocumentMode::Viewing);
  EXPECT_FALSE(Form().Visible());
  EXPECT_TRUE(Form().Loaded());
  EXPECT_EQ(screen.CurrentCursor(), Cursor::Normal);
  EXPECT_TRUE(screen.Shown().empty());
}

TEST_F(EntryOperations, Parameter_123_makes_the_form_modal_and_nothing_else) {
  database.Execute("insert into tblPelinSystemParameters (ID,SystemID,Value) values (123,8,1)");
  EXPECT_TRUE(control.View(10));
  control.ClearShow();
  ASSERT_EQ(screen.Shown().size(), 2U);
  EXPECT_TRUE(screen.Shown()[0].modal);
  EXPECT_TRUE(screen.Shown()[1].modal);
}

TEST_F(EntryOperations, Another_value_of_parameter_123_leaves_the_form_modeless) {
  database.Execute("insert into tblPelinSystemParameters (ID,SystemID,Value) values (123,8,0)");
  control.View(10);
  EXPECT_FALSE(screen.Shown().at(0).modal);
}

TEST_F(EntryOperations, A_second_View_fills_the_form_that_is_open) {
  control.View(10);
  const frmInvCounting* form = control.CountingForm();
  NewStatements();
  control.View(11);
  EXPECT_EQ(control.CountingForm(), form);
  EXPECT_EQ(Form().lblIDVal.Caption(), "11");
  EXPECT_EQ(Form().flexDetail.Rows(), 2);
  EXPECT_EQ(NewStatements().front(), "Select * from tblInventoryCounting where ID =11")
      << "no second start-up";
}

TEST_F(EntryOperations, ClearShow_opens_an_empty_form_for_who_holds_right_806) {
  control.ClearShow();
  EXPECT_TRUE(Form().Visible());
  EXPECT_EQ(Mode(), DocumentMode::Empty);
  EXPECT_EQ(Form().txtCreator.Text(), "");
  const auto statements = NewStatements();
  ASSERT_GE(statements.size(), 2U);
  EXPECT_EQ(statements[statements.size() - 2], kParameter123);
  EXPECT_EQ(statements.back(), "{? = CALL spPelinHasPermission( 7, 806) }");
}

TEST_F(EntryOperations, ClearShow_without_right_806_shows_a_message_and_no_form) {
  database.Execute("delete from tblPelinUserPermission where FormPermissionID=806");
  control.ClearShow();
  EXPECT_EQ(NewMessages(), Texts{kNotPermitted});
  EXPECT_TRUE(screen.Shown().empty());
  EXPECT_TRUE(control.View(10)) << "opening a stored counting needs no right";
}

TEST_F(EntryOperations, Person_selectors_get_the_connection_of_the_control) {
  control.View(10);
  for (const PersonSelector* person :
       {&Form().mptCounter1, &Form().mptCounter2, &Form().mptCounter3, &Form().mptConfirmer}) {
    EXPECT_EQ(person->ConnectionString(), database.ConnectionText());
  }
  EXPECT_EQ(control.Shared().ConnectionString, database.ConnectionText());
  EXPECT_EQ(Form().gmpInventory.ConnectionString(), database.ConnectionText());
}

TEST_F(EntryOperations, The_identity_of_the_control_reaches_the_form_at_its_widths) {
  control.SetEmployeeID(std::int16_t{32767});
  control.SetPositionID(std::int16_t{5});
  control.SetAccPeriodSpecID(70000);
  control.SetForcedReceiptID(std::int16_t{9});
  control.View(10);
  const SignedInUser& user = control.Shared().user;
  EXPECT_EQ(user.userID, 7);
  EXPECT_EQ(user.employeeID, 32767);
  EXPECT_EQ(user.positionID, 5);
  EXPECT_EQ(user.accPeriodSpecID, 70000);
  EXPECT_EQ(user.forcedReceiptID, 9);
}

TEST_F(EntryOperations,
       A_database_failure_at_any_statement_of_View_reaches_the_host_and_the_next_View_works) {
  control.View(10);
  const auto statements = static_cast<int>(NewStatements().size());
  Form().Unload();
  for (int n = 1; n <= statements; ++n) {
    failing.Plan().FailAt(n);
    EXPECT_THROW(control.View(10), DatabaseError) << n;
    EXPECT_EQ(screen.CurrentCursor(), Cursor::Normal);
    failing.Plan().FailAt(0);
    EXPECT_TRUE(control.View(10));
    EXPECT_EQ(Form().flexDetail.Rows(), 3);
    Form().Unload();
  }
}

TEST_F(EntryOperations, A_counting_that_cannot_be_read_leaves_the_one_before_whole_or_nothing) {
  for (int n = 1; n <= 3; ++n) {
    View(10);
    failing.Plan().FailAt(n);
    EXPECT_THROW(control.View(11), DatabaseError) << n;
    failing.Plan().FailAt(0);
    if (Form().lblIDVal.Caption().empty()) {
      EXPECT_EQ(Form().flexDetail.Rows(), 1) << n;
      EXPECT_EQ(Mode(), DocumentMode::Empty) << n;
      EXPECT_EQ(Form().txtGNO.Text() + Form().txtCode.Text() + Form().txtNotes.Text(), "") << n;
    } else {
      EXPECT_EQ(Form().lblIDVal.Caption(), "10") << n;
      EXPECT_EQ(Form().txtGNO.Text(), "A-10") << n;
      EXPECT_EQ(Form().txtCode.Text(), "") << n;
      EXPECT_EQ(Form().flexDetail.Rows(), 3) << n;
      EXPECT_EQ(Mode(), DocumentMode::Viewing) << n;
    }
    EXPECT_EQ(Form().lblIDVal.Caption().empty(), n == 3) << "only lines that cannot be read empty the form";
    Form().Unload();
  }
}

TEST_F(EntryOperations, A_period_without_end_is_shown_like_any_other) {
  database.Execute("update tblInventoryCounting set ToDate='9999-12-31' where ID=10");
  View(10);
  EXPECT_EQ(Form().gdpToDate.PersianText().substr(0, 5), "9378/");
}

TEST_F(EntryOperations, The_hourglass_shows_while_a_counting_is_opened_and_while_the_form_is_emptied) {
  View(10);
  std::vector<Cursor> seen;
  Form().lblIDVal.StateChanged.Always([&] { seen.push_back(screen.CurrentCursor()); });
  control.View(11);
  control.ClearShow();
  EXPECT_EQ(seen, (std::vector<Cursor>{Cursor::Hourglass, Cursor::Hourglass}));
  EXPECT_EQ(screen.CurrentCursor(), Cursor::Normal);
}

}  // namespace
}  // namespace koru::test
