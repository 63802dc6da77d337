#include "platform/sql/SqlLexer.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace koru {
namespace {

using Kind = SqlTokenKind;
using Tokens = std::vector<std::pair<Kind, std::string>>;

Tokens Read(std::string_view text) {
  Tokens tokens;
  SqlLexer lexer(text);
  for (SqlToken token = lexer.Next(); token.kind != Kind::End; token = lexer.Next()) {
    tokens.emplace_back(token.kind, std::string(lexer.TextOf(token)));
  }
  return tokens;
}

TEST(SqlLexer, Reads_a_statement_word_by_word) {
  EXPECT_EQ(Read("delete tblGood where id=-12.5e3 and N>='a''b'"), (Tokens{{Kind::Word, "delete"},
                                                                           {Kind::Word, "tblGood"},
                                                                           {Kind::Word, "where"},
                                                                           {Kind::Word, "id"},
                                                                           {Kind::Symbol, "="},
                                                                           {Kind::Symbol, "-"},
                                                                           {Kind::Number, "12.5e3"},
                                                                           {Kind::Word, "and"},
                                                                           {Kind::Word, "N"},
                                                                           {Kind::Symbol, ">="},
                                                                           {Kind::String, "'a''b'"}}));
}

TEST(SqlLexer, Knows_national_literals_brackets_comments_and_parameters) {
  EXPECT_EQ(Read("n'كالا' [a]]b] \"q\" -- to the end\n/* x */ ? @id <> !="),
            (Tokens{{Kind::NationalString, "n'كالا'"},
                    {Kind::Word, "[a]]b]"},
                    {Kind::Word, "\"q\""},
                    {Kind::Comment, "-- to the end\n"},
                    {Kind::Comment, "/* x */"},
                    {Kind::Parameter, "?"},
                    {Kind::Parameter, "@id"},
                    {Kind::Symbol, "<>"},
                    {Kind::Symbol, "!="}}));
}

TEST(SqlLexer, What_is_never_closed_is_broken_to_the_end) {
  EXPECT_EQ(Read("a 'b").back(), std::make_pair(Kind::Broken, std::string("'b")));
  EXPECT_EQ(Read("a 'b''").back(), std::make_pair(Kind::Broken, std::string("'b''")));
  EXPECT_EQ(Read("/* b").back(), std::make_pair(Kind::Broken, std::string("/* b")));
  EXPECT_EQ(Read("[b").back(), std::make_pair(Kind::Broken, std::string("[b")));
  EXPECT_EQ(Read("-- b").back(), std::make_pair(Kind::Comment, std::string("-- b")));
}

TEST(SqlLexer, Loses_no_byte_whatever_the_text) {
  const std::string alphabet = "aN'\"[]-/*? \n19.eE@<>=!;,()\xD9\x8A";
  unsigned state = 7;
  for (int round = 0; round < 5000; ++round) {
    std::string text;
    for (int i = 0; i < 24; ++i) {
      state = state * 1664525U + 1013904223U;
      text += alphabet[(state >> 16U) % alphabet.size()];
    }
    SqlLexer lexer(text);
    std::size_t at = 0;
    for (SqlToken token = lexer.Next(); token.kind != Kind::End; token = lexer.Next()) {
      ASSERT_LT(token.begin, token.end) << text;
      const std::string between = text.substr(at, token.begin - at);
      ASSERT_EQ(between.find_first_not_of(" \n"), std::string::npos) << text;
      at = token.end;
    }
    ASSERT_EQ(text.find_first_not_of(" \n", at), std::string::npos) << text;
  }
}

}  // namespace
}  // namespace koru
