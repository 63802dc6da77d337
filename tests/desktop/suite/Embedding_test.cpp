#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

namespace koru {
namespace {

std::string Content(const std::string& file) {
  std::ifstream stream(std::string(KORU_SOURCES "/") + file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

TEST(Embedding, The_readme_shows_the_program_that_is_compiled) {
  const std::string program = Content("examples/embedding/main.cpp");
  ASSERT_NE(program, "");
  EXPECT_NE(Content("README.md").find("```cpp\n" + program + "```\n"), std::string::npos)
      << "README.md and examples/embedding/main.cpp differ";
}

}  // namespace
}  // namespace koru
