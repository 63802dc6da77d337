// The dialog of the open floor.

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTableView>

#include "desktop/floor/FloorTable.h"
#include "desktop/floor/QrCodeView.h"
#include "tests/desktop/floor/FloorDeskTest.h"
#include "tests/desktop/floor/server/HttpClient.h"

namespace koru {
namespace {

class FloorDialogTest : public FloorDeskTest {
 protected:
  void SetUp() override { OpenInEdit(); }

  template <class Widget>
  [[nodiscard]] Widget& Part(const char* name) const {
    return *desk->Dialog()->findChild<Widget*>(QLatin1String(name));
  }
  [[nodiscard]] std::vector<QString> RowOf(const char* table, int row) const {
    std::vector<QString> texts;
    const auto& items = Part<FloorTable>(table);
    for (int col = 0; col < items.columnCount(); ++col) texts.push_back(items.item(row, col)->text());
    return texts;
  }
  static void ClickRow(FloorTable& table, int row) {
    QApplication::processEvents();  // lays the page out
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {},
                      table.visualItemRect(table.item(row, 0)).center());
  }
  /// The address that is shown for a count, without the marks where a line may end and where it may not.
  [[nodiscard]] QString ShownUrl(int count) const {
    return Part<QLabel>(("floorUrl" + std::to_string(count)).c_str())
        .text()
        .remove(QChar(0x200B))
        .remove(QChar(0x2060));
  }
  void ShowPage(int page) { Part<QTabWidget>("floorPages").setCurrentIndex(page); }
};

TEST_F(FloorDialogTest, Each_count_has_its_own_code_address_and_counter) {
  std::vector<QString> codes;
  for (int count = 1; count <= kFloorCounts; ++count) {
    const auto part = [count](const char* name) { return std::string(name) + std::to_string(count); };
    const QString url = ToQt(desk->Server()->Url(count, "127.0.0.1"));
    EXPECT_EQ(Part<QrCodeView>(part("floorCode").c_str()).Text(), url);
    EXPECT_EQ(ShownUrl(count), url);
    EXPECT_TRUE(url.endsWith(ToQt(desk->Session()->Code(count))));
    Click(*desk->Dialog(), part("floorCopy").c_str());
    EXPECT_EQ(QGuiApplication::clipboard()->text(), url);
    codes.push_back(url);
  }
  EXPECT_NE(codes[0], codes[1]);
  EXPECT_NE(codes[1], codes[2]);
  EXPECT_NE(Part<QLabel>("floorCounter1").text().indexOf(QStringLiteral("مريم احمدي")), -1);
  EXPECT_NE(Part<QLabel>("floorCounter2").text().indexOf(QStringLiteral("بدون شمارشگر")), -1);
}

TEST_F(FloorDialogTest, The_user_chooses_among_several_addresses) {
  auto& list = Part<QComboBox>("floorAddress");
  EXPECT_TRUE(list.isEnabled());
  EXPECT_EQ(list.count(), 2);
  list.setCurrentIndex(1);
  EXPECT_EQ(Part<QrCodeView>("floorCode3").Text(), ToQt(desk->Server()->Url(3, "desk.example")));
}

TEST_F(FloorDialogTest, An_address_that_the_machine_gets_later_is_in_the_code_and_is_served) {
  const auto status = [this](const std::string& host) {
    test::HttpClient client(desk->Server()->Port());
    client.Send("GET / HTTP/1.1\r\nHost: " + host + "\r\n\r\n");
    return client.Receive().status;
  };
  EXPECT_EQ(status("192.0.2.7"), 421);
  addresses = {"192.0.2.7", "desk.example"};
  desk->Refresh();
  EXPECT_EQ(Part<QrCodeView>("floorCode2").Text(), ToQt(desk->Server()->Url(2, "192.0.2.7")));
  EXPECT_EQ(ShownUrl(2), ToQt(desk->Server()->Url(2, "192.0.2.7")));
  EXPECT_EQ(status("192.0.2.7"), 200);
  addresses = {"192.0.2.8", "desk.example"};
  desk->Refresh();
  EXPECT_EQ(Part<QrCodeView>("floorCode2").Text(), ToQt(desk->Server()->Url(2, "192.0.2.8")));
  EXPECT_EQ(status("192.0.2.8"), 200);
  EXPECT_EQ(status("192.0.2.7"), 421) << "another machine may have it now";
}

TEST_F(FloorDialogTest, The_address_that_the_user_has_chosen_stays_while_the_machine_has_it) {
  Part<QComboBox>("floorAddress").setCurrentIndex(1);
  addresses = {"192.0.2.7", "192.0.2.8", "desk.example"};
  desk->Refresh();
  EXPECT_EQ(Part<QComboBox>("floorAddress").count(), 3);
  EXPECT_EQ(Part<QrCodeView>("floorCode1").Text(), ToQt(desk->Server()->Url(1, "desk.example")));
  addresses = {"192.0.2.7"};
  desk->Refresh();
  EXPECT_EQ(Part<QrCodeView>("floorCode1").Text(), ToQt(desk->Server()->Url(1, "192.0.2.7")));
}

TEST_F(FloorDialogTest, The_addresses_are_those_of_the_moment_when_the_floor_is_opened) {
  world.messages.WillAnswer(Answer::Yes);
  desk->Stop();
  addresses = {"192.0.2.7"};
  desk->Open();
  EXPECT_EQ(desk->Server()->Addresses(), std::vector<std::string>{"192.0.2.7"});
}

TEST_F(FloorDialogTest, The_second_code_is_for_cameras_and_each_kind_has_its_advice) {
  EXPECT_NE(Part<QLabel>("floorAdvice").text().indexOf(QStringLiteral("رمز نمي\u200cشود")), -1);
  QTest::mouseClick(&Part<QCheckBox>("floorSecure"), Qt::LeftButton, {}, {5, 8});
  Part<QCheckBox>("floorSecure").setChecked(true);
  EXPECT_TRUE(desk->Server()->IsSecure());
  EXPECT_TRUE(Part<QrCodeView>("floorCode1").Text().startsWith(QStringLiteral("https://127.0.0.1:")));
  EXPECT_NE(Part<QLabel>("floorAdvice").text().indexOf(QStringLiteral("گواهي")), -1);
  Part<QCheckBox>("floorSecure").setChecked(false);
  EXPECT_TRUE(Part<QrCodeView>("floorCode1").Text().startsWith(QStringLiteral("http://127.0.0.1:")));
}

TEST_F(FloorDialogTest, A_new_code_is_asked_for_and_replaces_that_of_its_count_alone) {
  const std::string first = desk->Session()->Code(1);
  const std::string second = desk->Session()->Code(2);
  world.messages.WillAnswer(Answer::No);
  Click(*desk->Dialog(), "floorRenew2");
  EXPECT_EQ(desk->Session()->Code(2), second);
  world.messages.WillAnswer(Answer::Yes);
  Click(*desk->Dialog(), "floorRenew2");
  EXPECT_NE(desk->Session()->Code(2), second);
  EXPECT_EQ(desk->Session()->Code(1), first);
  EXPECT_EQ(Part<QrCodeView>("floorCode2").Text(), ToQt(desk->Server()->Url(2, "127.0.0.1")));
}

TEST_F(FloorDialogTest, Devices_are_listed_with_their_figures) {
  desk->Session()->Hello(2, "d2", "<b>تبلت</b>");
  Set(2, kRice, "9");
  Set(2, kRice, "abc", "9");
  Set(3, kRice, "10");
  desk->Refresh();
  ShowPage(1);
  std::vector<QString> row = RowOf("floorDevices", 0);
  EXPECT_FALSE(row[2].isEmpty());
  row[2].clear();
  EXPECT_EQ(row, (std::vector<QString>{"شمارش دوم", "<b>تبلت</b>", "", "2", "1"}));
  EXPECT_EQ(RowOf("floorDevices", 1)[1], QStringLiteral("d3"));
  EXPECT_NE(Part<QLabel>("floorCounter2").text().indexOf(QStringLiteral("1 دستگاه")), -1);
}

TEST_F(FloorDialogTest, A_barcode_that_no_line_has_is_added_with_one_click_if_a_good_has_it) {
  world.database.Execute("insert into tblGood (Barcode,Code,Name) values ('6263','103','شكر')");
  desk->Session()->NoteUnknown(1, "d1", "6263");
  desk->Session()->NoteUnknown(1, "d1", "999");
  desk->Refresh();
  ShowPage(2);
  EXPECT_EQ(Part<QTabWidget>("floorPages").tabText(2), QStringLiteral("باركدهاي بي\u200cسطر (2)"));
  auto& list = Part<FloorTable>("floorUnknown");
  EXPECT_FALSE(Part<QPushButton>("floorAddUnknown").isEnabled());
  EXPECT_EQ(RowOf("floorUnknown", 0), (std::vector<QString>{"6263", "شمارش اول", "d1"}));
  ClickRow(list, 0);
  Click(*desk->Dialog(), "floorAddUnknown");
  EXPECT_EQ(Counting().flexDetail.Rows(), 4);
  EXPECT_EQ(Cell(3, LineColumn::Barcode), "6263");
  EXPECT_EQ(list.rowCount(), 1);
  EXPECT_EQ(Part<QLabel>("floorSaid").text().mid(1), QStringLiteral("كالاي اسكن شده افزوده شد."));
  ClickRow(list, 0);
  Click(*desk->Dialog(), "floorAddUnknown");
  EXPECT_EQ(Counting().flexDetail.Rows(), 4);
  EXPECT_EQ(Part<QLabel>("floorSaid").text().mid(1), QStringLiteral("كالايي با اين باركد تعريف نشده است."));
  EXPECT_FALSE(Counting().cmdAddScanned.Visible()) << "the desk itself was offered nothing";
}

TEST_F(FloorDialogTest, The_chosen_barcode_stays_chosen_when_an_earlier_one_has_a_line_by_now) {
  for (const char* const barcode : {"900", "901", "902"}) desk->Session()->NoteUnknown(1, "d1", barcode);
  desk->Refresh();
  ShowPage(2);
  auto& list = Part<FloorTable>("floorUnknown");
  ClickRow(list, 1);
  ASSERT_EQ(list.Chosen(0), QStringLiteral("901"));
  Counting().flexDetail.SetTextMatrix(1, LineColumn::Barcode, "900");
  desk->Refresh();
  ASSERT_EQ(list.rowCount(), 2);
  EXPECT_EQ(list.Chosen(0), QStringLiteral("901"));
  EXPECT_TRUE(Part<QPushButton>("floorAddUnknown").isEnabled());
  Counting().flexDetail.SetTextMatrix(2, LineColumn::Barcode, "901");
  desk->Refresh();
  ASSERT_EQ(list.rowCount(), 1);
  EXPECT_EQ(list.Chosen(0), QString()) << "the chosen one is gone";
  EXPECT_FALSE(Part<QPushButton>("floorAddUnknown").isEnabled());
}

TEST_F(FloorDialogTest, A_second_click_does_not_add_the_next_barcode) {
  world.database.Execute(
      "insert into tblGood (Barcode,Code,Name) values ('6263','103','شكر'),('6264','104','چاي')");
  desk->Session()->NoteUnknown(1, "d1", "6263");
  desk->Session()->NoteUnknown(1, "d1", "6264");
  desk->Refresh();
  ShowPage(2);
  ClickRow(Part<FloorTable>("floorUnknown"), 0);
  auto& add = Part<QPushButton>("floorAddUnknown");
  QTest::mouseClick(&add, Qt::LeftButton);
  ASSERT_EQ(Counting().flexDetail.Rows(), 4);
  EXPECT_FALSE(add.isEnabled());
  QTest::mouseClick(&add, Qt::LeftButton);
  EXPECT_EQ(Counting().flexDetail.Rows(), 4);
}

TEST_F(FloorDialogTest, A_barcode_of_two_counts_stays_chosen_in_the_row_that_was_clicked) {
  for (const int count : {1, 2}) desk->Session()->NoteUnknown(count, "d1", "900");
  desk->Refresh();
  ShowPage(2);
  auto& list = Part<FloorTable>("floorUnknown");
  ClickRow(list, 1);
  desk->Refresh();
  EXPECT_EQ(list.Chosen(1), QStringLiteral("شمارش دوم"));
}

TEST_F(FloorDialogTest, A_scanned_barcode_that_the_desk_is_offered_stays_offered) {
  Counting().OfferScanned("777");
  desk->Session()->NoteUnknown(1, "d1", "999");
  desk->Refresh();
  ShowPage(2);
  ClickRow(Part<FloorTable>("floorUnknown"), 0);
  Click(*desk->Dialog(), "floorAddUnknown");
  EXPECT_TRUE(Counting().cmdAddScanned.Visible());
  EXPECT_EQ(Counting().ScannedBarcode(), "777");
}

TEST_F(FloorDialogTest, The_log_has_each_figure_and_what_became_of_it) {
  desk->Session()->Hello(2, "d2", "تبلت");
  Set(2, kRice, "9");
  Set(2, kRice, "8", "7");
  Set(2, "no such line", "1");
  Send(2, {++sequence, {kRice, 1}, FloorFigure::Operation::Add, "5", ""});
  desk->Refresh();
  const auto text = [this](int row, int column) { return desk->Log().index(row, column).data().toString(); };
  ASSERT_EQ(desk->Log().rowCount(), 4);
  EXPECT_EQ(text(0, FloorLog::Count), QStringLiteral("شمارش دوم"));
  EXPECT_EQ(text(0, FloorLog::Device), QStringLiteral("تبلت"));
  EXPECT_EQ(text(0, FloorLog::Good), QStringLiteral("برنج"));
  EXPECT_EQ(text(0, FloorLog::Barcode), QStringLiteral("6261"));
  EXPECT_EQ(text(0, FloorLog::Figure), QStringLiteral("9"));
  EXPECT_EQ(text(0, FloorLog::State), QStringLiteral("وارد شد"));
  EXPECT_EQ(text(1, FloorLog::State),
            QStringLiteral("وارد نشد: خانه رقم ديگري دارد (9 از \u2068تبلت\u2069)"));
  EXPECT_EQ(text(2, FloorLog::State), QStringLiteral("وارد نشد: سطر ديگر نيست"));
  EXPECT_EQ(text(3, FloorLog::Figure), QStringLiteral("\u200E+5"));
}

TEST_F(FloorDialogTest, The_log_is_saved_as_CSV_without_formulas) {
  desk->Session()->Hello(2, "d2", "=1+2 \"تبلت\"");
  Set(2, kRice, "-3");
  desk->Refresh();
  const QString file = ToQt(folder.File("log.csv"));
  ASSERT_TRUE(WithDialog(
      "QFileDialog",
      [this] {
        ShowPage(3);
        Click(*desk->Dialog(), "floorSaveLog");
      },
      [&file](QDialog& dialog) {
        auto* const choice = qobject_cast<QFileDialog*>(&dialog);
        ASSERT_NE(choice, nullptr);
        choice->selectFile(file);
        choice->findChild<QLineEdit*>()->setText(file);
        QTest::keyClick(choice->findChild<QLineEdit*>(), Qt::Key_Return);
      }));
  QFile written(file);
  ASSERT_TRUE(written.open(QIODevice::ReadOnly));
  const QByteArray bytes = written.readAll();
  EXPECT_TRUE(bytes.startsWith("\xEF\xBB\xBF")) << "spreadsheets know the encoding by it";
  const QString text = QString::fromUtf8(bytes.mid(3));
  EXPECT_TRUE(text.startsWith(
      QStringLiteral("\"زمان\",\"شمارش\",\"دستگاه\",\"كالا\",\"باركد\",\"رقم\",\"وضعيت\"\r\n")));
  EXPECT_NE(text.indexOf(QStringLiteral("\"'=1+2 \"\"تبلت\"\"\",\"برنج\",\"6261\",\"-3\",\"رد شد: ")), -1)
      << FromQt(text);
}

TEST_F(FloorDialogTest, Fits_a_screen_of_1366_by_768_at_150_per_cent_on_each_page) {
  for (int page = 0; page < 4; ++page) {
    ShowPage(page);
    EXPECT_EQ(test::ButtonsCutOff(*desk->Dialog(), test::kSmallWindow), QStringList()) << page;
    EXPECT_EQ(desk->Dialog()->size(), test::kSmallWindow) << page << ": it does not become smaller";
    EXPECT_EQ(test::InputsWithoutName(*desk->Dialog()), QStringList()) << page;
  }
  ShowPage(0);
  for (const char* const name : {"floorCode1", "floorCode2", "floorCode3"}) {
    const auto& code = Part<QrCodeView>(name);
    EXPECT_GE(code.width(), code.sizeHint().width());
    EXPECT_GE(code.height(), code.sizeHint().height());
  }
}

TEST_F(FloorDialogTest, The_whole_address_with_its_code_can_be_read_and_typed) {
  addresses = {"192.168.100.200", "desk-of-the-warehouse.example.local"};
  desk->Refresh();
  for (const int address : {0, 1}) {
    Part<QComboBox>("floorAddress").setCurrentIndex(address);
    desk->Dialog()->resize(test::kSmallWindow);
    QApplication::processEvents();
    EXPECT_EQ(desk->Dialog()->size(), test::kSmallWindow) << address;
    for (int count = 1; count <= kFloorCounts; ++count) {
      const auto& url = Part<QLabel>(("floorUrl" + std::to_string(count)).c_str());
      EXPECT_GE(url.height(), url.heightForWidth(url.width())) << address;
      const QMargins frame(6, 3, 6, 3);
      for (const QString& part : url.text().split(QChar(0x200B))) {
        EXPECT_LE(url.fontMetrics().horizontalAdvance(part), url.rect().marginsRemoved(frame).width())
            << address;
      }
    }
  }
}

TEST_F(FloorDialogTest, A_pause_is_shown_in_it) {
  Save();
  EXPECT_NE(Part<QLabel>("floorSummary").text().indexOf(QStringLiteral("درنگ")), -1);
}

TEST_F(FloorDialogTest, The_log_has_room_for_a_long_barcode_and_for_why_a_figure_was_not_entered) {
  Set(3, "6260100000017", "9");
  Set(1, kRice, "9", "8");
  desk->Refresh();
  QApplication::processEvents();
  const auto& log = Part<QTableView>("floorLog");
  const QAbstractItemView& view = log;
  for (const int col :
       {FloorLog::Time, FloorLog::Count, FloorLog::Barcode, FloorLog::Figure, FloorLog::State})
    EXPECT_GE(log.columnWidth(col), view.sizeHintForColumn(col)) << col;
}

}  // namespace
}  // namespace koru
