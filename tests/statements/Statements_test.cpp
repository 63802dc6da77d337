#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <set>
#include <utility>

#include "adapters/odbc/ServerDialect.h"
#include "services/dteInvCounting.h"
#include "tests/statements/SentStatements.h"
#include "tests/statements/SourceTexts.h"
#include "tests/statements/StatementFiles.h"
#include "tools/tds-stand-in/TSqlRules.h"

namespace koru::test {
namespace {

constexpr const char* kFile = KORU_SOURCES "/docs/statements.md";

constexpr const char* kHead = R"(# Statements

Every statement that the component can send, by what a user does, in the order in which they are sent. The values are those
of a small suite; a line's statements repeat for every line, and a search's criteria are left out where nothing is asked for.
A comment names the source file that builds the statements below it.

Users, stores, goods and documents are chosen in windows that read lists of their own; these are not listed here.
On a server, statements travel together, literals beyond ASCII become national ones, and a command that writes runs in a
transaction under a lock: [what the adapter adds](sql-server.md#round-trips) is not listed either.

On a file, statements run one by one in this order. A server gets these together, as many in a round trip as its connection takes
(`Database::StatementsPerTrip`):

| statements | together |
|---|---|
| unit, dispatches' rate and the two sums, for Calculate and Goods | those of as many lines as fit into a trip, line by line; then the second statements for a unit and a rate that these lines still lack |
| inserts of lines, by a save or a registration, and of document lines | as many as fit into a trip, in their order |
| deletion of earlier documents, by a registration or Return | all four |
| the stored header and its lines, to find changes by other stations | both |

Where one fails, those after it in the trip do not run, and what was stored and shown is the same as one by one
(`tests/lines/LinesInTrips_test.cpp`, `tests/registration/DatabaseFailure_test.cpp`). [Performance](performance.md) has the number
of round trips.

The page is written by a test, `tests/statements`, and compared by it. To write it anew after a change:

    KORU_RENEW_STATEMENTS=1 build/dev/koru_test_statements
)";

std::vector<SourceText> TextsOfTheComponent() {
  return TextsOfStatementSources(
      KORU_SOURCES, {"services", "component", "counting", "lines", "registration", "output", "search"});
}

std::string Page(const std::vector<Operation>& operations) {
  const std::vector<SourceText> texts = TextsOfTheComponent();
  std::string page = kHead;
  for (const Operation& operation : operations) {
    page += "\n## " + operation.title + "\n\n```sql\n";
    std::string named;
    for (const std::string& statement : operation.statements) {
      const std::string file = FileOfStatement(statement, texts);
      if (std::exchange(named, file) != file) page += "-- " + file + "\n";
      page += statement + "\n";
    }
    page += "```\n";
  }
  return page;
}

std::string Stored() {
  std::ifstream stream(kFile, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

std::string AllStatements() {
  std::string all;
  for (const Operation& operation : SentStatements()) {
    for (const std::string& statement : operation.statements) all += statement + "\n";
  }
  return all;
}

/// Texts beside statements that are part of none: names of forms and controls, fields that are read from `*`,
/// tables of the selectors, and the grid's mask.
const std::set<std::string> kNoSql{"frmInvCounting",
                                   "frmInvSearch",
                                   "frmGoodSearch",
                                   "frmReport",
                                   "cmbReport",
                                   "cmdPrint",
                                   "cmdOk",
                                   "Title",
                                   "FilePath",
                                   "fmlCompanyName='",
                                   "vwGoodScaleMajor",
                                   "vwGoodGroup_CodeMajor",
                                   "tblGoodScaleParent",
                                   "00000011110001000",
                                   "EnterGoesDown"};

/// A sentence for the user, which no statement holds.
bool IsSentence(const std::string& text) {
  const bool isPersian = std::any_of(text.begin(), text.end(), [](char c) { return (c & 0x80) != 0; });
  return isPersian && text.find('\'') == std::string::npos;
}

TEST(Statements, The_document_lists_what_is_sent) {
  const std::string page = Page(SentStatements());
  if (std::getenv("KORU_RENEW_STATEMENTS") != nullptr) std::ofstream(kFile, std::ios::binary) << page;
  const std::string stored = Stored();
  const auto differs = std::mismatch(page.begin(), page.end(), stored.begin(), stored.end());
  EXPECT_TRUE(page == stored)
      << "docs/statements.md differs from what the component sends, first at line "
      << std::count(page.begin(), differs.first, '\n') + 1
      << ". After a wanted change: KORU_RENEW_STATEMENTS=1 build/dev/koru_test_statements";
}

TEST(Statements, No_text_that_a_source_puts_into_a_statement_is_missing_from_the_list) {
  const std::string sent = AllStatements();
  int parts = 0;
  for (const SourceText& source : TextsOfTheComponent()) {
    if (IsSentence(source.text) || kNoSql.contains(source.text)) continue;
    ++parts;
    EXPECT_NE(sent.find(source.text), std::string::npos) << source.Place() << ": " << source.text;
  }
  EXPECT_GT(parts, 150);
}

TEST(Statements, Every_right_that_is_asked_for_is_in_the_list) {
  const std::string sent = AllStatements();
  for (const FormPermission permission :
       {FormPermission::OpenForNew, FormPermission::New, FormPermission::Edit, FormPermission::Delete,
        FormPermission::Search, FormPermission::TemporarySave, FormPermission::FinalRegistration,
        FormPermission::ReturnToTemporary}) {
    const std::string number = std::to_string(static_cast<int>(permission));
    EXPECT_NE(sent.find("{? = CALL spPelinHasPermission( 7, " + number + ") }\n"), std::string::npos)
        << number;
  }
}

TEST(Statements, Literals_listed_as_no_part_of_a_statement_still_exist_in_the_sources) {
  std::set<std::string> texts;
  for (const SourceText& source : TextsOfTheComponent()) texts.insert(source.text);
  for (const std::string& text : kNoSql) EXPECT_TRUE(texts.contains(text)) << text;
}

TEST(Statements, Every_operation_sends_something_and_each_statement_is_on_one_line) {
  for (const Operation& operation : SentStatements()) {
    EXPECT_FALSE(operation.statements.empty()) << operation.title;
    for (const std::string& statement : operation.statements) {
      EXPECT_EQ(statement.find('\n'), std::string::npos) << statement;
    }
  }
}

TEST(Statements, Each_is_built_in_one_source_file) {
  const std::vector<SourceText> texts = TextsOfTheComponent();
  for (const Operation& operation : SentStatements()) {
    for (const std::string& statement : operation.statements) {
      const std::string file = FileOfStatement(statement, texts);
      EXPECT_FALSE(file.empty()) << statement;
      EXPECT_EQ(file.find(" or "), std::string::npos) << file << ": " << statement;
    }
  }
}

TEST(Statements, Each_is_one_whole_statement_of_the_server) {
  for (const Operation& operation : SentStatements()) {
    for (const std::string& statement : operation.statements) {
      if (statement.starts_with("{? = CALL ")) continue;
      EXPECT_EQ(BrokenRules(ServerStatement(statement)), std::vector<std::string>{}) << statement;
    }
  }
}

TEST(SourceTexts, Are_read_as_the_compiler_reads_them) {
  const std::string source =
      "#include \"a.h\"\n// \"no\"\nf(\"a\\\"b\" /* \"no\" */\n  \"c\\u200C\", '\"', \"d\", 1'000);\n";
  const auto texts = TextsOf(source, "x.cpp");
  ASSERT_EQ(texts.size(), 2U);
  EXPECT_EQ(texts[0].text, "a\"bc\u200C");
  EXPECT_EQ(texts[0].Place(), "x.cpp:3");
  EXPECT_EQ(texts[1].text, "d");
  EXPECT_EQ(texts[1].Place(), "x.cpp:4");
  EXPECT_EQ(source.substr(texts[1].begin, texts[1].end - texts[1].begin), "\"d\"");
}

TEST(SourceTexts, Include_raw_ones) {
  const auto texts = TextsOf("R\"(a\"\n\\b)\" \"c\"; R\"x()\")x\"", "x.cpp");
  ASSERT_EQ(texts.size(), 2U);
  EXPECT_EQ(texts[0].text, "a\"\n\\bc");
  EXPECT_EQ(texts[1].text, ")\"");
  EXPECT_EQ(texts[1].line, 2);
}

TEST(StatementFiles, The_file_that_has_more_of_a_statement_is_named) {
  const std::vector<SourceText> texts{{"Select * from ", "a.cpp"},
                                      {"Select * from tblGood", "b.cpp"},
                                      {"Select * from tblGood", "c.cpp"},
                                      {" where Barcode=", "c.cpp"},
                                      {"spPelinHasPermission", "d.cpp"}};
  EXPECT_EQ(FileOfStatement("Select * from tblUser", texts), "a.cpp");
  EXPECT_EQ(FileOfStatement("Select * from tblGood where Barcode='1'", texts), "c.cpp");
  EXPECT_EQ(FileOfStatement("Select * from tblGood", texts), "b.cpp or c.cpp");
  EXPECT_EQ(FileOfStatement("{? = CALL spPelinHasPermission( 7, 806) }", texts), "d.cpp");
  EXPECT_EQ(FileOfStatement("delete from tblGood", texts), "");
}

}  // namespace
}  // namespace koru::test
