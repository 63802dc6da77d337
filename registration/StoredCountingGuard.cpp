#include "registration/StoredCountingGuard.h"

#include <cstddef>
#include <utility>

#include "services/UserName.h"

namespace koru {
namespace {

constexpr const char* kGone =
    "اين شمارش در اين ميان از پايگاه داده حذف شده است. آنچه روي فرم است در جاي ديگري نيست.";
constexpr const char* kReadAnew = "اين شمارش پس از باز شدن در ايستگاه ديگري تغيير كرده بود و تازه خوانده شد.";
constexpr const char* kChanged = "اين شمارش پس از باز شدن در ايستگاه ديگري تغيير كرده است.";
constexpr const char* kShowStored =
    "آيا شمارش ذخيره شده نشان داده شود؟ آنچه وارد كرده\u200cايد كنار گذاشته مي\u200cشود.";

const char* QuestionOf(StoredCountingGuard::Purpose purpose) {
  return purpose == StoredCountingGuard::Purpose::Save
             ? "آيا روي آن ذخيره شود؟ آنچه ديگران ذخيره كرده\u200cاند از بين مي\u200cرود."
             : "آيا با اين همه حذف شود؟";
}

const char* RefusalOf(StoredCountingGuard::Purpose purpose) {
  return purpose == StoredCountingGuard::Purpose::Save ? " ثبت نهايي شده است و ذخيره نمي\u200cشود."
                                                       : " ثبت نهايي شده است و حذف نمي\u200cشود.";
}

}  // namespace

std::unique_ptr<WriteBatch> StoredCountingGuard::BeginWrite(Purpose purpose) {
  for (;;) {
    auto batch = shared_.data.BeginWriteBatch();
    auto now = stored_.FindChange();
    isStored_ = !now || now->exists;
    if (!now) return batch;
    batch->Finish();
    batch.reset();
    if (!MayOverwrite(*now, purpose)) return nullptr;
    stored_.Accept(std::move(*now));
  }
}

bool StoredCountingGuard::MayEdit() {
  const auto now = stored_.FindChange();
  if (!now) return true;
  if (!now->exists) {
    ReportGone();
    return false;
  }
  StoredWanted.Raise(stored_.Key());
  shared_.messages.ShowMessage(sentences::kWarning, kReadAnew + LastSaver(*now));
  return true;
}

bool StoredCountingGuard::MayOverwrite(const CountingSnapshot& now, Purpose purpose) {
  if (!now.exists) {
    ReportGone();
    return false;
  }
  if (!now.code.empty()) {
    ReportFinal(now, purpose);
    return false;
  }
  const std::string what = kChanged + Differences(now) + LastSaver(now);
  const int answer = shared_.messages.AskQuestion(sentences::kWarning, what + "\n" + QuestionOf(purpose));
  if (answer == kAnswerYes) return true;
  if (answer == kAnswerNo && shared_.messages.AskQuestion(sentences::kWarning, kShowStored) == kAnswerYes) {
    StoredWanted.Raise(stored_.Key());
  }
  return false;
}

void StoredCountingGuard::ReportGone() const { shared_.messages.ShowMessage(sentences::kError, kGone); }

void StoredCountingGuard::ReportFinal(const CountingSnapshot& now, Purpose purpose) {
  const std::string what = "اين شمارش در اين ميان با شماره " + now.code + RefusalOf(purpose) + LastSaver(now);
  if (shared_.messages.AskQuestion(sentences::kError, what + "\n" + kShowStored) == kAnswerYes) {
    StoredWanted.Raise(stored_.Key());
  }
}

/// A line of text that names what differs.
std::string StoredCountingGuard::Differences(const CountingSnapshot& now) const {
  const CountingSnapshot& before = *stored_.Remembered();
  std::string what;
  const auto add = [&what](const std::string& name) { what += (what.empty() ? "\nتفاوت: " : "، ") + name; };
  const auto& fields = StoredCounting::HeaderFields();
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (i < before.header.size() && before.header[i] != now.header[i]) add(fields[i].caption);
  }
  if (before.lines != now.lines) {
    const bool sameCount = before.lines.Count() == now.lines.Count();
    add(sameCount ? std::string("رديف\u200cها")
                  : "رديف\u200cها (" + std::to_string(now.lines.Count()) + " به جاي " +
                        std::to_string(before.lines.Count()) + ")");
  }
  return what;
}

/// A line of text that names the user who saved the counting last; empty when nobody knows.
std::string StoredCountingGuard::LastSaver(const CountingSnapshot& now) const {
  if (now.lastSaverID == 0) return {};
  const std::string name = FullNameOf(now.lastSaverID, shared_.data);
  return name.empty() ? name : "\nآخرين ذخيره: " + name;
}

}  // namespace koru
