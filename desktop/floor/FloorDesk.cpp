#include "desktop/floor/FloorDesk.h"

#include <QAction>
#include <QLineEdit>
#include <array>
#include <cinttypes>
#include <cstdio>
#include <utility>

#include "counting/frmInvCounting.h"
#include "desktop/floor/FloorBar.h"
#include "desktop/floor/FloorDialog.h"
#include "desktop/floor/FloorTexts.h"
#include "desktop/forms/BlindEntry.h"
#include "desktop/forms/InvCountingWindow.h"
#include "desktop/grid/CellHint.h"
#include "desktop/grid/GridView.h"
#include "desktop/toolkit/QtText.h"
#include "floor/FloorLines.h"
#include "platform/sql/ConnectionText.h"
#include "platform/text/Errors.h"
#include "platform/text/Fingerprint.h"

namespace koru {
namespace {

constexpr const char* kTitle = "شمارش با گوشي";
constexpr int kRefreshMs = 1000;
constexpr int kSoonMs = 200;  ///< figures that come one after the other are shown together

/// FloorServerSettings::counting: 16 hexadecimal digits.
std::string MarkOf(const FloorJournalOwner& owner) {
  const std::uint64_t mark =
      Fingerprint(std::to_string(owner.countingID), Fingerprint("\n", Fingerprint(owner.database)));
  std::array<char, 17> digits{};
  std::snprintf(digits.data(), digits.size(), "%016" PRIx64, mark);
  return digits.data();
}

}  // namespace

// The widgets are owned by their Qt parents.
// NOLINTBEGIN(cppcoreguidelines-owning-memory)
FloorDesk::FloorDesk(InvCountingWindow& window, frmInvCounting& form, FloorJournalStore& journals,
                     FloorServerSettings server, std::function<std::vector<std::string>()> addresses)
    : QObject(&window),
      window_(window),
      form_(form),
      journals_(journals),
      settings_(std::move(server)),
      addresses_(std::move(addresses)),
      names_(form.flexDetail),
      log_(names_, [this](int count) { return Hides(count); }) {
  follow_.setSingleShot(true);
  connect(&follow_, &QTimer::timeout, this, &FloorDesk::Follow);
  refresh_.setInterval(kRefreshMs);
  connect(&refresh_, &QTimer::timeout, this, &FloorDesk::Refresh);
  connect(&window.Blind(), &BlindEntry::changed, &log_, &FloorLog::HiddenChanged);
  AddCommand();
  bar_ = new FloorBar(*this, &window);
  window.AddBar(*bar_);
  FollowForm();
}

FloorDesk::~FloorDesk() {
  delete dialog_;
  delete bar_;
}

void FloorDesk::AddCommand() {
  command_ = new QAction(QString::fromUtf8(kTitle), this);
  command_->setObjectName(QStringLiteral("floorCommand"));
  window_.AddOperation(*command_);
  connect(command_, &QAction::triggered, this, [this] { form_.RunEvent([this] { Open(); }); });
}
// NOLINTEND(cppcoreguidelines-owning-memory)

FloorDialog* FloorDesk::Dialog() const { return dialog_; }

/// The document and its mode show themselves in these controls.
void FloorDesk::FollowForm() {
  for (Control* const shown :
       {static_cast<Control*>(&form_.lblIDVal), static_cast<Control*>(&form_.cmdCancel),
        static_cast<Control*>(&form_.cmdEdit), static_cast<Control*>(&form_.cmdTmpSave)}) {
    ofForm_.push_back(shown->StateChanged.Subscribe([this] { FollowLater(); }));
  }
  ofForm_.push_back(form_.CancelWanted.Subscribe([this](bool& isKept) { isKept = isKept || KeepsEntry(); }));
  ofForm_.push_back(form_.SaveWanted.Subscribe(
      [this](WantedSave wanted, bool& isKept) { isKept = isKept || KeepsUnsaved(wanted); }));
  ofForm_.push_back(form_.Unloaded.Subscribe([this] {
    isUnloaded_ = true;
    follow_.stop();
    command_->setEnabled(false);
    ofForm_.clear();
  }));
  ShowCommand();
}

/// A counting that cannot be changed, and one without lines, has no floor.
void FloorDesk::ShowCommand() {
  const bool isStored = form_.CountingID() > 0;
  command_->setEnabled(form_.IsBeingEntered() ? isStored || form_.cmdTmpSave.Enabled()
                                              : form_.cmdEdit.Enabled());
}

bool FloorDesk::Asks(const std::string& question) const {
  return form_.Shared().messages.AskQuestion(kTitle, question) == kAnswerYes;
}

bool FloorDesk::Hides(int count) const { return window_.Blind().Hides(FloorLines::ColumnOf(count)); }

void FloorDesk::Say(const QString& sentence) {
  form_.CommandReported.Raise(FromQt(sentence));
  emit said(sentence);
}

FloorJournalOwner FloorDesk::Owner() const {
  return {ConnectionText::Parse(form_.Shared().data.ConnectionString()).WithoutPassword(),
          static_cast<std::int32_t>(form_.CountingID())};
}

void FloorDesk::Open() {
  if (!MakeReady()) return;
  if (!IsServed()) {
    Begin();
    OfferLeft();
    if (session_ == nullptr) return;
    Serve();
  }
  // NOLINTNEXTLINE(cppcoreguidelines-owning-memory): of the window
  if (dialog_.isNull()) dialog_ = new FloorDialog(*this, &window_);
  dialog_->Appear();
  emit changed();
}

/// The lines that devices count must be in the database, and must be being changed. While the floor is open,
/// it may be paused.
bool FloorDesk::MakeReady() {
  if (IsServed() || FloorSession::MayBegin(form_, form_.Shared())) return true;
  FormBinding& binding = window_.Binding();
  if (form_.IsBeingEntered()) {
    if (!Asks("شمارش با گوشي براي شمارشي است كه ذخيره شده باشد. آيا اين شمارش اكنون ثبت موقت شود و اصلاح "
              "آن ادامه يابد؟")) {
      return false;
    }
    if (!binding.Press(form_.cmdTmpSave, BlockedBy::FiguresAndDates) || form_.IsBeingEntered()) return false;
  } else if (!Asks("شمارش با گوشي هنگام اصلاح شمارش كار مي\u200cكند. آيا اصلاح اين شمارش آغاز شود؟")) {
    return false;
  }
  isOffered_ = true;  // Open offers what is left
  return binding.Press(form_.cmdEdit, BlockedBy::Figures) && FloorSession::MayBegin(form_, form_.Shared());
}

/// Begins a session, unless one follows the counting already. One that the desk has stopped is opened again;
/// one that has ended is closed first, with the server that may still serve it.
void FloorDesk::Begin() {
  if (session_ != nullptr) {
    if (session_->Reopen()) return;
    Close();
  }
  isOffered_ = true;
  const auto counting = static_cast<std::int32_t>(form_.CountingID());
  if (std::exchange(countingOfLog_, counting) != counting) log_.Clear();
  journal_ = journals_.Open(Owner());
  try {
    session_ = std::make_unique<FloorSession>(
        form_, form_.Shared(),
        FloorSurroundings{.journal = *journal_, .entryIsWritten = [this] { return form_.EntryIsWritten(); }});
  } catch (...) {
    journal_.reset();
    throw;
  }
  unsaved_.emplace(form_, *session_);
  ConnectSession();
}

void FloorDesk::ConnectSession() {
  ofSession_.push_back(session_->Changed.Subscribe([this] { FollowLater(); }));
  ofSession_.push_back(
      session_->Arrived.Subscribe([this](const FloorArrival& arrival) { Arrived(arrival); }));
  ofSession_.push_back(
      session_->Decided.Subscribe([this](const JournalFigure& figure, const std::string& device) {
        log_.Add(figure, device);
        FollowLater();
      }));
  ofSession_.push_back(
      session_->JournalFailed.Subscribe([this](const std::string& sentence) { JournalFailed(sentence); }));
  // After the session's own listener, which settles the journal.
  ofSession_.push_back(form_.Unloaded.Subscribe([this] { Close(); }));
}

void FloorDesk::Serve() {
  settings_.store = FromQt(NameIn(form_.gmpInventory));
  settings_.counting = MarkOf(Owner());
  settings_.addresses = addresses_();
  server_ = std::make_unique<FloorServer>(*session_, settings_);
  refresh_.start();
}

void FloorDesk::OpenSecure() {
  if (server_ != nullptr && !server_->IsSecure()) server_->OpenSecure();
}

/// A wireless network may come up later, and a router may give another address.
void FloorDesk::FollowAddresses() {
  if (server_ == nullptr) return;
  auto addresses = addresses_();
  if (addresses != server_->Addresses()) server_->SetAddresses(std::move(addresses));
}

void FloorDesk::FollowLater() {
  if (!isUnloaded_ && !follow_.isActive()) follow_.start(session_ == nullptr ? 0 : kSoonMs);
}

void FloorDesk::Refresh() {
  follow_.stop();
  if (isUnloaded_) return;
  FollowAddresses();
  Follow();
}

void FloorDesk::Follow() {
  ShowCommand();
  if (session_ == nullptr) return static_cast<void>(OfferAtEdit());
  if (session_->IsCommandAtWork()) return FollowLater();
  static_cast<void>(session_->IsOpen());  // looks at the form
  const bool isEdited = FloorSession::MayBegin(form_, form_.Shared());
  const FloorSession::End end = session_->Ended();
  if (end != FloorSession::End::None && end != FloorSession::End::Stopped) return End(end);
  if (end == FloorSession::End::Stopped && !isEdited) return form_.EntryIsWritten() ? Close() : End(end);
  if (!session_->JournalIsFailing()) journalFailure_.clear();
  log_.ShowNew();
  emit changed();
}

void FloorDesk::Stop() {
  if (session_ == nullptr) return;
  if (!Asks("آيا شمارش با گوشي بسته شود؟ رقم\u200cهايي كه رسيده است در سطرها مي\u200cماند و تا ثبت شمارش "
            "روي ديسك اين رايانه هم هست. گوشي\u200cها ديگر چيزي نمي\u200cفرستند؛ رقم\u200cهاي نفرستاده در "
            "خود آن\u200cها مي\u200cماند.")) {
    return;
  }
  if (session_ == nullptr) return;
  session_->Stop();
  server_.reset();
  refresh_.stop();
  LeaveDialog();
  emit closed();
  emit changed();
}

void FloorDesk::RenewCode(int count) {
  if (session_ == nullptr ||
      !Asks("آيا كد تازه ساخته شود؟ دستگاه\u200cهايي كه كد پيشين را دارند بيرون مي\u200cمانند تا كد تازه را "
            "بخوانند.") ||
      session_ == nullptr) {
    return;
  }
  session_->RenewCode(count);
  emit changed();
}

/// The barcode that the desk itself was offered is offered again afterwards.
void FloorDesk::AddUnknown(const std::string& barcode) {
  const std::string offered = form_.cmdAddScanned.Visible() ? form_.ScannedBarcode() : std::string();
  const Subscription reported =
      form_.CommandReported.Subscribe([this](const std::string& sentence) { emit said(ToQt(sentence)); });
  form_.OfferScanned(barcode);
  if (!form_.cmdAddScanned.UserClick()) {
    Say(QStringLiteral("كالا هنگام اصلاح شمارش افزوده مي\u200cشود."));
  }
  if (offered.empty()) {
    form_.cmdAddScanned.SetVisible(false);
  } else if (offered != barcode) {
    form_.OfferScanned(offered);
  }
  emit changed();
}

/// The dialog may be the one whose button is being pressed.
void FloorDesk::LeaveDialog() {
  if (!dialog_.isNull()) dialog_->Leave();
  dialog_.clear();
}

/// The session has ended with the entry.
void FloorDesk::End(FloorSession::End end) {
  const bool isKept = end != FloorSession::End::Registered && session_->HasUnsaved();
  Close();
  if (!isKept) return;
  Say(
      QStringLiteral("رقم\u200cهاي گوشي\u200cها كه ثبت نشده بود 30 روز كنار مي\u200cماند: پس از «اصلاح» همين "
                     "شمارش، در «شمارش با گوشي» بازگردانده مي\u200cشود."));
}

void FloorDesk::Close() {
  refresh_.stop();
  LeaveDialog();
  server_.reset();
  ofSession_.clear();
  unsaved_.reset();
  session_.reset();
  journal_.reset();
  journalFailure_.clear();
  emit closed();
  emit changed();
}

/// What the desk has typed into an open editor stays, whatever comes; an editor in which nothing was typed
/// shows what came.
void FloorDesk::Arrived(const FloorArrival& arrival) {
  GridView& lines = window_.Lines();
  lines.Tint().Show(arrival.row, arrival.col);
  const Grid& grid = form_.flexDetail;
  if (!lines.IsTypedInto() || grid.Row() != arrival.row || grid.Col() != arrival.col) return;
  const bool isTyped = lines.Editing().HoldsTyped();
  if (!isTyped && arrival.text == arrival.before) return;
  ShowCellHint(lines, lines.currentIndex(), SentenceOn(arrival, isTyped));
}

/// The server is in the middle of a request.
void FloorDesk::JournalFailed(const std::string& sentence) {
  journalFailure_ = ToQt(sentence);
  QTimer::singleShot(0, this, [this, sentence] { ShowFailure(sentence); });
  FollowLater();
}

/// A command that is at work is not stopped by a message.
void FloorDesk::ShowFailure(const std::string& sentence) {
  if (isUnloaded_) return;
  if (session_ != nullptr && session_->IsCommandAtWork()) {
    QTimer::singleShot(kSoonMs, this, [this, sentence] { ShowFailure(sentence); });
    return;
  }
  form_.Shared().messages.ShowMessage(
      sentences::kError, sentence +
                             "\nتا اين كار نشود رقم\u200cهاي تازه در گوشي\u200cها مي\u200cماند و "
                             "دوباره فرستاده مي\u200cشود.");
}

QString FloorDesk::CounterOf(int count) const {
  const std::array<const Control*, kFloorCounts> counters = {&form_.mptCounter1, &form_.mptCounter2,
                                                             &form_.mptCounter3};
  return NameIn(*counters.at(static_cast<std::size_t>(count - 1)));
}

/// The name that a selector shows.
QString FloorDesk::NameIn(const Control& selector) const {
  const QWidget* const field = window_.Binding().WidgetOf(selector);
  const auto* const name = field == nullptr ? nullptr : field->findChild<const QLineEdit*>();
  return name == nullptr ? QString() : name->text();
}

QString FloorDesk::Summary() const {
  if (session_ == nullptr) return QStringLiteral("شمارش با گوشي بسته است.");
  QString sentence = SentenceOn(*session_);
  if (!IsServed() || session_->Left().Cells().empty()) return sentence;
  return sentence + QChar(u' ') +
         (FloorSession::MayBegin(form_, form_.Shared())
              ? QStringLiteral("گوشي\u200cها تا تصميم شما درنگ كرده\u200cاند.")
              : QStringLiteral("گوشي\u200cها تا «اصلاح» و تصميم شما درنگ كرده\u200cاند."));
}

}  // namespace koru
