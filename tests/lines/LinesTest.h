#pragma once

#include <gtest/gtest.h>

#include "tests/lines/LineForm.h"
#include "tests/support/ComponentFixture.h"

namespace koru {

using test::Texts;

/// A form with lines. `Host` is the fixture that it runs on.
template <class Host>
class LinesTestOn : public ::testing::Test, protected Host {
 protected:
  using Answers = test::FakeMessages::Answer;

  template <class... Arguments>
  explicit LinesTestOn(Arguments... ofHost) : Host(ofHost...) {}

  SharedState shared{this->Services()};
  LineForm form{shared};
};

/// The rules of the lines that need no database.
using LinesTest = LinesTestOn<test::NoDatabaseFixture>;

}  // namespace koru
