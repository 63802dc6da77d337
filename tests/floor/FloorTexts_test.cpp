// Codes, sequence numbers and the text of the journal.

#include <gtest/gtest.h>

#include <random>
#include <set>

#include "floor/AccessCodes.h"
#include "floor/JournalText.h"
#include "floor/Sequences.h"
#include "platform/text/Errors.h"

namespace koru {
namespace {

TEST(AccessCodes, Are_128_bits_of_the_generator_in_letters_that_an_address_takes) {
  int drawn = 0;
  const AccessCodes codes([&drawn] {
    ++drawn;
    return 0xFFFFFFFFU;
  });
  EXPECT_EQ(drawn, 3 * 4);
  EXPECT_EQ(codes.Of(1), std::string(21, '_') + "D") << "the last character has two bits";
  EXPECT_EQ(AccessCodes([] { return 0U; }).Of(2), std::string(22, 'A'));
}

TEST(AccessCodes, Of_the_system_are_all_different) {
  std::set<std::string> all;
  for (int session = 0; session < 100; ++session) {
    AccessCodes codes(SystemRandomBits());
    codes.Renew(1);
    for (int count = 1; count <= kFloorCounts; ++count) {
      EXPECT_TRUE(IsAccessCode(codes.Of(count)));
      EXPECT_TRUE(all.insert(codes.Of(count)).second);
    }
  }
}

TEST(Sequences, Contain_what_was_added_in_any_order_and_are_kept_as_ranges) {
  std::mt19937 random(7);
  for (int round = 0; round < 200; ++round) {
    Sequences sequences;
    std::set<std::int64_t> model;
    for (int added = 0; added < 40; ++added) {
      const auto first = static_cast<std::int64_t>(random() % 60);
      const std::int64_t last = first + static_cast<std::int64_t>(random() % 4);
      sequences.Add(first, last);
      for (std::int64_t number = first; number <= last; ++number) model.insert(number);
    }
    for (std::int64_t number = -1; number < 70; ++number)
      ASSERT_EQ(sequences.Contains(number), model.contains(number)) << number;
    std::int64_t before = -2;
    for (const auto& [first, last] : sequences.All()) {
      EXPECT_GT(first, before + 1) << "ranges that touch are one";
      before = last;
    }
  }
  Sequences all;
  all.Add(INT64_MIN, -1);
  all.Add(INT64_MAX);
  all.Add(0, INT64_MAX);
  EXPECT_EQ(all.All().size(), 1U);
}

JournalStart Start() {
  JournalStart start;
  start.countingID = 20;
  start.codes = {std::string(22, 'a'), std::string(22, 'b'), std::string(22, 'c')};
  start.devices.push_back({1, "d1", "تبلت\tانبار", {}});
  start.devices.back().entered.Add(1, 5);
  start.devices.back().entered.Add(9);
  start.unknown.push_back({"99\n\\", 2, "d2"});
  start.ordinals = {{"G1", {2, 1}}};
  return start;
}

JournalFigure Figure(std::int64_t sequence) {
  JournalFigure figure;
  figure.count = 2;
  figure.device = "d2";
  figure.figure = {sequence, {"G\t1", 2}, FloorFigure::Operation::Add, "۵", {}};
  figure.answer = {sequence, FigureState::Warned, "1000000005", "تعداد\nزياد", ""};
  figure.before = "1000000000";
  figure.time = std::chrono::sys_seconds(std::chrono::seconds(1'770'000'000));
  return figure;
}

TEST(JournalText, Reads_what_was_written) {
  const JournalContents read =
      ReadJournal(JournalText(Start()) + JournalLine(Figure(3)) + JournalLine(2, std::string(22, 'z')) +
                  JournalLine(JournalStart::Device{1, "d1", "نو", {}}));
  EXPECT_EQ(read.damaged, 0U);
  EXPECT_EQ(read.start.countingID, 20);
  EXPECT_EQ(read.start.codes[0], std::string(22, 'a'));
  EXPECT_EQ(read.start.codes[1], std::string(22, 'z')) << "the new one";
  ASSERT_EQ(read.start.devices.size(), 1U);
  EXPECT_EQ(read.start.devices[0].name, "نو");
  EXPECT_EQ(read.start.devices[0].entered.All(), (Sequences::Ranges{{1, 5}, {9, 9}}));
  EXPECT_EQ(read.start.unknown, Start().unknown);
  EXPECT_EQ(read.start.ordinals, Start().ordinals);
  ASSERT_EQ(read.figures.size(), 1U);
  const JournalFigure& figure = read.figures[0];
  EXPECT_EQ(figure.count, 2);
  EXPECT_EQ(figure.device, "d2");
  EXPECT_EQ(figure.figure.line, (LineKey{"G\t1", 2}));
  EXPECT_EQ(figure.figure.operation, FloorFigure::Operation::Add);
  EXPECT_EQ(figure.figure.text, "۵");
  EXPECT_EQ(figure.answer, Figure(3).answer);
  EXPECT_EQ(figure.before, "1000000000");
  EXPECT_EQ(figure.time, Figure(3).time);
}

TEST(JournalText, Cut_off_anywhere_has_the_figures_of_its_whole_lines) {
  const std::string start = JournalText(Start());
  const std::string line = JournalLine(Figure(1));
  const std::string text = start + line + JournalLine(Figure(2));
  for (std::size_t size = 0; size <= text.size(); ++size) {
    const std::string cut = text.substr(0, size);
    if (cut.find('\n') == std::string::npos) {
      EXPECT_THROW(static_cast<void>(ReadJournal(cut)), InputError);
      continue;
    }
    const JournalContents read = ReadJournal(cut);
    EXPECT_EQ(read.damaged, 0U) << size;
    EXPECT_EQ(read.whole, cut.rfind('\n') + 1);
    EXPECT_EQ(read.figures.size(), size < start.size() + line.size() ? 0U : size < text.size() ? 1U : 2U);
  }
}

TEST(JournalText, A_damaged_line_is_left_out_and_counted) {
  const std::string start = JournalText(Start());
  const std::string line = JournalLine(Figure(1));
  for (std::size_t at = 0; at + 1 < line.size(); ++at) {
    std::string damaged = line;
    damaged[at] = damaged[at] == 'x' ? 'y' : 'x';
    const JournalContents read = ReadJournal(start + damaged + JournalLine(Figure(2)));
    ASSERT_EQ(read.figures.size(), 1U) << at;
    EXPECT_EQ(read.figures[0].figure.sequence, 2);
    EXPECT_EQ(read.damaged, 1U);
  }
}

}  // namespace
}  // namespace koru
