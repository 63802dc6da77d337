// What the page takes for a number: what the desk does.

#include <QJsonArray>
#include <random>

#include "platform/text/TypedNumber.h"
#include "tests/desktop/floor/page/PageWorld.h"

namespace koru::test {
namespace {

class PageNumbers : public PageWorld {
 protected:
  /// Checks that page and desk read each of the texts as the same number, or as none.
  void ReadAlike(Browser& browser, const QStringList& typed) {
    QJsonArray texts;
    texts.append(QJsonArray::fromStringList(typed));
    const QJsonArray read =
        browser
            .Run(QStringLiteral("return import(document.querySelector('script[src]').src.replace('page.js', "
                                "'fold.js')).then(({ figureText }) => arguments[0].map(figureText))"),
                 texts)
            .toArray();
    ASSERT_EQ(read.size(), typed.size());
    int numbers = 0;
    for (qsizetype at = 0; at < typed.size(); ++at) {
      const std::string text = typed[at].toStdString();
      const std::string number = TypedNumberText(text);
      const bool isTaken = number.empty() || IsTypedNumber(text);
      numbers += isTaken ? 1 : 0;
      EXPECT_EQ(read[at].isNull(), !isTaken) << '[' << text << ']';
      if (isTaken && !read[at].isNull()) {
        EXPECT_EQ(read[at].toString().toStdString(), number) << '[' << text << ']';
      }
    }
    EXPECT_GT(numbers, typed.size() / 20) << "of both kinds";
    EXPECT_LT(numbers, typed.size()) << "of both kinds";
  }

  Browser browser_;
};

TEST_F(PageNumbers, Blanks_signs_separators_and_digits_of_all_kinds_are_read_as_at_the_desk) {
  OpenPage(browser_);
  QStringList typed;
  for (const char* const text : {"",
                                 "0",
                                 "12",
                                 " 12 ",
                                 "12 5",
                                 "1 2",
                                 "- 5",
                                 "5-",
                                 "--5",
                                 "+5",
                                 "-5",
                                 "+-5",
                                 "5.",
                                 ".5",
                                 ".",
                                 "-",
                                 "1.2.3",
                                 "1e5",
                                 "1E+5",
                                 "1e-5",
                                 "1e",
                                 "e5",
                                 "1e5.5",
                                 "0x10",
                                 "1,200",
                                 "1,23,4",
                                 "12,5",
                                 "1,200,000",
                                 "0,123",
                                 "1,200.5",
                                 "1.200,500",
                                 "1234,567",
                                 "12,3456",
                                 "1,200,",
                                 ",200",
                                 "12/5",
                                 "12/5/1",
                                 "12/5.1",
                                 "/5",
                                 "5/",
                                 "-12/5",
                                 "1,200/5",
                                 "1/1,200",
                                 "۱۲",
                                 "١٢",
                                 "۱۲٫۵",
                                 "١٢٫٥",
                                 "۱٬۲۰۰",
                                 "۱،۲۰۰",
                                 "۱۲،۵",
                                 "۱۲/۵",
                                 "۱۲ ۵",
                                 "\u22125",
                                 "5\u2212",
                                 "\u200e12",
                                 "1\u200f2",
                                 "\u061c12",
                                 "12\u202c",
                                 "\u206812\u2069",
                                 "\u200b12",
                                 "1\u200c2",
                                 "\u00a012",
                                 "12\u00a0",
                                 "12\u00a05",
                                 "1\u202f200",
                                 "\t12",
                                 "12\t",
                                 "\t",
                                 "  ",
                                 "1\t2",
                                 "１２",
                                 "½",
                                 "12a",
                                 "abc",
                                 "١٬٢٠٠٫٥",
                                 "-.5",
                                 "+.5e1",
                                 "00012",
                                 "1,200,00",
                                 "12345678"}) {
    typed.append(Text(text));
  }
  ReadAlike(browser_, typed);
}

TEST_F(PageNumbers, Any_text_is_read_as_at_the_desk) {
  OpenPage(browser_);
  constexpr int kTexts = 20'000;
  constexpr int kLongest = 9;
  const QString parts = Text("0125۳٤,،٬./٫+-\u2212 \u00a0\t\u200eeE");
  const QString digits = Text("0125۳٤");
  std::mt19937 random(
      20);  // NOLINT(cert-msc32-c,cert-msc51-cpp,bugprone-random-generator-seed): the same texts
  const auto choose = [&](const QString& from) {
    return from[static_cast<qsizetype>(random() % static_cast<unsigned>(from.size()))];
  };
  QStringList typed;
  for (int made = 0; made < kTexts; ++made) {
    QString text;
    for (int left = 1 + made % kLongest; left > 0; --left) text += choose(random() % 3 == 0 ? parts : digits);
    typed.append(text);
  }
  ReadAlike(browser_, typed);
}

TEST_F(PageNumbers, Two_numbers_with_a_blank_between_them_are_no_figure) {
  OpenPage(browser_);
  for (const char* const text : {"12 5", "۱۲ ۵"}) {
    OpenCard(browser_, kTea);
    browser_.Keys(Text(text) + QLatin1Char('\n'));
    WaitForAsked(browser_, Text("عدد نیست."));
    browser_.Press(BrowserKey::Escape);
    WaitUntilHidden(browser_, "card");
  }
  EXPECT_EQ(AtDesk(kTea), QString());
  CountArrives(browser_, kTea, QStringLiteral("12.5"));
}

TEST_F(PageNumbers, A_number_with_an_exponent_may_be_a_barcode_and_is_taken_when_the_counter_says_so) {
  OpenPage(browser_);
  OpenCard(browser_, kTea);
  browser_.Keys(QStringLiteral("1e2\n"));
  WaitForAsked(browser_, Text("1e2 مقدار است یا بارکد؟"));
  EXPECT_EQ(AtDesk(kTea), QString());
  ClickButton(browser_, Text("مقدار است"));
  WaitForState(browser_, kAllArrived);
  WaitUntil([&] { return AtDesk(kTea).toDouble() == 100; }, QStringLiteral("the figure"));
}

}  // namespace
}  // namespace koru::test
