#include <gtest/gtest.h>

#include "lines/LineColumns.h"
#include "tests/counting/CountingWorld.h"
#include "tests/support/KeptTexts.h"

namespace koru::test {
namespace {

/// What the form says when a command is done.
class CommandReports : public CountingWorld {
 protected:
  void Listen() {
    Form().Timer1.Fire();  // Register becomes available
    said_ =
        Form().CommandReported.Subscribe([this](const std::string& sentence) { said.push_back(sentence); });
  }
  Texts said;

 private:
  Subscription said_;
};

TEST_F(CommandReports, A_save_gives_the_number_and_the_lines) {
  ViewAndEdit(10);
  Listen();
  Click(Form().cmdTmpSave);
  EXPECT_EQ(said, Texts{"ثبت موقت شد: شماره رايانه اي 10، 2 سطر."});
}

TEST_F(CommandReports, A_registration_gives_the_number_and_the_documents_and_Return_reports_their_removal) {
  ViewAndEdit(10);
  Listen();
  Click(Form().cmdIsFinalized);
  const std::string dispatch = database.Scalar("select DispatchID from tblInventoryCounting where ID=10");
  const std::string receipt = database.Scalar("select ReceiptID from tblInventoryCounting where ID=10");
  EXPECT_EQ(said, Texts{"ثبت نهايي شد: شماره تاييد شده 2، 2 سطر؛ برگ خروج كسري " + dispatch +
                        "؛ برگ رسيد اضافي " + receipt + "."});
  said.clear();
  messages.WillAnswer(FakeMessages::Answer::Yes);
  Click(Form().cmdFunc);
  EXPECT_EQ(said, Texts{"شمارش شماره 2 به حالت موقت برگشت و برگ هاي آن حذف شد."});
}

TEST_F(CommandReports, A_registration_without_differences_says_that_no_document_was_made) {
  database.Execute("update tblInventoryCountingDetail set ContradictionCounting=null where CountingID=10");
  ViewAndEdit(10);
  Listen();
  Click(Form().cmdIsFinalized);
  EXPECT_EQ(said, Texts{"ثبت نهايي شد: شماره تاييد شده 2، 2 سطر؛ مغايرتي نبود و برگي ساخته نشد."});
}

TEST_F(CommandReports, What_was_refused_or_failed_is_not_reported_as_done) {
  ViewAndEdit(10);
  Listen();
  database.Execute("delete from tblPelinUserPermission where FormPermissionID in (80605,80606)");
  Click(Form().cmdTmpSave);
  Click(Form().cmdIsFinalized);
  EXPECT_EQ(NewMessages(), (Texts{kNotPermitted, kNotPermitted}));
  EXPECT_EQ(said, Texts{});
}

TEST_F(CommandReports, A_registration_reports_lines_without_an_accepted_quantity) {
  ViewAndEdit(10);
  Form().Timer1.Fire();
  ASSERT_TRUE(Form().flexDetail.UserEdit(1, LineColumn::AcceptedCounting, ""));
  Listen();
  Click(Form().cmdIsFinalized);
  ASSERT_EQ(said.size(), 1U);
  EXPECT_NE(said.at(0).find("؛ 1 سطر مقدار مورد قبول نداشت."), std::string::npos) << said.at(0);
}

TEST_F(CommandReports, Calculate_and_Delete_report_what_they_did) {
  ViewAndEdit(10);
  Listen();
  Click(Form().cmdCalc);
  EXPECT_EQ(said, Texts{"موجودي دفتري و نرخ 2 سطر محاسبه شد."});
  said.clear();
  messages.WillAnswer(FakeMessages::Answer::Yes);
  Click(Form().cmdCancel);
  messages.WillAnswer(FakeMessages::Answer::No);
  Click(Form().cmdDelete);
  EXPECT_EQ(said, Texts{}) << "it still exists";
  messages.WillAnswer(FakeMessages::Answer::Yes);
  Click(Form().cmdDelete);
  EXPECT_EQ(said, Texts{"شمارش با شماره رايانه اي 10 حذف شد."});
}

TEST_F(CountingWorld,
       The_direction_of_Enter_is_kept_by_the_host_and_a_damaged_setting_keeps_nobody_from_counting) {
  KeptTexts settings;
  HostServices services = Services();
  services.preferences = &settings;
  const auto formOf = [&](comInvCounting& other) -> frmInvCounting& {
    other.SetOLEConnectionString(database.ConnectionText());
    other.SetUserID(7);
    EXPECT_TRUE(other.View(10));
    return *other.CountingForm();
  };
  comInvCounting first(*this, services);
  EXPECT_FALSE(formOf(first).EnterGoesDown());
  first.CountingForm()->SetEnterGoesDown(true);
  comInvCounting second(*this, services);
  EXPECT_TRUE(formOf(second).EnterGoesDown());
  settings.damaged = true;
  comInvCounting third(*this, services);
  EXPECT_FALSE(formOf(third).EnterGoesDown());
}

}  // namespace
}  // namespace koru::test
