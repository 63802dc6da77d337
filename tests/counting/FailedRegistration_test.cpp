#include <gtest/gtest.h>

#include "tests/counting/CountingWorld.h"

namespace koru::test {
namespace {

using FailedRegistration = CountingWorld;
using Answer = FakeMessages::Answer;

/// What a user does after a registration that failed: one that has got its number is returned first, for
/// only then the form offers it for registration again.
TEST_F(FailedRegistration, At_any_statement_can_be_completed_by_the_user_and_numbers_stay_1_to_n) {
  ViewAndEdit(10);
  Form().Timer1.Fire();
  failing.Plan().FailAt(0);
  Click(Form().cmdIsFinalized);
  const int statements = failing.Plan().Count();
  int unnoticed = 0;
  ASSERT_GT(statements, 15);
  for (int n = 1; n <= statements; ++n) {
    SCOPED_TRACE(n);
    Form().Timer1.Fire();
    messages.WillAnswer(Answer::Yes);
    Click(Form().cmdFunc);
    Form().Timer1.Fire();
    Click(Form().cmdEdit);
    Form().Timer1.Fire();
    NewMessages();

    failing.Plan().FailAt(n);
    Click(Form().cmdIsFinalized);
    const Texts shown = NewMessages();
    if (shown.empty()) {
      ++unnoticed;
    } else {
      EXPECT_EQ(shown, Texts{"عمليات به دليل خطاي پايگاه داده انجام نشد.\nThe server is shutting down."});
    }
    failing.Plan().FailAt(0);
    Form().Timer1.Fire();
    if (Form().cmdFunc.Enabled()) {
      messages.WillAnswer(Answer::Yes);
      Click(Form().cmdFunc);
      Form().Timer1.Fire();
      Click(Form().cmdEdit);
      Form().Timer1.Fire();
    }
    Click(Form().cmdIsFinalized);
    EXPECT_EQ(database.Rows("select Code from tblInventoryCounting where Code is not null order by Code"),
              "1\n2\n");
    EXPECT_EQ(database.Scalar("select count(*) from tblInventoryCountingDetail where CountingID=10"), "2");
    EXPECT_EQ(database.Scalar("select sum(Qty) from tblInventoryDispatchDetail where DispatchID="
                              "(select DispatchID from tblInventoryCounting where ID=10)"),
              "2.5");
    EXPECT_EQ(database.Scalar("select sum(Qty) from tblInventoryReceiptDetail where ReceiptID="
                              "(select ReceiptID from tblInventoryCounting where ID=10)"),
              "3");
  }
  EXPECT_EQ(unnoticed, 1) << "the reading after the registration, of which nothing depends";
}

}  // namespace
}  // namespace koru::test
