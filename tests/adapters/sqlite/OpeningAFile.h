#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <iterator>
#include <string>

#include "adapters/sqlite/SqliteConnector.h"
#include "platform/sql/DatabaseError.h"
#include "tests/support/TestFile.h"

namespace koru::test {

class OpeningAFile : public testing::Test {
 protected:
  /// The sentence with which the file is refused; empty when it opens.
  static std::string Refusal(const std::string& connectionText) {
    try {
      (void)SqliteConnector(std::chrono::milliseconds(0)).Connect(connectionText);
    } catch (const DatabaseError& error) {
      return error.ServerText();
    }
    return {};
  }
  static std::string TextFor(const std::string& file) { return "Provider=SQLite;Data Source=" + file; }
  static std::string Content(const std::string& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }
  static void Write(const std::string& file, const std::string& content) {
    std::ofstream(file, std::ios::binary) << content;
  }
  static void ExpectSays(const std::string& sentence, const std::string& what, const std::string& file) {
    EXPECT_NE(sentence.find(what), std::string::npos) << sentence;
    EXPECT_NE(sentence.find(file), std::string::npos) << sentence;
  }

  TestFile database_;
  const TemporaryFolder& folder_ = database_.Folder();
};

}  // namespace koru::test
