#include "desktop/report/ReportPreview.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPrinter>
#include <QPrinterInfo>
#include <QProgressDialog>
#include <QShortcut>
#include <QSpinBox>
#include <QStandardPaths>
#include <QToolButton>
#include <QVBoxLayout>

#include "desktop/fields/Fields.h"
#include "desktop/report/ReportOutput.h"
#include "desktop/toolkit/FileChoice.h"
#include "desktop/toolkit/PrintChoice.h"
#include "desktop/toolkit/QtText.h"
#include "desktop/toolkit/WindowPlace.h"
#include "siblings/report/ReportNumbers.h"

namespace koru {
namespace {

constexpr QSize kDefaultSize(1000, 720);
constexpr double kZoomStep = 1.25;
constexpr int kLongWorkMs = 400;  ///< shorter work shows no progress window

}  // namespace

// All widgets below belong to their Qt parents.
// NOLINTBEGIN(cppcoreguidelines-owning-memory)
ReportPreview::ReportPreview(std::unique_ptr<const ReportDocument> report, const QString& title,
                             std::function<void(const std::string&)> showFailure, QWidget* parent)
    : QWidget(parent, Qt::Window),
      report_(std::move(report)),
      title_(title),
      showFailure_(std::move(showFailure)) {
  setObjectName(QStringLiteral("reportPreview"));
  if (report_->Template().persianDigits) {  // around the pages, as on them
    setLocale(QLocale(QLocale::Persian, QLocale::Iran));
    setWindowTitle(ToQt(PersianDigits(FromQt(title))));
  } else {
    setWindowTitle(title);
  }
  setAttribute(Qt::WA_DeleteOnClose);
  auto* const all = new QVBoxLayout(this);
  all->setContentsMargins(0, 0, 0, 0);
  all->setSpacing(0);
  auto* const tools = new QHBoxLayout;
  tools->setContentsMargins(8, 6, 8, 6);
  tools->setSpacing(6);
  all->addLayout(tools);
  if (!report_->Note().empty()) all->addWidget(NewNotice(ToQt(report_->Note()), this));
  view_ = new PageView(*report_);
  view_->setAccessibleName(QStringLiteral("صفحه هاي گزارش"));
  all->addWidget(view_, 1);
  AddTools(*tools);
  connect(view_, &PageView::Moved, this, &ReportPreview::ShowPlace);
  resize(FirstSize(kDefaultSize));
  view_->setFocus();
  ShowPlace();
}

QToolButton* ReportPreview::AddTool(QHBoxLayout& tools, const char* name, const QString& caption,
                                    const QKeySequence& key, const std::function<void()>& pressed) {
  auto* const button = new QToolButton(this);
  button->setObjectName(QLatin1String(name));
  button->setText(caption);
  button->setToolTip(WithKeys(caption, key.toString()));
  button->setFocusPolicy(Qt::TabFocus);
  connect(button, &QToolButton::clicked, this, pressed);
  connect(new QShortcut(key, this), &QShortcut::activated, button, &QToolButton::click);
  tools.addWidget(button);
  return button;
}

void ReportPreview::AddTools(QHBoxLayout& tools) {
  AddTool(tools, "print", QStringLiteral("چاپ"), QKeySequence::Print, [this] { Print(); });
  AddTool(tools, "pdf", QStringLiteral("ذخيره PDF"), QKeySequence::Save, [this] { AskPdf(); });
  tools.addStretch();
  tools.addWidget(new QLabel(QStringLiteral("صفحه"), this));
  page_ = new QSpinBox(this);
  page_->setObjectName(QStringLiteral("page"));
  page_->setRange(1, static_cast<int>(report_->Pages().size()));
  page_->setKeyboardTracking(false);
  page_->setAccessibleName(QStringLiteral("صفحه"));
  connect(page_, &QSpinBox::valueChanged, this, [this](int page) { view_->GoToPage(page - 1); });
  tools.addWidget(page_);
  tools.addWidget(new QLabel(QStringLiteral("از ") + locale().toString(page_->maximum()), this));
  tools.addStretch();
  AddTool(tools, "smaller", QStringLiteral("كوچكتر"), QKeySequence::ZoomOut,
          [this] { view_->SetZoom(view_->Zoom() / kZoomStep); });
  zoom_ = new QLabel(this);
  zoom_->setObjectName(QStringLiteral("zoom"));
  tools.addWidget(zoom_);
  AddTool(tools, "larger", QStringLiteral("بزرگتر"), QKeySequence::ZoomIn,
          [this] { view_->SetZoom(view_->Zoom() * kZoomStep); });
  AddTool(tools, "fit", QStringLiteral("هم پهناي پنجره"), Qt::CTRL | Qt::Key_0,
          [this] { view_->FitWidth(); });
  tools.addStretch();
  AddTool(tools, "close", QStringLiteral("بستن"), Qt::Key_Escape, [this] { close(); });
}
// NOLINTEND(cppcoreguidelines-owning-memory)

void ReportPreview::ShowPlace() {
  const QSignalBlocker quiet(page_);
  if (!page_->hasFocus()) page_->setValue(view_->CurrentPage() + 1);
  zoom_->setText(locale().toString(qRound(view_->Zoom() * 100)) + QStringLiteral("٪"));
}

void ReportPreview::AskPdf() {
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  const QString start = folder + QLatin1Char('/') + title_ + QStringLiteral(".pdf");
  const QString path = AskWhereToSave({QStringLiteral("ذخيره PDF"), start, QStringLiteral("PDF (*.pdf)")},
                                      QStringLiteral("pdf"), this);
  if (!path.isEmpty()) SavePdf(path);
}

bool ReportPreview::SavePdf(const QString& path) {
  return WithProgress(QStringLiteral("پروندة PDF ساخته مي شود"), [&](const ReportProgress& progress) {
    return WriteReportPdf(*report_, path, progress);
  });
}

void ReportPreview::Print() {
  const QStringList printers = QPrinterInfo::availablePrinterNames();
  if (printers.isEmpty()) return showFailure_("چاپگري پيدا نشد. گزارش را مي توان در پروندة PDF ذخيره كرد.");
  QPrinter printer(QPrinter::HighResolution);
  printer.setPageLayout(PaperOf(*report_));
  if (!AskHowToPrint(printer, printers, page_->maximum(), this)) return;
  WithProgress(QStringLiteral("چاپ مي شود"),
               [&](const ReportProgress& progress) { return PrintReport(*report_, printer, progress); });
}

bool ReportPreview::WithProgress(const QString& label,
                                 const std::function<bool(const ReportProgress&)>& work) {
  QProgressDialog window(label, QStringLiteral("انصراف"), 0, 0, this);
  window.setObjectName(QStringLiteral("progress"));
  window.setWindowModality(Qt::WindowModal);
  window.setMinimumDuration(kLongWorkMs);
  try {
    return work([&window](std::size_t done, std::size_t all) {
      window.setMaximum(static_cast<int>(all));
      window.setValue(static_cast<int>(done));
      return !window.wasCanceled();
    });
  } catch (const std::exception& failure) {
    window.reset();
    showFailure_(failure.what());
    return false;
  }
}

}  // namespace koru
