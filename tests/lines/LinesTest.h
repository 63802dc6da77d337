#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/lines/LineForm.h"
#include "tests/support/FailingDatabase.h"
#include "tests/support/FakeMessages.h"
#include "tests/support/FakeScreen.h"
#include "tests/support/RecordingDatabase.h"
#include "tests/support/TestDatabase.h"

namespace koru {

/// A form with lines over a fresh database, and a person who answers questions.
class LinesTest : public ::testing::Test {
 protected:
  using Answers = test::FakeMessages::Answer;

  LinesTest() { messages_.RegisterIn(components_); }

  /// Runs statements that the component has no part in.
  void Execute(const std::string& sql) { database.Execute(sql); }
  /// The component's next statements: the n-th of them (from 1) fails.
  void FailAt(int n) { failing_.Plan().FailAt(n); }
  /// The statements that the component has sent since the last call.
  std::vector<std::string> Sent() {
    std::vector<std::string> statements = recording_.Statements();
    recording_.ForgetStatements();
    return statements;
  }
  /// How the person answers the next question.
  void Answer(Answers answer) { messages_.WillAnswer(answer); }
  /// "title: text" of every message and question since the last call.
  std::vector<std::string> Shown() {
    std::vector<std::string> shown;
    for (const auto& message : messages_.Shown()) shown.push_back(message.title + ": " + message.text);
    messages_.Forget();
    return shown;
  }

  test::TestDatabase database;
  test::FakeScreen screen;

 private:
  test::FakeMessages messages_;
  ComponentRegistry components_;
  test::RecordingConnector recording_{database.Connector()};
  test::FailingConnector failing_{recording_};

 protected:
  LineForm form{screen, components_, failing_, database.ConnectionText()};
};

}  // namespace koru
