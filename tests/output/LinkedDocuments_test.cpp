#include <gtest/gtest.h>

#include "tests/counting/CountingWorld.h"
#include "tests/counting/HostedDocument.h"

namespace koru::test {
namespace {

class LinkedDocuments : public CountingWorld {
 protected:
  LinkedDocuments() {
    components.Register("comInventoryExit.comInvExit",
                        [this] { return std::make_unique<HostedDocument>(dispatch); });
    components.Register("comInventoryReceipt.comInvReceipt",
                        [this] { return std::make_unique<HostedDocument>(receipt); });
    database.Execute(
        "insert into tblInventoryDispatch (ID,InventoryID) values (31,2); "
        "insert into tblInventoryReceipt (ID,InventoryID) values (41,2); "
        "update tblInventoryCounting set DispatchID=31,ReceiptID=41 where ID=11;"
        "update tblInventoryCounting set DispatchID=99,ReceiptID=99 where ID=12");
  }
  Texts dispatch;
  Texts receipt;
};

TEST_F(LinkedDocuments, Open_in_the_suites_own_components) {
  View(11);
  NewStatements();
  Click(Form().cmdInvExit);
  Click(Form().cmdInvReceipt);
  EXPECT_EQ(dispatch.back(), "view 31");
  EXPECT_EQ(receipt.back(), "view 41");
  EXPECT_EQ(NewStatements(), (Texts{"Select * from tblInventoryDispatch Where ID in (Select DispatchID from "
                                    "tblInventoryCounting Where ID = 11)",
                                    "Select * from tblInventoryReceipt Where ID in (Select ReceiptID from "
                                    "tblInventoryCounting Where ID = 11)"}));
  EXPECT_EQ(NewMessages(), Texts{});
}

TEST_F(LinkedDocuments, A_counting_without_them_says_so) {
  View(10);
  Click(Form().cmdInvExit);
  EXPECT_EQ(NewMessages(), Texts{"برگه خروجي از روي اين شمارش صادر نشده است."});
  Click(Form().cmdInvReceipt);
  EXPECT_EQ(NewMessages(), Texts{"برگه رسيدي از روي اين شمارش صادر نشده است."});
}

TEST_F(LinkedDocuments, A_link_to_a_deleted_document_is_none) {
  View(12);
  Click(Form().cmdInvExit);
  EXPECT_EQ(NewMessages(), Texts{"برگه خروجي از روي اين شمارش صادر نشده است."});
}

TEST_F(LinkedDocuments, In_a_suite_without_the_component_the_user_gets_a_message) {
  components.Unregister("comInventoryExit.comInvExit");
  View(11);
  Click(Form().cmdInvExit);
  EXPECT_EQ(NewMessages(), Texts{"در اين برنامه جزئي براي نمايش اين سند نيست."});
}

}  // namespace
}  // namespace koru::test
