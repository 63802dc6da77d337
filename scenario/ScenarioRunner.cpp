#include "scenario/ScenarioRunner.h"

#include <algorithm>
#include <exception>
#include <iterator>
#include <utility>

#include "scenario/StepKind.h"

namespace koru {
namespace {

void NoMessage(ScenarioWorld&, const ScenarioStep& step) {
  throw ScenarioFailure("expected the " + step.Text(0) + " " + QuotedForScenario(step.Text(1)) + " " +
                        QuotedForScenario(step.Text(2)) + ", and none is shown");
}

void NoPicker(ScenarioWorld&, const ScenarioStep&) {
  throw ScenarioFailure("expected the goods picker, and it is not shown");
}

void NoDocument(ScenarioWorld&, const ScenarioStep& step) {
  throw ScenarioFailure("expected the " + step.Text(1) + " " + step.Text(2) + ", and it is not shown");
}

void NoDialog(ScenarioWorld&, const ScenarioStep& step) {
  throw ScenarioFailure("expected the dialog " + step.Text(1) + ", and it is not shown");
}

void ExpectError(ScenarioWorld& world, const ScenarioStep& step) {
  if (world.hostError.empty()) throw ScenarioFailure("expected an error, and there was none");
  const std::string error = std::exchange(world.hostError, {});
  if (error != step.Text(1)) {
    throw ScenarioFailure("expected the error " + QuotedForScenario(step.Text(1)) + ", found " +
                          QuotedForScenario(error));
  }
}

/// Answers to what a step before them caused.
constexpr StepKind kAnswerSteps[] = {
    {"message TEXT TEXT", NoMessage},
    {"question TEXT TEXT yes|no|close", NoMessage},
    {"picked TEXT...", NoPicker},
    {"picked nothing", NoPicker},
    {"document receipt|dispatch NUMBER view|register", NoDocument},
    {"dialog NAME", NoDialog},
    {"error TEXT", ExpectError},
};

const std::vector<StepKind>& Kinds() {
  static const std::vector<StepKind> kinds = [] {
    std::vector<StepKind> all(std::begin(kAnswerSteps), std::end(kAnswerSteps));
    for (const auto steps : {SetUpSteps(), ProgramSteps(), ActionSteps(), OutcomeSteps(), LineSteps(),
                             ReportSteps(), FloorSteps(), ControlExpectationSteps()}) {
      all.insert(all.end(), steps.begin(), steps.end());
    }
    return all;
  }();
  return kinds;
}

std::string Described(const ShownMessage& message) {
  return std::string(message.type == 0 ? "message " : "question ") + QuotedForScenario(message.title) + " " +
         QuotedForScenario(message.text);
}

}  // namespace

const std::vector<std::string_view>& ScenarioRunner::Patterns() {
  static const std::vector<std::string_view> patterns = [] {
    std::vector<std::string_view> all;
    for (const StepKind& kind : Kinds()) all.push_back(kind.pattern);
    return all;
  }();
  return patterns;
}

ScenarioRunner::ScenarioRunner(const Scenario& scenario, const DriverMaker& makeDriver, TableReader readTable,
                               std::optional<std::string> server)
    : scenario_(scenario), world_(*this, makeDriver, std::move(readTable), std::move(server)) {}

std::string ScenarioRunner::Run() {
  while (HasNext()) RunNext();
  if (failure_.empty()) CheckError(nullptr);
  if (failure_.empty() && world_.log.FailureIsPending())
    Fail("the scenario ends before the statement that was to fail");
  if (failure_.empty() && world_.driver->Report() != nullptr)
    Fail("the scenario ends with a report that it does not close");
  return failure_;
}

void ScenarioRunner::RunNext() {
  current_ = next_++;
  const ScenarioStep& step = scenario_.steps[current_];
  CheckError(&step);
  if (failure_.empty()) RunStep(step);
}

void ScenarioRunner::RunStep(const ScenarioStep& step) {
  const std::size_t at = current_;
  try {
    Kinds()[step.pattern].run(world_, step);
  } catch (const ScenarioFailure& failure) {
    if (failure_.empty()) current_ = at;
    Fail(failure.what());
  } catch (const std::exception& error) {
    // What a call of the host throws is an outcome: the next step says whether it was expected.
    world_.hostError = error.what();
    errorAt_ = at;
  }
}

void ScenarioRunner::CheckError(const ScenarioStep* step) {
  if (world_.hostError.empty() || (step != nullptr && step->Text(0) == "error")) return;
  current_ = errorAt_;
  Fail("this step failed with the error " + QuotedForScenario(world_.hostError));
}

bool ScenarioRunner::NextIsBeforeAnswer() const {
  const ScenarioStep& step = scenario_.steps[next_];
  const std::string& word = step.Text(0);
  return word == "expect" || word == "picture" || word == "press" || word == "device" ||
         (word == "click" && step.Text(1) == "part" && step.words.size() > 2);
}

const ScenarioStep* ScenarioRunner::TakeAnswer(const std::string& shown,
                                               std::initializer_list<std::string_view> words) {
  const std::size_t cause = current_;
  while (HasNext() && NextIsBeforeAnswer()) RunNext();
  if (!failure_.empty()) return nullptr;
  const ScenarioStep* const step = HasNext() ? &scenario_.steps[next_] : nullptr;
  if (step == nullptr || std::find(words.begin(), words.end(), step->Text(0)) == words.end()) {
    current_ = cause;
    Fail(shown + " is shown that the scenario does not expect");
    return nullptr;
  }
  current_ = next_++;
  return step;
}

Answer ScenarioRunner::AnswerMessage(const ShownMessage& message) {
  const ShownMessage* const outer = std::exchange(open_, &message);
  const Answer answer = Compare(message);
  open_ = outer;
  return answer;
}

Answer ScenarioRunner::Compare(const ShownMessage& message) {
  const std::string kind = message.type == 0 ? "message" : "question";
  const ScenarioStep* const step = TakeAnswer("a " + kind, {"message", "question"});
  if (step == nullptr) return Answer::Closed;
  if (step->Text(0) != kind || step->Text(1) != message.title || step->Text(2) != message.text) {
    Fail("another " + kind + " is shown than the scenario expects");
    return Answer::Closed;
  }
  if (kind == "message" || step->Text(3) == "yes") return Answer::Yes;
  return step->Text(3) == "no" ? Answer::No : Answer::Closed;
}

std::vector<std::string> ScenarioRunner::PickGoods() {
  const ScenarioStep* const step = TakeAnswer("a goods picker", {"picked"});
  std::vector<std::string> barcodes;
  if (step == nullptr || !step->words[1].quoted) return barcodes;
  for (std::size_t i = 1; i < step->words.size(); ++i) barcodes.push_back(step->Text(i));
  return barcodes;
}

DocumentUse ScenarioRunner::UseDocument(const ShownDocument& document) {
  const std::string shown = document.kind + " " + std::to_string(document.id);
  const ScenarioStep* const step = TakeAnswer("a document, the " + shown + ",", {"document"});
  if (step == nullptr) return DocumentUse::View;
  if (step->Text(1) != document.kind || step->Number(2) != document.id) {
    Fail("another document is shown than the scenario expects: the " + shown);
  } else if (step->Text(3) == "register" && document.registered) {
    CannotDo("register the " + shown + ": it is registered already");
  } else if (step->Text(3) == "register") {
    return DocumentUse::Register;
  }
  return DocumentUse::View;
}

void ScenarioRunner::UseDialog(const std::string& name) {
  const ScenarioStep* const step = TakeAnswer("the dialog " + name, {"dialog"});
  if (step != nullptr && step->Text(1) != name)
    Fail("another dialog is shown than the scenario expects: " + name);
}

void ScenarioRunner::CannotDo(const std::string& what) { Fail("the user cannot " + what); }

void ScenarioRunner::UseModalForm(Form& form) {
  while (HasNext() && form.Visible()) RunNext();
  // Where the scenario ends or fails first, the caller still waits for the form.
  form.Hide();
}

void ScenarioRunner::Fail(const std::string& what) {
  if (!failure_.empty()) return;
  const ScenarioStep& step = scenario_.steps[std::min(current_, scenario_.steps.size() - 1)];
  failure_ = ScenarioPlace(scenario_.file, step.line) + ": " + what;
  if (open_ != nullptr) failure_ += "; the screen shows the " + Described(*open_);
}

}  // namespace koru
