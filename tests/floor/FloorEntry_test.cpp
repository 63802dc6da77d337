// What becomes of figures that devices send, each compared with typing the same at the desk.

#include "tests/floor/FloorWorld.h"

namespace koru::test {
namespace {

constexpr const char* kTooMuch = "تعداد بيشتر از اندازة مجاز است.";
constexpr const char* kTooLittle = "تعداد كمتر از اندازة مجاز است.";

class FloorEntry : public FloorWorld {};

TEST_F(FloorEntry, A_figure_is_stored_in_its_own_count_and_nothing_moves_at_the_desk) {
  Lines().UserMoveTo(3, LineColumn::Rate);
  Desk().SetFocus(Desk().txtNotes);
  EXPECT_EQ(Set(2, kSugarLine, "12"), (FloorAnswer{1, FigureState::Stored, "12", "", ""}));
  EXPECT_EQ(CellOf(2, LineColumn::SecondCounting), "12");
  EXPECT_EQ(CellOf(2, LineColumn::FirstCounting), "");
  EXPECT_EQ(Lines().Row(), 3);
  EXPECT_EQ(Lines().Col(), LineColumn::Rate);
  EXPECT_EQ(Desk().Focus(), &Desk().txtNotes);
  ASSERT_EQ(arrivals_.size(), 1U);
  EXPECT_EQ(arrivals_[0].row, 2);
  EXPECT_EQ(arrivals_[0].col, LineColumn::SecondCounting);
  EXPECT_EQ(arrivals_[0].text, "12");
  EXPECT_EQ(arrivals_[0].device, "d2");
}

TEST_F(FloorEntry, Every_typed_number_becomes_what_the_desk_makes_of_it) {
  for (const char* typed :
       {"12", "۱۲",  "١٢", "12.5", "۱۲٫۵", "12/5", "1,500",      "۱٬۵۰۰",      " 7 ",         "0",    "007",
        "-0", "1e3", ".5", "",     "  ",   "-3",   "1000000000", "1000000001", "-1000000001", "9e999"}) {
    SCOPED_TRACE(typed);
    NewMessages();
    Lines().SetTextMatrix(2, LineColumn::FirstCounting, "5");
    Lines().SetTextMatrix(3, LineColumn::FirstCounting, "5");
    const bool isStored = Type(3, LineColumn::FirstCounting, typed);
    const Texts shown = NewMessages();
    const FloorAnswer answer = Set(1, kSugarLine, typed, "5");
    EXPECT_EQ(NewMessages(), Texts{}) << "nothing at the desk";
    EXPECT_EQ(CellOf(2, LineColumn::FirstCounting), CellOf(3, LineColumn::FirstCounting));
    EXPECT_EQ(answer.text, CellOf(3, LineColumn::FirstCounting));
    EXPECT_EQ(answer.message, shown.empty() ? "" : shown.at(0));
    EXPECT_EQ(answer.state, !isStored       ? FigureState::Refused
                            : shown.empty() ? FigureState::Stored
                                            : FigureState::Warned);
  }
}

TEST_F(FloorEntry, What_is_not_wholly_a_number_is_refused_where_the_desk_would_store_0) {
  for (const std::string& typed :
       {std::string("abc"), std::string("12x"), std::string("12,5"), std::string("-"), std::string("1/2/3"),
        std::string("NaN"), std::string("0x10"), std::string(101, '1')}) {
    SCOPED_TRACE(typed);
    const FloorAnswer answer = Set(1, kSugarLine, typed);
    EXPECT_EQ(answer.state, FigureState::Refused);
    EXPECT_FALSE(answer.message.empty());
    EXPECT_EQ(CellOf(2, LineColumn::FirstCounting), "");
  }
  EXPECT_EQ(Add(1, kSugarLine, "").state, FigureState::Refused) << "nothing cannot be added";
  EXPECT_TRUE(arrivals_.empty());
}

TEST_F(FloorEntry, The_forms_refusal_and_warning_are_for_the_counter) {
  EXPECT_EQ(Set(1, kTeaLine, "-3"), (FloorAnswer{1, FigureState::Refused, "", kTooLittle, ""}));
  EXPECT_EQ(Set(1, kTeaLine, "1000000001"),
            (FloorAnswer{2, FigureState::Warned, "1000000001", kTooMuch, ""}));
  EXPECT_EQ(NewMessages(), Texts{});
  Type(1, LineColumn::FirstCounting, "-3");
  EXPECT_EQ(NewMessages(), Texts{kTooLittle}) << "the desk reads its own again";
}

TEST_F(FloorEntry, Figures_are_added_and_the_sum_is_what_the_form_accepts) {
  EXPECT_EQ(Add(1, kTeaLine, "5").text, "5");
  EXPECT_EQ(Add(1, kTeaLine, "۷").text, "12");
  EXPECT_EQ(Add(1, kTeaLine, "0.1").text, "12.1");
  EXPECT_EQ(Add(1, kTeaLine, "0.2").text, "12.3");
  EXPECT_EQ(Add(1, kTeaLine, "-2").text, "10.3");
  const FloorAnswer refused = Add(1, kTeaLine, "-11");
  EXPECT_EQ(refused.state, FigureState::Refused);
  EXPECT_EQ(refused.text, "10.3");
}

TEST_F(FloorEntry, A_figure_that_is_sent_again_is_applied_once_and_has_the_same_answer) {
  const FloorFigure add{7, kTeaLine, FloorFigure::Operation::Add, "5", {}};
  const FloorAnswer first = Send(1, add);
  EXPECT_EQ(Send(1, add), first);
  Type(1, LineColumn::FirstCounting, "100");
  EXPECT_EQ(Send(1, add), first);
  const FloorFigure set{8, kTeaLine, FloorFigure::Operation::Set, "6", "100"};
  const FloorAnswer second = Send(1, set);
  Type(1, LineColumn::FirstCounting, "100");
  EXPECT_EQ(Send(1, set), second);
  const FloorFigure refused{9, kTeaLine, FloorFigure::Operation::Set, "abc", "100"};
  EXPECT_EQ(Send(1, refused), Send(1, refused));
  EXPECT_EQ(CellOf(1, LineColumn::FirstCounting), "100");
  EXPECT_EQ(Send(2, add).text, "5") << "the same number of another device";
  const auto devices = session_->Devices();
  ASSERT_EQ(devices.size(), 2U);
  EXPECT_EQ(devices[0].received, 3);
  EXPECT_EQ(devices[0].refused, 1);
}

TEST_F(FloorEntry, A_counter_who_saw_another_count_is_asked_and_nothing_is_stored) {
  session_->Hello(1, "d1", " تبلت انبار ");
  Set(1, kTeaLine, "78");
  const auto answers = session_->Enter(
      1, "other", std::vector<FloorFigure>{{1, kTeaLine, FloorFigure::Operation::Set, "70", ""}});
  EXPECT_EQ(answers.at(0), (FloorAnswer{1, FigureState::Conflict, "78", "", "تبلت انبار"}));
  EXPECT_EQ(CellOf(1, LineColumn::FirstCounting), "78");
  Type(1, LineColumn::FirstCounting, "80");
  EXPECT_EQ(Set(1, kTeaLine, "79", "78").by, "") << "the desk's own";
  EXPECT_EQ(Set(1, kTeaLine, "80", "78").state, FigureState::Stored) << "both counted the same";
  EXPECT_EQ(Set(1, kTeaLine, "81", "۸۰").state, FigureState::Stored) << "the same in other digits";
  EXPECT_EQ(Set(1, kTeaLine, "0", "").state, FigureState::Conflict);
  Type(1, LineColumn::FirstCounting, "");
  EXPECT_EQ(Set(1, kTeaLine, "1", "0").state, FigureState::Conflict) << "nothing counted is not 0 counted";
}

TEST_F(FloorEntry, Devices_do_not_learn_from_the_order_of_the_lines_what_the_desk_has_sorted_by) {
  const auto keys = [this] {
    std::vector<std::string> all;
    for (const FloorLine& line : session_->Lines(2)) all.push_back(line.key.barcode);
    return all;
  };
  const auto before = keys();
  Set(1, {"G3", 1}, "9");
  Lines().UserSort({LineColumn::FirstCounting, RowOrder::Descending});
  ASSERT_EQ(CellOf(1, LineColumn::Barcode), "G3");
  EXPECT_EQ(keys(), before);
}

TEST_F(FloorEntry, A_line_is_found_wherever_it_has_been_sorted_and_what_is_deleted_is_gone) {
  Set(1, kTeaLine, "1");
  Set(1, kOtherTeaLine, "2");
  Lines().UserClickHeader(LineColumn::FirstCounting);
  Lines().UserSort({LineColumn::FirstCounting, RowOrder::Descending});
  EXPECT_EQ(Set(1, kOtherTeaLine, "22", "2").state, FigureState::Stored);
  EXPECT_EQ(Set(1, kTeaLine, "11", "1").state, FigureState::Stored);
  EXPECT_EQ(Count(kTeaLine, 1), "11");
  EXPECT_EQ(Count(kOtherTeaLine, 1), "22");
  for (int row = 1; row < Lines().Rows(); ++row) {
    if (CellOf(row, LineColumn::FirstCounting) != "11") continue;
    Lines().UserMoveTo(row, LineColumn::FirstCounting);
    messages.WillAnswer(Answer::Yes);
    ASSERT_TRUE(Lines().UserDeleteRow());
    break;
  }
  EXPECT_EQ(Set(1, kTeaLine, "12", "11").state, FigureState::Gone);
  EXPECT_EQ(Set(1, {"G9", 1}, "1").state, FigureState::Gone);
  EXPECT_EQ(Count(kOtherTeaLine, 1), "22");
  Lines().AddItem("5");
  Lines().SetTextMatrix(Lines().Rows() - 1, LineColumn::Barcode, "G1");
  EXPECT_EQ(Set(1, kTeaLine, "3").state, FigureState::Stored) << "the good was added again";
  EXPECT_EQ(Count(kTeaLine, 1), "3");
}

TEST_F(FloorEntry, While_the_desk_is_asked_about_a_line_a_figure_leaves_the_question_about_that_line) {
  Lines().UserMoveTo(2, LineColumn::FirstCounting);
  messages.WillAnswer(Answer::Yes);
  messages.OnShow = [&](const FakeMessages::Message&) {
    messages.OnShow = nullptr;
    EXPECT_EQ(Set(1, {"G3", 1}, "42").state, FigureState::Stored);
  };
  EXPECT_TRUE(Lines().UserDeleteRow());
  EXPECT_EQ(Count(kSugarLine, 1), "none");
  EXPECT_EQ(Count({"G3", 1}, 1), "42");
}

TEST_F(FloorEntry, While_the_desk_reads_a_warning_about_its_own_figure_both_are_stored) {
  messages.OnShow = [&](const FakeMessages::Message&) {
    messages.OnShow = nullptr;
    EXPECT_EQ(Set(1, kSugarLine, "42").state, FigureState::Stored);
  };
  EXPECT_TRUE(Type(1, LineColumn::FirstCounting, "2000000000"));
  EXPECT_EQ(NewMessages(), Texts{kTooMuch});
  EXPECT_EQ(Count(kTeaLine, 1), "2000000000");
  EXPECT_EQ(Count(kSugarLine, 1), "42");
}

TEST_F(FloorEntry, While_a_command_works_nothing_is_taken) {
  const Hourglass hourglass(screen);
  EXPECT_TRUE(session_->IsCommandAtWork());
  EXPECT_EQ(Set(1, kTeaLine, "1").state, FigureState::Paused);
}

TEST_F(FloorEntry, A_device_sees_the_lines_with_its_own_count_alone) {
  Set(1, kTeaLine, "1");
  Set(2, kTeaLine, "2");
  const std::vector<FloorLine> expected = {{{"G1", 1}, "101", "چاي", "عدد", "2"},
                                           {{"G2", 1}, "", "قند", "عدد", ""},
                                           {{"G3", 1}, "103", "شكر", "عدد", ""},
                                           {{"G1", 2}, "101", "چاي", "عدد", ""}};
  EXPECT_EQ(session_->Lines(2), expected);
}

TEST_F(FloorEntry, A_device_hears_of_true_changes_of_its_own_count) {
  using Cells = std::vector<FloorChanges::Cell>;
  EXPECT_TRUE(session_->ChangesSince(0, 1).linesChanged);
  std::int64_t revision = session_->ChangesSince(0, 1).revision;
  EXPECT_FALSE(session_->ChangesSince(revision, 1).linesChanged);
  int changes = 0;
  const Subscription changed = session_->Changed.Subscribe([&] { ++changes; });

  Set(1, kTeaLine, "1");
  Set(1, kTeaLine, "2", "1");
  Set(2, kTeaLine, "3");
  Type(2, LineColumn::FirstCounting, "4");
  EXPECT_GT(changes, 0);
  EXPECT_EQ(session_->ChangesSince(revision, 1).cells, (Cells{{kTeaLine, "2"}, {kSugarLine, "4"}}));
  EXPECT_EQ(session_->ChangesSince(revision, 2).cells, (Cells{{kTeaLine, "3"}}));
  EXPECT_EQ(session_->ChangesSince(revision, 3).cells, Cells{});
  revision = session_->ChangesSince(revision, 1).revision;

  changes = 0;
  Lines().SetTextMatrix(1, LineColumn::SystemCounting, "99");
  Type(1, LineColumn::AcceptedCounting, "5");
  EXPECT_EQ(changes, 0) << "nothing that a device sees";
  Lines().UserClickHeader(LineColumn::GoodName);
  EXPECT_EQ(session_->ChangesSince(revision, 1).cells, Cells{});
  EXPECT_FALSE(session_->ChangesSince(revision, 1).linesChanged) << "sorting changes no line";

  Lines().RemoveItem(1);
  EXPECT_TRUE(session_->ChangesSince(revision, 1).linesChanged);
  EXPECT_TRUE(session_->ChangesSince(revision + 1'000'000'000, 1).linesChanged) << "of another session";
}

TEST_F(FloorEntry, A_device_that_has_missed_many_changes_of_its_count_is_to_read_the_lines_anew) {
  constexpr int kMany = 500;
  const std::int64_t revision = session_->ChangesSince(0, 1).revision;
  const auto change = [this](int count, int times) {
    for (int i = 0; i < times; ++i) Type(2, FloorLines::ColumnOf(count), i % 2 == 0 ? "1" : "2");
  };
  change(1, kMany);
  EXPECT_FALSE(session_->ChangesSince(revision, 1).linesChanged);
  EXPECT_EQ(session_->ChangesSince(revision, 1).cells, (std::vector<FloorChanges::Cell>{{kSugarLine, "2"}}));
  change(2, kMany + 1);
  EXPECT_FALSE(session_->ChangesSince(revision, 1).linesChanged) << "not its count";
  const FloorChanges many = session_->ChangesSince(revision, 2);
  EXPECT_TRUE(many.linesChanged);
  EXPECT_TRUE(many.cells.empty());
  EXPECT_FALSE(session_->ChangesSince(many.revision, 2).linesChanged);
}

TEST_F(FloorEntry, Devices_are_listed_with_their_names_and_last_contact) {
  session_->Hello(3, "d3", "  " + std::string(200, 'x'));
  const auto before = session_->Devices().at(0);
  EXPECT_EQ(before.count, 3);
  EXPECT_EQ(before.name, std::string(FloorSession::kMaxNameLength, 'x'));
  Set(3, kTeaLine, "1");
  EXPECT_GT(session_->Devices().at(0).lastContact, before.lastContact);
  EXPECT_THROW(session_->Hello(3, "d 3", "x"), std::invalid_argument);
  EXPECT_THROW(session_->Hello(3, "", "x"), std::invalid_argument);
  EXPECT_THROW(session_->Hello(4, "d3", "x"), std::invalid_argument);
}

TEST_F(FloorEntry, Unknown_barcodes_are_listed_until_they_have_a_line) {
  session_->NoteUnknown(1, "d1", "999");
  session_->NoteUnknown(1, "d1", "999");
  session_->NoteUnknown(1, "d1", "G1");
  session_->NoteUnknown(2, "d2", "998");
  EXPECT_EQ(session_->Unknown(), (std::vector<UnknownBarcode>{{"999", 1, "d1"}, {"998", 2, "d2"}}));
  Lines().AddItem("5");
  Lines().SetTextMatrix(5, LineColumn::Barcode, "999");
  EXPECT_EQ(session_->Unknown(), (std::vector<UnknownBarcode>{{"998", 2, "d2"}}));
}

TEST_F(FloorEntry, A_code_admits_to_its_count_until_it_is_renewed) {
  for (int count = 1; count <= kFloorCounts; ++count) {
    EXPECT_TRUE(IsAccessCode(session_->Code(count)));
    EXPECT_EQ(session_->CountOf(session_->Code(count)), count);
  }
  const std::string old = session_->Code(2);
  session_->RenewCode(2);
  EXPECT_EQ(session_->CountOf(old), std::nullopt);
  EXPECT_EQ(session_->CountOf(session_->Code(2)), 2);
  EXPECT_EQ(session_->CountOf(""), std::nullopt);
  EXPECT_EQ(session_->CountOf(old + "A"), std::nullopt);
  session_->Stop();
  EXPECT_EQ(session_->CountOf(session_->Code(2)), std::nullopt);
}

}  // namespace
}  // namespace koru::test
