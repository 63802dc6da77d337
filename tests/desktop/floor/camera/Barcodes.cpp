#include "tests/desktop/floor/camera/Barcodes.h"

#include <algorithm>
#include <array>

namespace koru::test {
namespace {

/// The left digits with an odd number of dark modules; the other two sets follow from it.
constexpr std::array kOddDigits = {"0001101", "0011001", "0010011", "0111101", "0100011",
                                   "0110001", "0101111", "0111011", "0110111", "0001011"};
/// Which of the six left digits are even ('1'), by the first digit, which has no bars of its own.
constexpr std::array kEvenDigits = {"000000", "001011", "001101", "001110", "010011",
                                    "011001", "011100", "010101", "010110", "011010"};

QString Inverted(QString bars) {
  for (QChar& module : bars) module = module == QLatin1Char('1') ? QLatin1Char('0') : QLatin1Char('1');
  return bars;
}

QString Reversed(QString bars) {
  std::reverse(bars.begin(), bars.end());
  return bars;
}

/// Widths of bar, gap, bar, gap, bar, gap of the values 0 to 105 of Code 128.
constexpr std::array kCode128 = {
    "212222", "222122", "222221", "121223", "121322", "131222", "122213", "122312", "132212", "221213",
    "221312", "231212", "112232", "122132", "122231", "113222", "123122", "123221", "223211", "221132",
    "221231", "213212", "223112", "312131", "311222", "321122", "321221", "312212", "322112", "322211",
    "212123", "212321", "232121", "111323", "131123", "131321", "112313", "132113", "132311", "211313",
    "231113", "231311", "112133", "112331", "132131", "113123", "113321", "133121", "313121", "211331",
    "231131", "213113", "213311", "213131", "311123", "311321", "331121", "312113", "312311", "332111",
    "314111", "221411", "431111", "111224", "111422", "121124", "121421", "141122", "141221", "112214",
    "112412", "122114", "122411", "142112", "142211", "241211", "221114", "413111", "241112", "134111",
    "111242", "121142", "121241", "114212", "124112", "124211", "411212", "421112", "421211", "212141",
    "214121", "412121", "111143", "111341", "131141", "114113", "114311", "411113", "411311", "113141",
    "114131", "311141", "411131", "211412", "211214", "211232"};
constexpr int kStartB = 104;
constexpr const char* kCode128Stop = "2331112";

QString Widths(const char* widths) {
  QString bars;
  bool isDark = true;
  for (const char* width = widths; *width != '\0'; ++width) {
    bars += QString(*width - '0', isDark ? QLatin1Char('1') : QLatin1Char('0'));
    isDark = !isDark;
  }
  return bars;
}

}  // namespace

QString Ean13Text(const QString& digits) {
  int sum = 0;
  for (qsizetype i = 0; i < digits.size(); ++i) sum += digits[i].digitValue() * (i % 2 == 0 ? 1 : 3);
  return digits + QString::number((10 - sum % 10) % 10);
}

QString Ean13Bars(const QString& digits) {
  const QString text = Ean13Text(digits);
  const QString even = QLatin1String(kEvenDigits.at(std::size_t(text[0].digitValue())));
  QString bars = QStringLiteral("101");
  for (qsizetype i = 1; i <= 12; ++i) {
    const QString odd = QLatin1String(kOddDigits.at(std::size_t(text[i].digitValue())));
    if (i == 7) bars += QStringLiteral("01010");
    if (i >= 7)
      bars += Inverted(odd);
    else
      bars += even[i - 1] == QLatin1Char('1') ? Reversed(Inverted(odd)) : odd;
  }
  return bars + QStringLiteral("101");
}

QString Code128Bars(const QString& text) {
  int sum = kStartB;
  QString bars = Widths(kCode128.at(kStartB));
  for (qsizetype i = 0; i < text.size(); ++i) {
    const int value = text[i].unicode() - ' ';
    sum += int(i + 1) * value;
    bars += Widths(kCode128.at(std::size_t(value)));
  }
  return bars + Widths(kCode128.at(std::size_t(sum % 103))) + Widths(kCode128Stop);
}

}  // namespace koru::test
