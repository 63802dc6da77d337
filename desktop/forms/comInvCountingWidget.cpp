#include "desktop/forms/comInvCountingWidget.h"

#include <QApplication>
#include <QLineEdit>
#include <QResizeEvent>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <cstdint>
#include <optional>
#include <utility>

#include "desktop/forms/DraftOffer.h"
#include "desktop/grid/GridView.h"
#include "desktop/toolkit/QtText.h"
#include "desktop/toolkit/Twips.h"
#include "platform/text/Numbers.h"

namespace koru {
namespace {

constexpr const char* kNoConnection = "0";

enum ListColumn : int { Number, Key, ManualCode, Store, CreateDate, FromDate, ToDate, Notes, Creator, Count };

constexpr const char* kTitles =
    "   رديف|^شماره رايانه اي  |^شماره دستي      |^انبار                        |^تاريخ         |^از تاريخ   "
    "   |"
    "^تا تاريخ      |^توضيحات           |^تهيه كننده            ";

/// The number as the property of that name holds it; nothing when it does not fit.
std::optional<std::int16_t> SixteenBits(const char* property, int number) {
  if (std::in_range<std::int16_t>(number)) return static_cast<std::int16_t>(number);
  qWarning("comInvCounting: %s cannot be %d, which is beyond 16 bits; it keeps its value", property, number);
  return std::nullopt;
}

}  // namespace

comInvCountingWidget::comInvCountingWidget(const HostServices& services, QWidget* parent)
    : QWidget(parent),
      services_(services),
      control_(*this, services_),
      form_(services_.screen, "comInvCounting"),
      flexTempDocs_(form_, "flexTempDocs"),
      offer_(new DraftOffer(this)),
      binding_(form_) {
  form_.OnFailure = [this](const std::exception& failure) {
    control_.Shared().messages.ShowFailure(failure);
  };
  txtid_ = new QLineEdit(this);  // NOLINT(cppcoreguidelines-owning-memory)
  txtid_->setObjectName(QStringLiteral("txtid"));
  txtid_->hide();  // the list fills the control
  ShowFont();
  SetUpList();
  SetUpOffer();
}

comInvCountingWidget::~comInvCountingWidget() { binding_.Detach(); }

void comInvCountingWidget::SetUpList() {
  flexTempDocs_.SetCols(Count);
  flexTempDocs_.SetFormatString(kTitles);
  list_ = new GridView(this);  // NOLINT(cppcoreguidelines-owning-memory)
  list_->SetRowNumbers(true);
  binding_.Bind(flexTempDocs_, *list_);
  auto* const layout = new QVBoxLayout(this);  // NOLINT(cppcoreguidelines-owning-memory)
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(offer_);
  layout->addWidget(list_);
  flexTempDocs_.DblClick.Always([this] {
    const int id = ChosenID();
    if (id > 0) View(id);
  });
}

int comInvCountingWidget::ChosenID() const {
  if (flexTempDocs_.Row() < 1) return 0;
  return static_cast<int>(Val(flexTempDocs_.TextMatrix(flexTempDocs_.Row(), Key)));
}

void comInvCountingWidget::HideList() {
  list_->hide();
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
}

void comInvCountingWidget::ReadList() {
  if (list_->isHidden()) return emit listOutdated();
  if (control_.OLEConnectionString() == kNoConnection) return;  // the control has no connection yet
  form_.RunEvent([this] {
    Recordset temporary =
        services_.databases.Connect(control_.OLEConnectionString())
            ->Open(SqlText("Select * from vwInventoryCounting where Code is null order by ID"));
    const int chosen = ChosenID();
    const int row = flexTempDocs_.Row();
    const GridRedrawOff off(flexTempDocs_);
    int rows = 1;  // rows that remain are overwritten, so that the list keeps its scroll position
    for (; !temporary.AtEnd(); temporary.MoveNext(), ++rows) {
      if (rows == flexTempDocs_.Rows()) flexTempDocs_.AddItem(std::to_string(rows));
      const std::pair<int, const char*> fields[] = {
          {Key, "ID"},           {ManualCode, "ManualCode"},      {Store, "InvName"},
          {Notes, "Notes"},      {CreateDate, "FarsiCreateDate"}, {FromDate, "FarsiFromDate"},
          {Creator, "FullName"}, {ToDate, "FarsiToDate"}};
      for (const auto& [col, name] : fields)
        flexTempDocs_.SetTextMatrix(rows, col, temporary.Field(name).Text());
    }
    flexTempDocs_.SetRows(rows);
    if (chosen > 0) Choose(chosen, row);
  });
}

/// Makes the counting with the key `id` the current row; if it is no longer in the list, the counting now in
/// its row.
void comInvCountingWidget::Choose(int id, int row) {
  const std::string key = std::to_string(id);
  for (int at = 1; at < flexTempDocs_.Rows(); ++at) {
    if (flexTempDocs_.TextMatrix(at, Key) == key) row = at;
  }
  row = std::min(row, flexTempDocs_.Rows() - 1);
  if (row > 0) flexTempDocs_.SetCurrent(row, flexTempDocs_.Col());
}

bool comInvCountingWidget::IsBeingEntered() const {
  const frmInvCounting* const form = control_.CountingForm();
  return form != nullptr && form->Visible() && form->IsBeingEntered();
}

/// A counting that is being entered is discarded only after the form's own question, asked with the form in
/// view.
bool comInvCountingWidget::MayDiscardEntry() {
  if (!IsBeingEntered()) return true;
  frmInvCounting& form = *control_.CountingForm();
  services_.screen.Show(form, false);
  form.UserClose();
  return !IsBeingEntered();
}

bool comInvCountingWidget::View(int id) {
  bool shown = false;
  form_.RunEvent([&] {
    if (!MayDiscardEntry()) return;
    txtid_->setText(QString::number(id));
    shown = control_.View(id);
  });
  FollowForm();
  return shown;
}

void comInvCountingWidget::ClearShow() {
  form_.RunEvent([this] {
    if (MayDiscardEntry()) control_.ClearShow();
  });
  FollowForm();
}

void comInvCountingWidget::BeginNew() {
  form_.RunEvent([this] {
    if (!MayDiscardEntry()) return;
    // The form may be modal: then its event loop runs inside ClearShow.
    QTimer::singleShot(0, this, [this] {
      frmInvCounting* const form = control_.CountingForm();
      if (form != nullptr && form->Visible()) form->cmdNew.UserClick();
    });
    control_.ClearShow();
  });
  FollowForm();
}

/// When the form is hidden, the list shows what it stored.
void comInvCountingWidget::FollowForm() {
  frmInvCounting* const form = control_.CountingForm();
  if (form == nullptr || !form->Visible()) {
    ReadList();
    return;
  }
  formChanged_ = form->StateChanged.Subscribe([this, form] {
    if (!form->Visible()) QTimer::singleShot(0, this, &comInvCountingWidget::ReadList);
  });
}

void comInvCountingWidget::SetUpOffer() {
  connect(offer_, &DraftOffer::restoreWanted, this, &comInvCountingWidget::RestoreDraft);
  connect(offer_, &DraftOffer::discardWanted, this, &comInvCountingWidget::DiscardDraft);
  connect(offer_, &DraftOffer::leftForLater, this, [this] {
    control_.LeaveDraft();
    list_->setFocus();
  });
}

void comInvCountingWidget::OfferDraft() {
  const auto sentence = control_.FindDraft();
  if (sentence) {
    offer_->Offer(ToQt(*sentence));
  } else {
    offer_->hide();
  }
}

void comInvCountingWidget::RestoreDraft() {
  bool restored = false;
  form_.RunEvent([&] {
    if (!MayDiscardEntry()) return;
    offer_->hide();  // the form may be modal
    restored = control_.RestoreDraft();
  });
  offer_->setVisible(!restored);
  FollowForm();
}

void comInvCountingWidget::DiscardDraft() {
  form_.RunEvent([this] {
    if (control_.DiscardDraft()) OfferDraft();  // an earlier one
  });
}

void comInvCountingWidget::SetUserID(int id) {
  control_.SetUserID(id);
  if (isVisible()) OfferDraft();
}

void comInvCountingWidget::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (event->spontaneous()) return;
  ReadList();
  OfferDraft();
}

void comInvCountingWidget::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  comInvCounting::Resize(width() * kTwipsPerPixel, height() * kTwipsPerPixel, flexTempDocs_);
}

QString comInvCountingWidget::OLEConnectionString() const { return ToQt(control_.OLEConnectionString()); }

void comInvCountingWidget::SetOLEConnectionString(const QString& connection) {
  if (connection != OLEConnectionString()) {
    if (!MayDiscardEntry()) return;
    // The form shows a counting of the database before.
    if (frmInvCounting* const form = control_.CountingForm()) form->Unload();
  }
  control_.SetOLEConnectionString(FromQt(connection));
}

void comInvCountingWidget::SetBackStyle(int style) {
  if (const auto fitting = SixteenBits("BackStyle", style)) control_.SetBackStyle(*fitting);
}

void comInvCountingWidget::SetBorderStyle(int style) {
  if (const auto fitting = SixteenBits("BorderStyle", style)) control_.SetBorderStyle(*fitting);
}

void comInvCountingWidget::SetEmployeeID(int id) {
  if (const auto fitting = SixteenBits("EmployeeID", id)) control_.SetEmployeeID(*fitting);
}

void comInvCountingWidget::SetPositionID(int id) {
  if (const auto fitting = SixteenBits("PositionID", id)) control_.SetPositionID(*fitting);
}

void comInvCountingWidget::SetForcedReceiptID(int id) {
  if (const auto fitting = SixteenBits("ForcedReceiptID", id)) control_.SetForcedReceiptID(*fitting);
}

QFont comInvCountingWidget::Font() const {
  const koru::Font& font = control_.Font();
  QFont shown(ToQt(font.name));
  if (font.size > 0) shown.setPointSizeF(font.size);
  shown.setBold(font.bold);
  shown.setItalic(font.italic);
  return shown;
}

void comInvCountingWidget::SetFont(const QFont& font) {
  control_.SetFont({FromQt(font.family()), font.pointSizeF(), font.bold(), font.italic()});
  ShowFont();
}

void comInvCountingWidget::ReadProperties(const PropertyBag& store) {
  control_.ReadProperties(store);
  ShowFont();
}

void comInvCountingWidget::ShowFont() { txtid_->setFont(Font()); }

koru::Font comInvCountingWidget::AmbientFont() const {
  const QFont ambient = parentWidget() == nullptr ? QApplication::font() : parentWidget()->font();
  return {FromQt(ambient.family()), ambient.pointSizeF(), ambient.bold(), ambient.italic()};
}

void comInvCountingWidget::PropertyChanged(std::string_view key) { emit propertyChanged(ToQt(key)); }

}  // namespace koru
