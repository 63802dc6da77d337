#include <gtest/gtest.h>

#include "tests/desktop/floor/camera/Barcodes.h"
#include "tests/desktop/floor/camera/CameraBrowser.h"
#include "tests/desktop/floor/page/PageWorld.h"

namespace koru::test {
namespace {

const QString kHost = QStringLiteral("desk.test");
const QString kMap = QStringLiteral("--host-resolver-rules=MAP desk.test 127.0.0.1");
const BrowserSettings kPhone{.touch = true, .arguments = {kMap}, .acceptsInsecureCertificates = true};

inline constexpr PageGood kMilk{"6260000001238", "108", "شیر"};  // with a right check digit

/// The page on a phone that reaches the desk by a name: not the same machine, so cameras need https.
class CameraPage : public PageWorld {
 protected:
  CameraPage() {
    database.Execute(std::string("insert into tblGood (Barcode,Code,Name) values ('") + kMilk.barcode +
                     "','" + kMilk.code + "','" + kMilk.name +
                     "');"
                     "insert into tblInventoryCountingDetail "
                     "(CountingID,Barcode,RowNumber,ScaleID,SystemCounting,BaseValue)"
                     " values (20,'" +
                     kMilk.barcode + "',8,1,10,3);");
    ServeSecurely();
  }

  void ServeSecurely() {
    FloorServerSettings settings;
    settings.port = 0;
    settings.securePort = 0;
    settings.folder = folder_.path().toStdString();
    settings.addresses = {kHost.toStdString()};
    RestartDesk();
    server_.reset();
    server_ = std::make_unique<FloorServer>(*session_, std::move(settings));
    server_->OpenSecure();
  }
  void AddSecondLineOf(const PageGood& good) {
    database.Execute(std::string("insert into tblInventoryCountingDetail "
                                 "(CountingID,Barcode,RowNumber,ScaleID,SystemCounting,BaseValue)"
                                 " values (20,'") +
                     good.barcode + "',9,1,10,3);");
    ServeSecurely();
  }

  [[nodiscard]] QString Address(bool secure) {
    return QString::fromStdString(server_->Url(1, kHost.toStdString(), secure));
  }
  /// Gives the device a name, answers what the https page asks and waits until it shows the lines.
  static void Begin(Browser& phone) {
    GiveName(phone, QStringLiteral("رضا"));
    if (phone.Url().startsWith(QLatin1String("https:"))) {
      phone.Click(QStringLiteral("#arrived button"));
    }
    WaitForState(phone, kAllArrived);
  }
  void OpenSecurePage(Browser& phone) {
    phone.Open(Address(true));
    Begin(phone);
  }
};

QString Ean13Of(const PageGood& good) { return Ean13Bars(QString::fromUtf8(good.barcode).left(12)); }

TEST_F(CameraPage, A_barcode_in_front_of_the_camera_opens_its_card_and_the_figure_reaches_the_desk) {
  CameraBrowser phone({{.bars = Ean13Of(kMilk)}}, kPhone);
  OpenSecurePage(phone);
  phone.Click(QStringLiteral("#camera"));
  WaitForCard(phone, kMilk);
  phone.WaitFor(QStringLiteral("document.activeElement.id === 'figure'"));
  EXPECT_FALSE(phone.Shows(QStringLiteral("#video")));
  phone.Keys(QStringLiteral("12\n"));
  WaitForDesk(kMilk, QStringLiteral("12"));
}

TEST_F(CameraPage, The_label_that_is_still_in_sight_after_its_figure_does_not_open_its_card_again) {
  CameraBrowser phone({{.bars = Ean13Of(kMilk)}}, kPhone);
  OpenSecurePage(phone);
  phone.Click(QStringLiteral("#camera"));
  WaitForCard(phone, kMilk);
  phone.WaitFor(QStringLiteral("document.activeElement.id === 'figure'"));
  phone.Keys(QStringLiteral("12\n"));
  phone.WaitFor(QStringLiteral("document.getElementById('video').currentTime > 1 && "
                               "document.getElementById('video').srcObject"),
                QStringLiteral("the camera after the card"));
  EXPECT_FALSE(phone.Shows(QStringLiteral("#card")));
  phone.Click(QStringLiteral("#camera-close"));
  EXPECT_FALSE(phone.Shows(QStringLiteral("#video")));
}

TEST_F(CameraPage, A_tilted_Code_128_opens_its_card) {
  const QString bars = Code128Bars(QString::fromUtf8(kLamp.barcode));
  CameraBrowser phone({{.bars = bars, .module = 3, .tilt = 33}}, kPhone);
  OpenSecurePage(phone);
  phone.Click(QStringLiteral("#camera"));
  WaitForCard(phone, kLamp);
}

TEST_F(CameraPage, The_picture_of_the_camera_is_as_wide_as_a_phone) {
  CameraBrowser phone({}, kPhone);
  OpenSecurePage(phone);
  phone.Click(QStringLiteral("#camera"));
  phone.WaitFor(QStringLiteral("document.getElementById('video').currentTime > 0"));
  EXPECT_EQ(phone.Run(QStringLiteral("return document.getElementById('video').clientWidth")).toInt(), 360);
}

TEST_F(CameraPage, A_barcode_that_no_line_has_is_reported_to_counter_and_desk) {
  CameraBrowser phone({{.bars = Ean13Bars(QStringLiteral("626999999999"))}}, kPhone);
  OpenSecurePage(phone);
  phone.Click(QStringLiteral("#camera"));
  WaitForText(phone, QStringLiteral("#unknown"), Ean13Text(QStringLiteral("626999999999")));
  WaitUntil([&] { return session_->Unknown().size() == 1; }, QStringLiteral("the barcode at the desk"));
}

TEST_F(CameraPage, All_that_the_camera_needs_comes_from_the_desk_and_breaks_no_rule_of_the_page) {
  CameraBrowser phone({{.bars = Ean13Of(kMilk)}}, kPhone);
  OpenSecurePage(phone);
  const QString files = QStringLiteral(
      "return performance.getEntriesByType('resource').map((file) => file.name).filter((name) => %1)");
  EXPECT_TRUE(phone.Run(files.arg(QStringLiteral("name.includes('vendor')"))).toArray().isEmpty());
  phone.Click(QStringLiteral("#camera"));
  WaitForCard(phone, kMilk);
  EXPECT_EQ(phone.Run(files.arg(QStringLiteral("name.includes('vendor')"))).toArray().size(), 3);
  EXPECT_EQ(phone.Run(files.arg(QStringLiteral("!name.startsWith(location.origin + '/')"))).toArray(),
            QJsonArray());
  EXPECT_EQ(phone.Console(), QStringList());
}

TEST_F(CameraPage, Plain_http_has_no_camera_and_no_button_for_it) {
  CameraBrowser phone({{.bars = Ean13Of(kMilk)}}, kPhone);
  phone.Open(Address(false));
  Begin(phone);
  phone.WaitFor(QStringLiteral("document.querySelectorAll('#list .row').length > 0"));
  EXPECT_FALSE(phone.Run(QStringLiteral("return isSecureContext")).toBool());
  EXPECT_FALSE(phone.Shows(QStringLiteral("#camera")));
  EXPECT_EQ(phone.Console(), QStringList());
}

TEST_F(CameraPage, After_the_browsers_warning_the_code_is_still_known_and_the_camera_works) {
  CameraBrowser phone({{.bars = Ean13Of(kMilk)}}, {.touch = true, .arguments = {kMap}});
  phone.Open(Address(true));
  EXPECT_FALSE(phone.Shows(QStringLiteral("#search")));
  phone.Click(QStringLiteral("#details-button"));
  phone.Click(QStringLiteral("#proceed-link"));
  Begin(phone);
  phone.Click(QStringLiteral("#camera"));
  WaitForCard(phone, kMilk);
}

TEST_F(CameraPage, A_camera_that_does_not_open_is_reported) {
  CameraBrowser phone({}, kPhone);
  OpenSecurePage(phone);
  phone.Run(
      QStringLiteral("navigator.mediaDevices.getUserMedia ="
                     " () => Promise.reject(new DOMException('', 'NotAllowedError'))"));
  phone.Click(QStringLiteral("#camera"));
  WaitForText(phone, QStringLiteral("#banner"),
              QStringLiteral("دوربین باز نشد. اجازهٔ دوربین را در مرورگر ببینید."));
  EXPECT_FALSE(phone.Shows(QStringLiteral("#video")));
}

TEST_F(CameraPage, A_barcode_that_several_lines_have_lists_them_for_choosing) {
  AddSecondLineOf(kMilk);
  CameraBrowser phone({{.bars = Ean13Of(kMilk)}}, kPhone);
  OpenSecurePage(phone);
  phone.Click(QStringLiteral("#camera"));
  WaitForText(phone, QStringLiteral("#progress-text"), QStringLiteral("2 کالا"));
  EXPECT_FALSE(phone.Shows(QStringLiteral("#video")));
}

}  // namespace
}  // namespace koru::test
