#include <gtest/gtest.h>

#include "lines/LineColumns.h"
#include "platform/sql/DatabaseError.h"
#include "platform/text/Errors.h"
#include "platform/text/Numbers.h"
#include "platform/text/Text.h"
#include "registration/AdjustmentDocuments.h"
#include "registration/TemporarySave.h"
#include "services/FixQuote.h"
#include "tests/registration/DocumentsTest.h"
#include "tests/support/HostileTexts.h"

namespace koru {
namespace {

/// Whatever is typed or stored as a text: as long as it stays within its literal it is stored, else its
/// statement is refused before it is sent, and no row of any table is other than the statements before left
/// it.
class HostileText : public DocumentsTest {
 protected:
  HostileText() {
    Execute("insert into tblGood (Barcode, Name) values ('1', 'good')");
    StoreCounting();
    AddLine({.barcode = "1"});
  }

  void Save(DocumentMode mode) {
    shared.DocMode = mode;
    guard.Stored().Forget();  // each save is one of another user
    TemporarySave(form, shared, guard).Run();
  }
  void CreateDocuments() {
    const auto group = shared.data.BeginWriteBatch();
    AdjustmentDocuments(form, shared).CreateAdjustmentDocuments();
  }

  /// A field as it is stored, byte by byte; rows as text would end at a line feed that was typed.
  std::string Stored(const std::string& sql) { return database.Scalar(sql); }

  /// Runs `command`, which must be refused before `mayBeSent` + 1 statements are sent, and must leave
  /// `expected`.
  void ExpectRefused(const std::function<void()>& command, std::size_t mayBeSent,
                     const std::string& expected) {
    StartRecording();
    try {
      command();
      ADD_FAILURE() << "not refused";
    } catch (const DatabaseError& refusal) {
      EXPECT_EQ(refusal.Code(), kBrokenStatement);
    } catch (const InputError& refusal) {
      EXPECT_NE(std::string(refusal.what()).find("آپوستروف"), std::string::npos);
    }
    EXPECT_EQ(Sent().size(), mayBeSent);
    EXPECT_EQ(Dump(), expected);
  }

  /// Leaves counting 1 with one line of that barcode and difference, and no documents of the kind.
  void StoreOneLine(const std::string& barcode, double contradiction, const std::string& document) {
    Execute("delete from tblInventoryCountingDetail; delete from " + document + "; delete from " + document +
            "Detail");
    Execute(
        "insert into tblInventoryCountingDetail (CountingID, Barcode, ContradictionCounting) values (1, '" +
        FixQuote(barcode) + "', " + NumberText(contradiction) + ")");
  }

  /// The document's line has the stored barcode, or it is refused and nothing but the document's header is
  /// there.
  void ExpectCopiedOrRefused(const std::string& barcode, double contradiction, const std::string& document) {
    StoreOneLine(barcode, contradiction, document);
    const std::string before = Dump();
    if (StaysInLiteral(barcode)) {
      CreateDocuments();
      EXPECT_EQ(Stored("select Barcode from " + document + "Detail"), MeaningOf(Trim(barcode)));
      return;
    }
    EXPECT_THROW(CreateDocuments(), DatabaseError);
    EXPECT_TRUE(Sent().back().starts_with("Select Barcode,sum("));
    EXPECT_EQ(Stored("select count(*) from " + document), "1");
    Execute("delete from " + document);
    EXPECT_EQ(Dump(), before);
  }
};

TEST_F(HostileText, There_are_more_than_200_texts_of_both_kinds) {
  const Texts texts = HostileTexts();
  EXPECT_GT(texts.size(), 200U);
  EXPECT_GT(std::count_if(texts.begin(), texts.end(), StaysInLiteral), 100);
  EXPECT_LT(std::count_if(texts.begin(), texts.end(), StaysInLiteral), static_cast<int>(texts.size()) - 100);
}

TEST_F(HostileText, Notes_of_a_new_counting_are_stored_as_typed) {
  for (const std::string& text : HostileTexts()) {
    SCOPED_TRACE(text);
    form.txtNotes.SetText(text);
    Save(DocumentMode::New);
    EXPECT_EQ(Stored("select Notes from tblInventoryCounting where ID = " + form.lblIDVal.Caption()), text);
    EXPECT_EQ(Stored("select count(*) from tblInventoryCounting"), form.lblIDVal.Caption());
  }
}

TEST_F(HostileText, Notes_of_an_edited_counting_are_stored_as_typed) {
  Save(DocumentMode::Editing);
  const std::string before = Dump();
  for (const std::string& text : HostileTexts()) {
    SCOPED_TRACE(text);
    form.txtNotes.SetText(text);
    Save(DocumentMode::Editing);
    EXPECT_EQ(Stored("select Notes from tblInventoryCounting where ID = 1"), text);
    Execute("update tblInventoryCounting set Notes = '' where ID = 1");
    EXPECT_EQ(Dump(), before);
  }
}

TEST_F(HostileText, A_manual_number_of_a_new_counting_is_stored_or_refused) {
  for (const std::string& text : HostileTexts()) {
    SCOPED_TRACE(text);
    form.txtGNO.SetText(text);
    if (!StaysInLiteral(text)) {
      ExpectRefused([&] { Save(DocumentMode::New); }, 0, Dump());
      continue;
    }
    Save(DocumentMode::New);
    EXPECT_EQ(Stored("select ManualCode from tblInventoryCounting where ID = " + form.lblIDVal.Caption()),
              MeaningOf(Trim(text)));
    EXPECT_EQ(Stored("select count(*) from tblInventoryCounting"), form.lblIDVal.Caption());
  }
}

TEST_F(HostileText, A_manual_number_of_an_edited_counting_is_stored_or_refused) {
  Save(DocumentMode::Editing);
  const std::string before = Dump();
  for (const std::string& text : HostileTexts()) {
    SCOPED_TRACE(text);
    form.txtGNO.SetText(text);
    if (!StaysInLiteral(text)) {
      ExpectRefused([&] { Save(DocumentMode::Editing); }, 0, before);
      continue;
    }
    Save(DocumentMode::Editing);
    EXPECT_EQ(Stored("select ManualCode from tblInventoryCounting where ID = 1"), MeaningOf(Trim(text)));
    Execute("update tblInventoryCounting set ManualCode = '' where ID = 1");
    EXPECT_EQ(Dump(), before);
  }
}

TEST_F(HostileText, A_barcode_of_a_line_is_stored_or_refused) {
  Save(DocumentMode::Viewing);
  const std::string before = Dump();
  AddLine({.barcode = ""});
  for (const std::string& text : HostileTexts()) {
    SCOPED_TRACE(text);
    form.flexDetail.SetTextMatrix(2, LineColumn::Barcode, text);
    if (!StaysInLiteral(text)) {
      ExpectRefused([&] { Save(DocumentMode::Viewing); }, 0, before);
      continue;
    }
    Save(DocumentMode::Viewing);
    EXPECT_EQ(Stored("select Barcode from tblInventoryCountingDetail where RowNumber = 2"),
              MeaningOf(Trim(text)));
    EXPECT_EQ(Stored("select count(*) from tblInventoryCountingDetail"), "2");
    Execute("delete from tblInventoryCountingDetail where RowNumber = 2");
    EXPECT_EQ(Dump(), before);
  }
}

TEST_F(HostileText, A_stored_barcode_of_a_shortage_is_copied_or_refused) {
  for (const std::string& text : HostileTexts()) {
    SCOPED_TRACE(text);
    ExpectCopiedOrRefused(text, -1, "tblInventoryDispatch");
  }
}

TEST_F(HostileText, A_stored_barcode_of_a_surplus_is_copied_or_refused) {
  for (const std::string& text : HostileTexts()) {
    SCOPED_TRACE(text);
    ExpectCopiedOrRefused(text, 1, "tblInventoryReceipt");
  }
}

TEST_F(HostileText, A_character_0_is_refused_in_every_field) {
  const std::string text("a\0b", 3);
  const std::string before = Dump();
  form.txtNotes.SetText(text);
  ExpectRefused([&] { Save(DocumentMode::New); }, 0, before);
  form.txtNotes.SetText("");
  form.txtGNO.SetText(text);
  ExpectRefused([&] { Save(DocumentMode::Editing); }, 0, before);
  form.flexDetail.SetTextMatrix(1, LineColumn::Barcode, text);
  ExpectRefused([&] { Save(DocumentMode::Viewing); }, 1, before);
}

}  // namespace
}  // namespace koru
