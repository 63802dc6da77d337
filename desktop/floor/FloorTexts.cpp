#include "desktop/floor/FloorTexts.h"

#include <QDateTime>
#include <array>

#include "desktop/floor/UnsavedFigures.h"
#include "desktop/toolkit/QtText.h"
#include "platform/text/Date.h"
#include "platform/text/Text.h"

namespace koru {

QString TitleOfCount(int count) {
  constexpr std::array<const char*, kFloorCounts> kTitles = {"شمارش اول", "شمارش دوم", "شمارش سوم"};
  return QString::fromUtf8(kTitles.at(static_cast<std::size_t>(count - 1)));
}

QString TitleOfState(FigureState state) {
  switch (state) {
    case FigureState::Stored:
      return QStringLiteral("وارد شد");
    case FigureState::Warned:
      return QStringLiteral("وارد شد، با هشدار");
    case FigureState::Refused:
      return QStringLiteral("رد شد");
    case FigureState::Conflict:
      return QStringLiteral("وارد نشد: خانه رقم ديگري دارد");
    case FigureState::Gone:
      return QStringLiteral("وارد نشد: سطر ديگر نيست");
    case FigureState::Paused:
      break;
  }
  return QStringLiteral("منتظر");
}

QString SentenceOn(FloorSession& session) {
  if (!session.Left().Cells().empty()) {
    return QStringLiteral("%1 رقم گوشي\u200cها در اين شمارش نيست.").arg(session.Left().Cells().size());
  }
  const std::vector<FloorDevice> devices = session.Devices();
  const SentFigures sent(devices);
  const QString state = session.IsOpen()
                            ? QStringLiteral("شمارش با گوشي باز است")
                            : QStringLiteral("شمارش با گوشي درنگ كرده است و با «اصلاح» ادامه مي\u200cيابد");
  return QStringLiteral("%1: %2 دستگاه، %3 رقم رسيده، %4 رقم وارد نشده.")
      .arg(state)
      .arg(devices.size())
      .arg(sent.received)
      .arg(sent.refused);
}

QString SentenceOn(const ReplayedFigures& replayed) {
  QString sentence = QStringLiteral("%1 رقم از گوشي\u200cها بازگردانده شد.").arg(replayed.entered);
  const auto add = [&sentence](const std::vector<NotEntered>& cells, const QString& why) {
    if (!cells.empty()) sentence += QChar(u' ') + why.arg(cells.size());
  };
  add(replayed.gone, QStringLiteral("%1 رقم سطري ندارد."));
  if (replayed.hasBarcodeOfGone) {
    sentence += QStringLiteral(
        " باركد برخي از آن\u200cها هنوز در شمارش هست و شايد رقم در سطر آن باشد: پيش از وارد كردن بسنجيد.");
  }
  add(replayed.replaced, QStringLiteral("%1 خانه نوشتة تازه\u200cتر ميز را نگه داشت."));
  add(replayed.refused, QStringLiteral("%1 رقم را فرم نپذيرفت."));
  return sentence;
}

QString SentenceOn(const FloorArrival& arrival, bool isTyped) {
  const bool isEmptied = arrival.text.empty();
  const QString device = Isolated(ToQt(arrival.device));
  QString came = isEmptied
                     ? QStringLiteral("%1 اين خانه را خالي كرد.").arg(device)
                     : QStringLiteral("%1 در اين خانه %2 فرستاد.").arg(device, Isolated(ToQt(arrival.text)));
  if (isTyped)
    return came + QStringLiteral(" نوشتة شما مي\u200cماند؛ Esc آنچه را آمده است نگه مي\u200cدارد.");
  if (isEmptied) return came;
  return came + QStringLiteral(" اكنون رقم خانه همين است؛ آنچه بنويسيد جاي آن را مي\u200cگيرد.");
}

QString SentenceOn(const JournalDamage& damage) {
  QString sentence;
  switch (damage.kind) {
    case JournalDamage::Kind::Unreadable:
      sentence = QStringLiteral(
          "دفتر ارقام گوشي\u200cهاي اين شمارش آسيب ديده است و خوانده نشد: رقم\u200cهايي كه ذخيره نشده بود "
          "بازگردانده نمي\u200cشود و بايد از شمارندگان پرسيده شود.");
      break;
    case JournalDamage::Kind::OtherCounting:
      sentence = QStringLiteral(
          "دفتري كه به نام ارقام گوشي\u200cهاي اين شمارش پيدا شد از شمارش ديگري است و به كار نرفت.");
      break;
    case JournalDamage::Kind::Lines:
      sentence = QStringLiteral(
                     "دفتر ارقام گوشي\u200cهاي اين شمارش آسيب ديده است: %1 سطر آن، كه هر كدام مي\u200cتواند "
                     "يك رقم باشد، خوانده نشد و بازگردانده نمي\u200cشود.")
                     .arg(damage.lines);
      break;
  }
  if (damage.file.empty()) return sentence + QStringLiteral("\nاين دفتر سر جاي خود مانده است.");
  return sentence +
         QStringLiteral(" دفتر 30 روز نگه داشته مي\u200cشود:\n%1").arg(ToQt(LeftToRight(damage.file)));
}

QString TimeText(std::chrono::sys_seconds time) {
  const QDateTime at = QDateTime::fromSecsSinceEpoch(time.time_since_epoch().count());
  QString clock = at.toString(QStringLiteral("HH:mm:ss"));
  if (at.date() == QDate::currentDate()) return clock;
  const QDate date = at.date();
  const Date day{std::chrono::year(date.year()), std::chrono::month(static_cast<unsigned>(date.month())),
                 std::chrono::day(static_cast<unsigned>(date.day()))};
  return QStringLiteral("%1 %2").arg(ToQt(SolarText(day)), clock);
}

QString Isolated(const QString& text) { return QStringLiteral("\u2068%1\u2069").arg(text); }

}  // namespace koru
