#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <set>
#include <string>

#include "platform/ports/GoodsPicker.h"
#include "tests/counting/CountingWorld.h"

namespace koru::test {
namespace {

using Answer = FakeMessages::Answer;
constexpr const char* kAddQuestion = "كالاهاي جديد به كالاهاي فعلي اضافه مي شوند. آيا ادامه مي دهيد؟";

/// Goods G1 to G3 of the small suite; G1 has a book stock of 5 at rate 2 in store 2, G2 one of -4, G3 none.
class AddingGoods : public CountingWorld {
 protected:
  AddingGoods() {
    database.Execute(R"(
insert into tblInventoryReceipt (ID,Code,InventoryID,ReceiveDate) values (1,1,2,'2025-04-01');
insert into tblInventoryReceiptDetail (ReceiptID,Barcode,Qty,Value) values (1,'G1',5,2);
insert into tblInventoryDispatch (ID,Code,InventoryID,ReceiveDate) values (1,1,2,'2025-04-02');
insert into tblInventoryDispatchDetail (DispatchID,Barcode,Qty,Value) values (1,'G2',4,7);
)");
    control.ClearShow();
    Click(Form().cmdNew);
    screen.OnModal = [this](koru::Form& form) {
      ++searches;
      person(dynamic_cast<frmGoodSearch&>(form));
    };
  }

  /// The barcodes of the lines from `first` on, sorted: the database gives the goods in any order.
  [[nodiscard]] std::string Barcodes(int first = 1) {
    std::multiset<std::string> sorted;
    for (int row = first; row < Form().flexDetail.Rows(); ++row) sorted.insert(Cell(row, 1));
    std::string barcodes;
    for (const std::string& barcode : sorted) barcodes += barcode + " ";
    return barcodes;
  }
  [[nodiscard]] int RowOf(const std::string& barcode) {
    int row = 1;
    while (row < Form().flexDetail.Rows() && Cell(row, 1) != barcode) ++row;
    EXPECT_LT(row, Form().flexDetail.Rows()) << barcode;
    return row;
  }

  /// Looks for the goods of all stores; the counting's own is proposed.
  static void SearchAll(frmGoodSearch& form) {
    EXPECT_EQ(form.gmpInventory.SelectedID(), 2);
    form.gmpInventory.UserSelect(Selector::kNothing);
    form.cmdSearch.UserClick();
    form.gmpInventory.UserSelect(2);
  }

  /// What the user does on the goods search.
  std::function<void(frmGoodSearch&)> person = [](frmGoodSearch& form) { SearchAll(form); };
  int searches = 0;
};

TEST_F(AddingGoods, Without_a_store_an_error_is_shown_and_the_search_is_not_opened) {
  Form().gmpInventory.ClearSelection();
  Click(Form().cmdGoods);
  EXPECT_EQ(NewMessages(), Texts{"انبار انتخاب نشده است."});
  EXPECT_EQ(searches, 0);
}

TEST_F(AddingGoods, After_a_failure_that_is_shown_the_progress_bar_is_hidden) {
  Click(Form().cmdGoods);
  for (Button* command : {&Form().cmdCalc, &Form().cmdGoods}) {
    SCOPED_TRACE(command->Name());
    if (command == &Form().cmdGoods) Form().flexDetail.SetRows(1);
    bool wasShown = false;
    const auto following =
        Form().pgbStatus.StateChanged.Subscribe([&] { wasShown = wasShown || Form().pgbStatus.Visible(); });
    NewMessages();
    failing.Plan().FailAt(4);
    Click(*command);
    failing.Plan().FailAt(0);
    const Texts shown = NewMessages();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_NE(shown[0].find(FaultPlan::kServerText), std::string::npos);
    EXPECT_TRUE(wasShown);
    EXPECT_FALSE(Form().pgbStatus.Visible());
  }
}

TEST_F(AddingGoods, Into_an_empty_counting_asks_nothing_and_adds_what_was_found) {
  NewStatements();
  Click(Form().cmdGoods);
  EXPECT_EQ(NewMessages(), Texts{});
  EXPECT_EQ(Barcodes(), "G1 G2 G3 ");
  EXPECT_FALSE(Form().pgbStatus.Visible());
  EXPECT_EQ(Form().pgbStatus.Max(), 3);
  EXPECT_EQ(screen.CurrentCursor(), Cursor::Normal);
  const Texts statements = NewStatements();
  EXPECT_NE(
      std::find(
          statements.begin(), statements.end(),
          "Select tblGood.barcode,isnull(tblGood.Code,'') as GoodCode,tblGood.Name as GoodName from tblGood "
          "Where  tblGood.Barcode<>'' "),
      statements.end());
}

TEST_F(AddingGoods, Reports_the_number_of_added_lines_and_nothing_for_a_cancelled_search) {
  std::string reported;
  Form().GoodsAdded.Always([&](int added) { reported += std::to_string(added) + " "; });
  Click(Form().cmdGoods);
  messages.WillAnswer(Answer::Yes);
  Click(Form().cmdGoods);
  messages.WillAnswer(Answer::No);
  Click(Form().cmdGoods);
  messages.WillAnswer(Answer::Yes);
  person = [](frmGoodSearch& form) { form.cmdNewSearch.UserClick(); };
  Click(Form().cmdGoods);
  EXPECT_EQ(reported, "3 0 ");
}

TEST_F(AddingGoods, A_good_with_book_stock_starts_as_a_shortage_of_all_of_it) {
  Click(Form().cmdGoods);
  const int row = RowOf("G1");
  EXPECT_EQ(Cell(row, 0), std::to_string(row));
  EXPECT_EQ(Cell(row, 2), "101");
  EXPECT_EQ(Cell(row, 3), "چاي");
  EXPECT_EQ(Cell(row, 4), "عدد");
  EXPECT_EQ(Cell(row, 10), "5");
  EXPECT_EQ(Cell(row, 11), "5");
  EXPECT_EQ(Cell(row, 13), "2");
  EXPECT_EQ(Cell(row, 14), "10");
  for (const int col : {6, 7, 8, 9, 12, 15, 16}) EXPECT_EQ(Cell(row, col), "") << col;
  EXPECT_EQ(Form().txtTotalBelowValue.Text(), "10");
}

TEST_F(AddingGoods, A_good_with_negative_book_stock_has_no_shortage_and_no_amount) {
  Click(Form().cmdGoods);
  EXPECT_EQ(Cell(RowOf("G2"), 10), "-4");
  EXPECT_EQ(Cell(RowOf("G2"), 11), "");
  EXPECT_EQ(Cell(RowOf("G2"), 13), "7");
  EXPECT_EQ(Cell(RowOf("G2"), 14), "");
  EXPECT_EQ(Cell(RowOf("G3"), 10), "0");
  EXPECT_EQ(Cell(RowOf("G3"), 11), "");
}

TEST_F(AddingGoods, To_lines_that_are_there_asks_first_and_only_no_stops_it) {
  Click(Form().cmdGoods);
  messages.WillAnswer(Answer::No);
  Click(Form().cmdGoods);
  EXPECT_EQ(messages.Shown().at(0).title, "هشدار");
  EXPECT_EQ(NewMessages(), Texts{kAddQuestion});
  EXPECT_EQ(searches, 1);
  for (const Answer answer : {Answer::Yes, Answer::None}) {
    messages.WillAnswer(answer);
    Click(Form().cmdGoods);
  }
  EXPECT_EQ(searches, 3);
  EXPECT_EQ(Barcodes(), "G1 G2 G3 ");
}

TEST_F(AddingGoods, A_good_that_has_a_line_keeps_its_counts) {
  Click(Form().cmdGoods);
  const int row = RowOf("G1");
  Form().flexDetail.UserEdit(row, 9, "4");
  messages.WillAnswer(Answer::Yes);
  Click(Form().cmdGoods);
  EXPECT_EQ(Cell(row, 9), "4");
  EXPECT_EQ(Cell(row, 11), "1");
  EXPECT_EQ(Form().flexDetail.Rows(), 4);
}

TEST_F(AddingGoods, Barcodes_that_differ_in_case_are_different_goods) {
  Form().flexDetail.AddItem("1");
  Form().flexDetail.SetTextMatrix(1, 1, "g1");
  messages.WillAnswer(Answer::Yes);
  Click(Form().cmdGoods);
  EXPECT_EQ(Cell(1, 1), "g1");
  EXPECT_EQ(Barcodes(2), "G1 G2 G3 ");
}

TEST_F(AddingGoods, New_search_and_Exit_leave_nothing_to_add) {
  person = [](frmGoodSearch& form) {
    SearchAll(form);
    form.cmdNewSearch.UserClick();
    form.cmdExit.UserClick();
  };
  NewStatements();
  Click(Form().cmdGoods);
  EXPECT_EQ(Barcodes(), "");
  EXPECT_TRUE(Form().GoodSearchCondition.Empty());
}

TEST_F(AddingGoods, Exit_reads_the_selection_before_again_and_adds_only_what_is_missing) {
  Click(Form().cmdGoods);
  Form().flexDetail.RemoveItem(RowOf("G2"));
  person = [](frmGoodSearch& form) { form.cmdExit.UserClick(); };
  messages.WillAnswer(Answer::Yes);
  Click(Form().cmdGoods);
  EXPECT_EQ(Barcodes(), "G1 G2 G3 ");
  EXPECT_EQ(RowOf("G2"), 3);
  EXPECT_EQ(Cell(3, 0), "3");
}

TEST_F(AddingGoods, A_database_failure_keeps_the_lines_added_so_far_and_the_form_usable) {
  Click(Form().cmdGoods);
  const std::string first = Cell(1, 1);
  const std::string shortage = Cell(1, 11);
  Form().flexDetail.SetRows(1);
  NewMessages();
  failing.Plan().FailAt(9);
  Click(Form().cmdGoods);
  EXPECT_EQ(NewMessages(), Texts{"عمليات به دليل خطاي پايگاه داده انجام نشد.\nThe server is shutting down."});
  EXPECT_EQ(Cell(1, 11), shortage) << "the first good was done";
  EXPECT_EQ(Barcodes(), first + " ") << "no good that lacks its unit, rate or book stock";
  messages.WillAnswer(Answer::Yes);
  Click(Form().cmdGoods);
  EXPECT_EQ(Barcodes(), "G1 G2 G3 ");
  for (int row = 1; row <= 3; ++row) {
    EXPECT_EQ(Cell(row, 4), "عدد") << row;
    EXPECT_NE(Cell(row, 10), "") << row;
  }
}

TEST_F(AddingGoods, The_hourglass_and_the_bar_show_every_good_and_the_lines_have_their_stripes) {
  server.trips.statementsPerTrip = 1;
  Texts seen;
  Form().pgbStatus.StateChanged.Always([&] {
    if (!Form().pgbStatus.Visible() || screen.CurrentCursor() != Cursor::Hourglass) return;
    seen.push_back(std::to_string(Form().pgbStatus.Value()) + "/" + std::to_string(Form().pgbStatus.Max()));
  });
  Click(Form().cmdGoods);
  EXPECT_EQ(seen, (Texts{"1/3", "2/3", "3/3"}));
  EXPECT_FALSE(Form().pgbStatus.Visible());
  EXPECT_EQ(screen.CurrentCursor(), Cursor::Normal);
  EXPECT_EQ(Form().flexDetail.RowBackColor(1), 0xF7F2F0U);
  EXPECT_EQ(Form().flexDetail.RowBackColor(2), 0xEEE2DFU);
}

TEST_F(AddingGoods, A_full_counting_takes_what_has_room_and_says_so) {
  {
    const GridRedrawOff off(Form().flexDetail);
    for (int row = 1; row <= 32766; ++row) Form().flexDetail.AddItem(std::to_string(row));
  }
  messages.WillAnswer(Answer::Yes);
  Click(Form().cmdGoods);
  EXPECT_EQ(Form().flexDetail.Rows() - 1, 32767);
  EXPECT_TRUE(Cell(32767, 1).starts_with("G"));
  EXPECT_EQ(NewMessages(),
            (Texts{kAddQuestion, "شمارش بيش از 32767 سطر نمي پذيرد. كالاهايي كه جا داشتند اضافه شدند."}));
  EXPECT_FALSE(Form().pgbStatus.Visible());
}

/// A goods picker in which the user picks what the test says, with the names that it knows.
class ListPicker : public GoodsPicker {
 public:
  struct Wish {
    std::string list;
    bool leftStore = false;
  };
  explicit ListPicker(const Wish& wish) : wish_(wish) {}
  void SetConnectionString(const std::string& /*text*/) override {}
  void SetUserID(std::int32_t /*id*/) override {}
  void SetInventory(std::int32_t /*id*/) override {}
  void SetSeveralGoods(bool /*several*/) override {}
  void Show() override { shown_ = true; }
  [[nodiscard]] std::string List() const override { return shown_ ? wish_.list : std::string(); }
  [[nodiscard]] std::string Name() const override { return {}; }
  [[nodiscard]] std::string Barcode() const override { return {}; }
  [[nodiscard]] std::string Code() const override { return {}; }
  [[nodiscard]] std::string NameOf(std::string_view barcode) const override {
    return barcode == "G3" ? "شكر" : "";
  }
  [[nodiscard]] bool LeftStore() const override { return wish_.leftStore; }

 private:
  const Wish& wish_;
  bool shown_ = false;
};

class AddingPickedGoods : public AddingGoods {
 protected:
  AddingPickedGoods() {
    components.Register(std::string(GoodsPicker::kClassName),
                        [this] { return std::make_unique<ListPicker>(wish); });
    person = [this](frmGoodSearch& form) {
      search = &form;
      form.txtBarCode.UserKey({114, 0});
      form.cmdSearch.UserClick();
    };
    said_ = Form().CommandReported.Subscribe([this](const std::string& text) { said.push_back(text); });
  }
  frmGoodSearch* search = nullptr;  ///< the goods search once it was shown
  ListPicker::Wish wish;
  Texts said;

 private:
  Subscription said_;
};

TEST_F(AddingPickedGoods, Each_picked_good_that_was_not_added_is_named_with_the_reason) {
  wish.list = "('','G1','G3','X''9')";  // G3 was never received in the counting's store, X'9 does not exist
  Click(Form().cmdGoods);
  EXPECT_EQ(Barcodes(), "G1 ");
  EXPECT_EQ(said, Texts{"1 سطر افزوده شد."});
  EXPECT_EQ(NewMessages(), Texts{"2 كالاي انتخاب شده افزوده نشد:\n"
                                 "\u2066G3\u2069 شكر: با معيار جستجو نمي خواند: رسيد در انبار\n"
                                 "\u2066X'9\u2069: با معيار جستجو نمي خواند: رسيد در انبار"});
}

TEST_F(AddingPickedGoods, Goods_that_had_a_line_are_named_without_a_message) {
  wish.list = "('','G1')";
  Click(Form().cmdGoods);
  said.clear();
  messages.WillAnswer(Answer::Yes);
  Click(Form().cmdGoods);
  EXPECT_EQ(said, Texts{"كالاي تازه اي افزوده نشد. از پيش در شمارش بود: \u2066G1\u2069"});
  EXPECT_EQ(NewMessages(), Texts{kAddQuestion});
}

TEST_F(AddingPickedGoods, Leaving_the_pickers_store_lets_a_good_be_added_that_was_never_received_there) {
  wish = {.list = "('','G3')", .leftStore = true};
  Click(Form().cmdGoods);
  EXPECT_EQ(Barcodes(), "G3 ");
  EXPECT_EQ(NewMessages(), Texts{});
  EXPECT_TRUE(search->gmpInventory.NothingSelected());
}

TEST_F(AddingGoods, A_scanned_good_without_a_line_is_offered_and_added_without_a_question) {
  Click(Form().cmdGoods);
  Form().flexDetail.UserMoveTo(RowOf("G3"), 1);
  messages.WillAnswer(Answer::Yes);
  ASSERT_TRUE(Form().flexDetail.UserDeleteRow());
  NewMessages();
  EXPECT_FALSE(Form().cmdAddScanned.Visible());
  Form().OfferScanned("G3");
  EXPECT_TRUE(Form().cmdAddScanned.Visible());
  NewStatements();
  Click(Form().cmdAddScanned);
  EXPECT_EQ(
      NewStatements().front(),
      "Select tblGood.barcode,isnull(tblGood.Code,'') as GoodCode,tblGood.Name as GoodName from tblGood "
      "Where  tblGood.Barcode<>''  and  tblGood.BarCode in ('','G3')");
  EXPECT_EQ(Barcodes(), "G1 G2 G3 ");
  EXPECT_FALSE(Form().cmdAddScanned.Visible());
  EXPECT_EQ(NewMessages(), Texts{});
}

TEST_F(AddingGoods, A_scanned_barcode_of_no_good_is_said_to_be_unknown) {
  std::string said;
  Form().CommandReported.Always([&said](const std::string& sentence) { said = sentence; });
  Form().OfferScanned("O'9");
  Click(Form().cmdAddScanned);
  EXPECT_EQ(said, "كالايي با اين باركد تعريف نشده است.");
  EXPECT_EQ(Barcodes(), "");
  Form().OfferScanned("G1");
  messages.WillAnswer(Answer::Yes);
  Click(Form().cmdCancel);
  EXPECT_FALSE(Form().cmdAddScanned.Visible()) << "nothing is entered any more";
  Form().OfferScanned("G1");
  EXPECT_FALSE(Form().cmdAddScanned.Visible());
}

TEST_F(AddingGoods, The_criteria_of_the_goods_search_are_kept_when_the_counting_form_is_closed) {
  person = [](frmGoodSearch& form) {
    form.txtNotes.UserType("خشكبار");
    form.cmdExit.UserClick();
  };
  Click(Form().cmdGoods);
  messages.WillAnswer(Answer::Yes);
  Click(Form().cmdCancel);
  Click(Form().cmdExit);
  ASSERT_EQ(control.CountingForm(), nullptr);
  control.ClearShow();
  Click(Form().cmdNew);
  std::string notes;
  person = [&notes](frmGoodSearch& form) {
    notes = form.txtNotes.Text();
    form.cmdNewSearch.UserClick();
    form.cmdSearch.UserClick();
  };
  Click(Form().cmdGoods);
  EXPECT_EQ(notes, "خشكبار");
  EXPECT_EQ(Barcodes(), "G1 G2 G3 ") << "the condition reaches the new form";
}

}  // namespace
}  // namespace koru::test
