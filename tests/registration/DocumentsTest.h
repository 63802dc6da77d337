#pragma once

#include <gtest/gtest.h>

#include "tests/registration/CountingDesk.h"

namespace koru {

/// A test of saving, registering, returning or showing one counting.
class DocumentsTest : public ::testing::Test, protected CountingDesk {};

}  // namespace koru
