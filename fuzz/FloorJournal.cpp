// The journal of figures from the floor is read, or refused as no journal. What is read survives being
// written and read; what follows the last line feed is never read; and a line more is a figure more.

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

#include "floor/JournalText.h"
#include "fuzz/Require.h"
#include "platform/text/Errors.h"
#include "platform/text/Fingerprint.h"

namespace {

using koru::JournalContents;
using koru::JournalFigure;
using koru::fuzz::Require;

/// The journal anew, from what was read of it.
std::string Written(const JournalContents& contents) {
  std::string text = JournalText(contents.start);
  for (const JournalFigure& figure : contents.figures) text += JournalLine(figure);
  return text;
}

bool AreEqual(const JournalFigure& a, const JournalFigure& b) {
  return a.count == b.count && a.device == b.device && a.figure.sequence == b.figure.sequence &&
         a.figure.line == b.figure.line && a.figure.operation == b.figure.operation &&
         a.figure.text == b.figure.text && a.answer == b.answer && a.before == b.before && a.time == b.time;
}

void CheckRead(const std::string& text, const JournalContents& read) {
  Require(read.whole <= text.size() && (read.whole == 0 || text[read.whole - 1] == '\n'),
          "the whole lines end with a line feed");
  const std::string written = Written(read);
  const JournalContents again = koru::ReadJournal(written);
  Require(again.damaged == 0, "what was written has no damaged line");
  Require(again.whole == written.size(), "what was written is whole");
  Require(Written(again) == written, "a journal survives being written and read");
  Require(again.figures.size() == read.figures.size(), "no figure is lost");
  for (std::size_t at = 0; at < read.figures.size(); ++at) {
    Require(AreEqual(again.figures[at], read.figures[at]), "a figure survives being written and read");
  }
  const JournalContents cut = koru::ReadJournal(text.substr(0, read.whole) + "half a line");
  Require(Written(cut) == written && cut.damaged == read.damaged, "a line that is cut off is not read");
}

/// The text with the fingerprint of each of its lines, so that what is in them is read.
std::string Sealed(std::string_view text) {
  std::string sealed;
  while (!text.empty()) {
    const std::string_view line = text.substr(0, text.find('\n'));
    sealed += std::to_string(koru::Fingerprint(line)) + '\t' + std::string(line) + '\n';
    text.remove_prefix(std::min(text.size(), line.size() + 1));
  }
  return sealed;
}

void Check(const std::string& text) {
  try {
    CheckRead(text, koru::ReadJournal(text));
  } catch (const koru::InputError& refused) {
    Require(*refused.what() != '\0', "a refusal says why");
  }
}

/// A text of any length as a field of a figure.
void CheckField(const std::string& text) {
  koru::JournalStart start;
  start.countingID = 1;
  start.codes.fill(std::string(22, 'A'));
  JournalFigure figure;
  figure.device = text;
  figure.figure = {7, {text, 2}, koru::FloorFigure::Operation::Add, text, {}};
  figure.answer = {7, koru::FigureState::Warned, text, text, text};
  figure.before = text;
  const JournalContents read = koru::ReadJournal(JournalText(start) + JournalLine(figure));
  Require(read.figures.size() == 1 && AreEqual(read.figures.front(), figure), "any text can be journalled");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(koru::fuzz::TextOf(data, size));
  CheckField(text);
  Check(text);
  Check(Sealed(text));
  return 0;
}
