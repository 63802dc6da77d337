#include "host/play/Player.h"

#include <algorithm>
#include <exception>
#include <iterator>
#include <utility>

#include "host/play/StepKind.h"

namespace koru {
namespace {

void PlayNoMessage(StoryWorld&, const StoryStep& step) {
  throw StoryFailure("expected the " + step.Text(0) + " " + QuotedForStory(step.Text(1)) + " " +
                     QuotedForStory(step.Text(2)) + ", and none is shown");
}

void PlayNoPicker(StoryWorld&, const StoryStep&) {
  throw StoryFailure("expected the goods picker, and it is not shown");
}

void PlayNoDocument(StoryWorld&, const StoryStep& step) {
  throw StoryFailure("expected the " + step.Text(1) + " " + step.Text(2) + ", and it is not shown");
}

void PlayError(StoryWorld& world, const StoryStep& step) {
  if (world.hostError.empty()) throw StoryFailure("expected an error, and there was none");
  const std::string error = std::exchange(world.hostError, {});
  if (error != step.Text(1)) {
    throw StoryFailure("expected the error " + QuotedForStory(step.Text(1)) + ", found " +
                       QuotedForStory(error));
  }
}

/// The steps that answer what the ones before them set off.
constexpr StepKind kAnswerSteps[] = {
    {"message TEXT TEXT", PlayNoMessage},
    {"question TEXT TEXT yes|no|close", PlayNoMessage},
    {"picked TEXT...", PlayNoPicker},
    {"picked nothing", PlayNoPicker},
    {"document receipt|dispatch NUMBER view|register", PlayNoDocument},
    {"error TEXT", PlayError},
};

const std::vector<StepKind>& Kinds() {
  static const std::vector<StepKind> kinds = [] {
    std::vector<StepKind> all(std::begin(kAnswerSteps), std::end(kAnswerSteps));
    for (const auto steps :
         {SetUpSteps(), ActionSteps(), OutcomeSteps(), ReportSteps(), ControlExpectationSteps()}) {
      all.insert(all.end(), steps.begin(), steps.end());
    }
    return all;
  }();
  return kinds;
}

std::string Described(const ShownMessage& message) {
  return std::string(message.type == 0 ? "message " : "question ") + QuotedForStory(message.title) + " " +
         QuotedForStory(message.text);
}

}  // namespace

const std::vector<std::string_view>& Player::Patterns() {
  static const std::vector<std::string_view> patterns = [] {
    std::vector<std::string_view> all;
    for (const StepKind& kind : Kinds()) all.push_back(kind.pattern);
    return all;
  }();
  return patterns;
}

Player::Player(const Story& story, const StageMaker& makeStage, TrialRoute route)
    : story_(story), world_(*this, makeStage, std::move(route)) {}

std::string Player::Play() {
  while (GoesOn()) PlayNext();
  if (failure_.empty()) CheckError(nullptr);
  if (failure_.empty() && world_.log.FailureIsPending())
    Fail("the story ends before the statement that was to fail");
  if (failure_.empty() && world_.stage->Report() != nullptr)
    Fail("the story ends with a report that it does not close");
  return failure_;
}

void Player::PlayNext() {
  current_ = next_++;
  const StoryStep& step = story_.steps[current_];
  CheckError(&step);
  if (failure_.empty()) Run(step);
}

void Player::Run(const StoryStep& step) {
  const std::size_t at = current_;
  try {
    Kinds()[step.pattern].play(world_, step);
  } catch (const StoryFailure& failure) {
    if (failure_.empty()) current_ = at;
    Fail(failure.what());
  } catch (const std::exception& error) {
    // What a host's call throws is an outcome; the step behind it says whether it was expected.
    world_.hostError = error.what();
    errorAt_ = at;
  }
}

void Player::CheckError(const StoryStep* step) {
  if (world_.hostError.empty() || (step != nullptr && step->Text(0) == "error")) return;
  current_ = errorAt_;
  Fail("this step failed with the error " + QuotedForStory(world_.hostError));
}

bool Player::NextLooksOnly() const {
  const std::string& word = story_.steps[next_].Text(0);
  return word == "expect" || word == "picture";
}

const StoryStep* Player::TakeAnswer(const std::string& shown, std::initializer_list<std::string_view> words) {
  const std::size_t cause = current_;
  while (GoesOn() && NextLooksOnly()) PlayNext();
  if (!failure_.empty()) return nullptr;
  const StoryStep* const step = GoesOn() ? &story_.steps[next_] : nullptr;
  if (step == nullptr || std::find(words.begin(), words.end(), step->Text(0)) == words.end()) {
    current_ = cause;
    Fail(shown + " is shown that the story does not expect");
    return nullptr;
  }
  current_ = next_++;
  return step;
}

Answer Player::AnswerMessage(const ShownMessage& message) {
  const ShownMessage* const outer = std::exchange(open_, &message);
  const Answer answer = Compare(message);
  open_ = outer;
  return answer;
}

Answer Player::Compare(const ShownMessage& message) {
  const std::string kind = message.type == 0 ? "message" : "question";
  const StoryStep* const step = TakeAnswer("a " + kind, {"message", "question"});
  if (step == nullptr) return Answer::Closed;
  if (step->Text(0) != kind || step->Text(1) != message.title || step->Text(2) != message.text) {
    Fail("another " + kind + " is shown than the story expects");
    return Answer::Closed;
  }
  if (kind == "message" || step->Text(3) == "yes") return Answer::Yes;
  return step->Text(3) == "no" ? Answer::No : Answer::Closed;
}

std::vector<std::string> Player::PickGoods() {
  const StoryStep* const step = TakeAnswer("a goods picker", {"picked"});
  std::vector<std::string> barcodes;
  if (step == nullptr || !step->words[1].quoted) return barcodes;
  for (std::size_t i = 1; i < step->words.size(); ++i) barcodes.push_back(step->Text(i));
  return barcodes;
}

DocumentUse Player::UseDocument(const ShownDocument& document) {
  const std::string shown = document.kind + " " + std::to_string(document.id);
  const StoryStep* const step = TakeAnswer("a document, the " + shown + ",", {"document"});
  if (step == nullptr) return DocumentUse::View;
  if (step->Text(1) != document.kind || step->Number(2) != document.id) {
    Fail("another document is shown than the story expects: the " + shown);
  } else if (step->Text(3) == "register" && document.registered) {
    CannotDo("register the " + shown + ": it is registered already");
  } else if (step->Text(3) == "register") {
    return DocumentUse::Register;
  }
  return DocumentUse::View;
}

void Player::CannotDo(const std::string& what) { Fail("a person cannot " + what); }

void Player::UseModalForm(Form& form) {
  while (GoesOn() && form.Visible()) PlayNext();
  // A story that ends, or fails, before the form does: the caller is still waiting for it.
  form.Hide();
}

void Player::Fail(const std::string& what) {
  if (!failure_.empty()) return;
  const StoryStep& step = story_.steps[std::min(current_, story_.steps.size() - 1)];
  failure_ = StoryPlace(story_.file, step.line) + ": " + what;
  if (open_ != nullptr) failure_ += "; on the screen stands the " + Described(*open_);
}

}  // namespace koru
