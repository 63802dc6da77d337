#include "desktop/manual/ManualWindow.h"

#include <QDesktopServices>
#include <QHBoxLayout>
#include <QImage>
#include <QLineEdit>
#include <QPalette>
#include <QPrinter>
#include <QPrinterInfo>
#include <QResizeEvent>
#include <QScrollBar>
#include <QShortcut>
#include <QStandardPaths>
#include <QToolButton>
#include <QVBoxLayout>
#include <utility>

#include "desktop/fields/Fields.h"
#include "desktop/manual/ManualPrint.h"
#include "desktop/manual/ToolkitHtml.h"
#include "desktop/toolkit/FileChoice.h"
#include "desktop/toolkit/PrintChoice.h"
#include "desktop/toolkit/QtText.h"
#include "desktop/toolkit/WindowPlace.h"

// The widgets belong to their window, as the toolkit's widgets do.
// NOLINTBEGIN(cppcoreguidelines-owning-memory)
namespace koru {
namespace {

constexpr QSize kDefaultSize(980, 720);
constexpr int kPageMargin = 24;

}  // namespace

ManualPage::ManualPage(QWidget* parent) : QTextBrowser(parent) {
  QPalette paper = palette();  // the pages have colours of their own, for a white ground
  paper.setColor(QPalette::Base, Qt::white);
  paper.setColor(QPalette::Text, Qt::black);
  setPalette(paper);
  setObjectName(QStringLiteral("page"));
  setOpenExternalLinks(true);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);  // the width does not depend on the page's length
  document()->setDocumentMargin(kPageMargin);
}

QVariant ManualPage::loadResource(int type, const QUrl& name) {
  QVariant resource = QTextBrowser::loadResource(type, name);
  if (type == QTextDocument::HtmlResource) return ToolkitHtml(QString::fromUtf8(resource.toByteArray()));
  if (type != QTextDocument::ImageResource) return resource;
  QImage picture;
  if (!picture.loadFromData(resource.toByteArray())) return resource;
  scaledTo_ = viewport()->width();
  const int width = scaledTo_ - 2 * kPageMargin;
  return picture.width() > width ? picture.scaledToWidth(width, Qt::SmoothTransformation) : picture;
}

void ManualPage::resizeEvent(QResizeEvent* event) {
  QTextBrowser::resizeEvent(event);
  if (scaledTo_ == 0 || scaledTo_ == viewport()->width()) return;
  const double place = verticalScrollBar()->value() / static_cast<double>(verticalScrollBar()->maximum() + 1);
  scaledTo_ = 0;  // a page without pictures is not read again
  reload();
  verticalScrollBar()->setValue(qRound(place * (verticalScrollBar()->maximum() + 1)));
}

ManualWindow::ManualWindow(const QString& folder, std::function<void(const std::string&)> showFailure,
                           QWidget* parent)
    : QWidget(parent, Qt::Window), folder_(folder), showFailure_(std::move(showFailure)) {
  setObjectName(QStringLiteral("manual"));
  setAttribute(Qt::WA_DeleteOnClose);
  setAttribute(Qt::WA_QuitOnClose, false);
  auto* const all = new QVBoxLayout(this);
  all->setContentsMargins(0, 0, 0, 0);
  all->setSpacing(0);
  page_ = new ManualPage(this);
  AddTools(*all);
  all->addWidget(page_, 1);
  connect(page_, &QTextBrowser::sourceChanged, this,
          [this] { setWindowTitle(QStringLiteral("راهنماي شمارش انبار - ") + page_->documentTitle()); });
  resize(FirstSize(kDefaultSize));
}

QToolButton* ManualWindow::AddTool(QBoxLayout& tools, const char* name, const QString& caption,
                                   const QKeySequence& key) {
  auto* const button = new QToolButton(this);
  button->setObjectName(QLatin1String(name));
  button->setText(caption);
  button->setToolTip(key.isEmpty() ? caption : WithKeys(caption, key.toString()));
  button->setFocusPolicy(Qt::TabFocus);
  if (!key.isEmpty()) connect(new QShortcut(key, this), &QShortcut::activated, button, &QToolButton::click);
  tools.addWidget(button);
  return button;
}

void ManualWindow::AddTools(QBoxLayout& window) {
  auto* const tools = new QHBoxLayout;
  tools->setContentsMargins(8, 6, 8, 6);
  tools->setSpacing(6);
  window.addLayout(tools);
  connect(AddTool(*tools, "contents", QStringLiteral("فهرست"), Qt::ALT | Qt::Key_Home), &QToolButton::clicked,
          this, [this] { Show(QStringLiteral("index.html")); });
  QToolButton* const back = AddTool(*tools, "back", QStringLiteral("بازگشت"), Qt::ALT | Qt::Key_Left);
  connect(back, &QToolButton::clicked, page_, &QTextBrowser::backward);
  connect(page_, &QTextBrowser::backwardAvailable, back, &QToolButton::setEnabled);
  back->setEnabled(false);
  connect(AddTool(*tools, "keys", QStringLiteral("برگة كليدها"), {}), &QToolButton::clicked, this,
          [this] { Show(QStringLiteral("keys.html")); });
  connect(AddTool(*tools, "browser", QStringLiteral("باز كردن در مرورگر"), {}), &QToolButton::clicked, this,
          [this] { QDesktopServices::openUrl(page_->source()); });
  connect(AddTool(*tools, "print", QStringLiteral("چاپ"), QKeySequence::Print), &QToolButton::clicked, this,
          &ManualWindow::Print);
  connect(AddTool(*tools, "pdf", QStringLiteral("ذخيره PDF"), QKeySequence::Save), &QToolButton::clicked,
          this, &ManualWindow::AskPdf);
  tools->addStretch();
  searched_ = new QLineEdit(this);
  searched_->setObjectName(QStringLiteral("searched"));
  searched_->setPlaceholderText(QStringLiteral("جستجو در اين صفحه"));
  searched_->setToolTip(WithKeys(QStringLiteral("جستجو در اين صفحه"), QStringLiteral("Ctrl+F")));
  searched_->setClearButtonEnabled(true);
  connect(searched_, &QLineEdit::returnPressed, this, &ManualWindow::FindNext);
  connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, searched_, [this] {
    searched_->setFocus();
    searched_->selectAll();
  });
  tools->addWidget(searched_);
  tools->addStretch();
  connect(AddTool(*tools, "close", QStringLiteral("بستن"), Qt::Key_Escape), &QToolButton::clicked, this,
          &QWidget::close);
}

void ManualWindow::Show(const QString& page) {
  QUrl url = QUrl::fromLocalFile(folder_ + QLatin1Char('/') + page.section(QLatin1Char('#'), 0, 0));
  if (page.contains(QLatin1Char('#'))) url.setFragment(page.section(QLatin1Char('#'), 1));
  page_->setSource(url);
  show();
  raise();
  activateWindow();
  page_->setFocus();
}

void ManualWindow::Find(const QString& text) {
  const QTextCursor found = page_->document()->find(text);
  if (found.isNull()) return;
  page_->setTextCursor(found);
  page_->ensureCursorVisible();
}

void ManualWindow::Print() {
  const QStringList printers = QPrinterInfo::availablePrinterNames();
  if (printers.isEmpty())
    return showFailure_("چاپگري پيدا نشد. اين صفحه را مي\u200cتوان در پروندة PDF ذخيره كرد.");
  const QString page = page_->source().toLocalFile();
  QPrinter printer(QPrinter::HighResolution);
  printer.setPageLayout(PrintedManual::Paper());
  try {
    if (AskHowToPrint(printer, printers, PrintedManual(page, printer).Sheets(), this))
      PrintManual(page, printer);
  } catch (const std::exception& failure) {
    showFailure_(failure.what());
  }
}

void ManualWindow::AskPdf() {
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  const QString path =
      AskWhereToSave({QStringLiteral("ذخيره PDF"),
                      folder + QLatin1Char('/') + page_->documentTitle() + QStringLiteral(".pdf"),
                      QStringLiteral("PDF (*.pdf)")},
                     QStringLiteral("pdf"), this);
  if (path.isEmpty()) return;
  try {
    WriteManualPdf(page_->source().toLocalFile(), path);
  } catch (const std::exception& failure) {
    showFailure_(failure.what());
  }
}

/// Continues at the beginning of the page after its last place.
void ManualWindow::FindNext() {
  if (searched_->text().isEmpty() || page_->find(searched_->text())) return;
  page_->moveCursor(QTextCursor::Start);
  page_->find(searched_->text());
}

}  // namespace koru
// NOLINTEND(cppcoreguidelines-owning-memory)
