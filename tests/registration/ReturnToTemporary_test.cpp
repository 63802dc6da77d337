#include "registration/ReturnToTemporary.h"

#include <gtest/gtest.h>

#include "tests/registration/DocumentsTest.h"
#include "tests/registration/ExpectedStatements.h"

namespace koru {
namespace {

constexpr const char* kQuestion = "هشدار: آيا از بازگشت به حالت موقت شمارش اطمينان داريد؟";
constexpr const char* kFinalReceipts =
    "Select * from tblInventoryReceipt Where Code is not null and ID in (Select ReceiptID from "
    "tblInventoryCounting "
    "Where ID = 2)";
constexpr const char* kFinalDispatches =
    "Select * from tblInventoryDispatch Where Code is not null and ID in (Select DispatchID from "
    "tblInventoryCounting "
    "Where ID = 2)";

/// Countings 1 to 4 have the numbers 1 to 4, counting 5 is temporary. Counting 2 is on the form; its dispatch
/// is 21 and its receipt 22, and dispatch 31 and receipt 32 belong to counting 3.
class Returning : public DocumentsTest {
 protected:
  using Answer = test::FakeMessages::Answer;

  Returning() {
    for (const std::string code : {"1", "2", "3", "4", "NULL"}) {
      Execute("insert into tblInventoryCounting (Code) values (" + code + ")");
    }
    StoreDocuments("2", "21", "22");
    StoreDocuments("3", "31", "32");
    View("2", "2");
    shared.DocMode = DocumentMode::Viewing;
  }

  void StoreDocuments(const std::string& counting, const std::string& dispatch, const std::string& receipt) {
    Execute("insert into tblInventoryDispatch (ID) values (" + dispatch + ")");
    Execute("insert into tblInventoryDispatchDetail (DispatchID, Barcode) values (" + dispatch + ", '1')");
    Execute("insert into tblInventoryReceipt (ID) values (" + receipt + ")");
    Execute("insert into tblInventoryReceiptDetail (ReceiptID, Barcode) values (" + receipt + ", '1')");
    Execute("update tblInventoryCounting set DispatchID = " + dispatch + ", ReceiptID = " + receipt +
            " where ID = " + counting);
  }
  void View(const std::string& id, const std::string& code) {
    form.lblIDVal.SetCaption(id);
    form.txtCode.SetText(code);
  }
  void Return(Answer answer = Answer::Yes) {
    messages.WillAnswer(answer);
    returning.Run();
  }
  Texts Codes() { return Rows("select Code from tblInventoryCounting order by ID"); }
};

TEST_F(Returning, A_final_counting_loses_its_number_and_documents_and_the_gap_is_closed) {
  form.SetCaption("شمارش");
  Return();
  EXPECT_EQ(Sent(), Joined(Joined({kFinalReceipts, kFinalDispatches}, RemovalOfDocuments("2")),
                           {"Update tblInventoryCounting set Code = Null Where ID = 2",
                            "Update tblInventoryCounting set Code = Code-1 Where Code > 2"}));
  EXPECT_EQ(Codes(), (Texts{"1", "NULL", "2", "3", "NULL"}));
  EXPECT_EQ(Rows("select ID from tblInventoryDispatch"), Texts{"31"});
  EXPECT_EQ(Rows("select ID from tblInventoryReceipt"), Texts{"32"});
  EXPECT_EQ(Rows("select DispatchID from tblInventoryDispatchDetail"), Texts{"31"});
  EXPECT_EQ(Rows("select ReceiptID from tblInventoryReceiptDetail"), Texts{"32"});
  EXPECT_EQ(Rows("select DispatchID, ReceiptID from tblInventoryCounting where ID = 2"), Texts{"21|22"});
  EXPECT_EQ(form.txtCode.Text(), "");
  EXPECT_EQ(form.Caption(), "شمارش");
  EXPECT_EQ(shared.DocMode, DocumentMode::Viewing);
  EXPECT_EQ(NewTitledMessages(), Texts{kQuestion});
}

TEST_F(Returning, The_counting_with_the_highest_number_changes_no_other) {
  View("4", "4");
  Return();
  EXPECT_EQ(Codes(), (Texts{"1", "2", "3", "NULL", "NULL"}));
}

TEST_F(Returning, A_final_receipt_is_refused_by_its_key_before_the_dispatch_is_looked_at) {
  Execute("update tblInventoryReceipt set Code = 900 where ID = 22");
  const std::string before = Dump();
  Return();
  EXPECT_EQ(Sent(), Texts{kFinalReceipts});
  EXPECT_EQ(NewTitledMessages(),
            (Texts{kQuestion,
                   "خطا: به اين شمارش، برگ رسيد نهايي به شماره رايانه اي 22 وابسته است. بنابراين امكان "
                   "بازگشت شمارش به حالت موقت وجود ندارد."}));
  EXPECT_EQ(Dump(), before);
  EXPECT_EQ(form.txtCode.Text(), "2");
}

TEST_F(Returning, A_final_dispatch_is_refused_by_its_key) {
  Execute("update tblInventoryDispatch set Code = 901 where ID = 21");
  const std::string before = Dump();
  Return();
  EXPECT_EQ(Sent(), (Texts{kFinalReceipts, kFinalDispatches}));
  EXPECT_EQ(NewTitledMessages(),
            (Texts{kQuestion,
                   "خطا: به اين شمارش، برگ خروج نهايي به شماره رايانه اي 21 وابسته است. بنابراين امكان "
                   "بازگشت شمارش به حالت موقت وجود ندارد."}));
  EXPECT_EQ(Dump(), before);
  EXPECT_EQ(form.txtCode.Text(), "2");
}

TEST_F(Returning, With_both_documents_final_the_receipt_is_the_one_that_is_named) {
  Execute("update tblInventoryReceipt set Code = 900 where ID = 22");
  Execute("update tblInventoryDispatch set Code = 901 where ID = 21");
  Return();
  const Texts shown = NewTitledMessages();
  ASSERT_EQ(shown.size(), 2U);
  EXPECT_NE(shown[1].find("برگ رسيد نهايي"), std::string::npos);
}

TEST_F(Returning, A_final_document_of_another_counting_does_not_matter) {
  Execute("update tblInventoryReceipt set Code = 900 where ID = 32");
  Return();
  EXPECT_EQ(Codes(), (Texts{"1", "NULL", "2", "3", "NULL"}));
}

TEST_F(Returning, A_temporary_counting_is_left_alone_without_a_word) {
  View("5", "  ");
  const std::string before = Dump();
  Return();
  EXPECT_EQ(Sent(), Texts{});
  EXPECT_EQ(NewTitledMessages(), Texts{});
  EXPECT_EQ(Dump(), before);
}

TEST_F(Returning, A_user_without_the_right_gets_a_message_even_on_a_temporary_counting) {
  Revoke(80607);
  View("5", "");
  Return();
  View("2", "2");
  Return();
  const std::string refusal = "خطا: شما مجاز به انجام اين عمليات نيستيد. با نگهدارنده سيستم هماهنگ نماييد.";
  EXPECT_EQ(NewTitledMessages(), (Texts{refusal, refusal}));
  EXPECT_EQ(Sent(), Texts{});
  EXPECT_EQ(Codes(), (Texts{"1", "2", "3", "4", "NULL"}));
}

TEST_F(Returning, No_changes_nothing) {
  const std::string before = Dump();
  Return(Answer::No);
  EXPECT_EQ(NewTitledMessages(), Texts{kQuestion});
  EXPECT_EQ(Sent(), Texts{});
  EXPECT_EQ(Dump(), before);
  EXPECT_EQ(form.txtCode.Text(), "2");
}

TEST_F(Returning, Only_a_No_stops_it_not_a_question_that_could_not_be_asked) {
  components.Unregister(MessageComponent::kClassName);
  Return();
  EXPECT_EQ(Codes(), (Texts{"1", "NULL", "2", "3", "NULL"}));
}

}  // namespace
}  // namespace koru
