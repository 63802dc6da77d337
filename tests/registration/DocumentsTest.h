#pragma once

#include <gtest/gtest.h>

#include "tests/registration/CountingDesk.h"

namespace koru {

class DocumentsTest : public ::testing::Test, protected CountingDesk {};

}  // namespace koru
