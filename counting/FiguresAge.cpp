#include "counting/FiguresAge.h"

namespace koru {
namespace {

using std::chrono::days;
using std::chrono::duration_cast;
using std::chrono::hours;
using std::chrono::minutes;

template <class Unit>
std::string Count(std::chrono::system_clock::duration age, const char* unit) {
  return std::to_string(duration_cast<Unit>(age).count()) + " " + unit + " پيش";
}

}  // namespace

void FiguresAge::LinesAdded(int added) {
  if (added > 0 && controls_.flexDetail.Rows() - 1 == added) calculated_ = Now();
}

std::string FiguresAge::Ago() const {
  if (!calculated_) return {};
  const auto age = Now() - *calculated_;
  if (age < minutes(1)) return "هم‌اكنون";  // also when the machine's clock was set back
  if (age < hours(1)) return Count<minutes>(age, "دقيقه");
  return age < days(1) ? Count<hours>(age, "ساعت") : Count<days>(age, "روز");
}

void FiguresAge::Show(bool isBeingEntered) {
  const std::string ago = Ago();
  controls_.lblFiguresAge.SetCaption(!isBeingEntered || controls_.flexDetail.Rows() < 2
                                         ? std::string()
                                         : "محاسبه موجودي: " + (ago.empty() ? "زمان نامعلوم" : ago));
}

}  // namespace koru
