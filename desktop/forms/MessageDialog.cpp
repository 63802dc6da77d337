#include "desktop/forms/MessageDialog.h"

#include <QApplication>
#include <QCursor>
#include <QDialog>
#include <QFrame>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextOption>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/toolkit/QtText.h"
#include "services/Messages.h"

namespace koru {
namespace {

constexpr int kYes = 1;
constexpr int kNo = 0;
constexpr int kQuestion = 1;
constexpr int kMinTextWidth = 340;
constexpr int kMinDetailLines = 2;  ///< a long line is wrapped
constexpr int kMaxDetailLines = 6;
constexpr int kDetailMargins = 14;
constexpr double kSmallPrint = 0.85;

/// The text colour, black or white, with the better contrast on `ground`.
QString TextOn(const QColor& ground) {
  const double light = 0.299 * ground.red() + 0.587 * ground.green() + 0.114 * ground.blue();
  return light > 130 ? QStringLiteral("#15202E") : QStringLiteral("#FFFFFF");
}

/// A path, which is isolated in its sentence, gets a line of its own.
QString WithPathsOnLines(QString text) {
  static const QRegularExpression kPath(QStringLiteral("[ \\n]*(\u2066[^\u2069]*\u2069)[ ،:.\\n]*"));
  return text.replace(kPath, QStringLiteral("\n\\1\n")).trimmed();
}

/// Persian sentences begin at the right edge; paths and the English of a database begin at the left, in small
/// print.
void ShowEachInItsDirection(QPlainTextEdit& detail) {
  QTextDocument& text = *detail.document();
  QTextOption option = text.defaultTextOption();
  option.setTextDirection(Qt::LayoutDirectionAuto);
  option.setAlignment(Qt::AlignLeft);  // where a line begins
  text.setDefaultTextOption(option);
  QTextCharFormat small;
  small.setFontPointSize(detail.font().pointSizeF() * kSmallPrint);
  for (QTextBlock line = text.begin(); line.isValid(); line = line.next()) {
    if (line.text().isRightToLeft()) continue;
    QTextCursor whole(line);
    whole.select(QTextCursor::BlockUnderCursor);
    whole.setCharFormat(small);
  }
  const int lines = std::clamp(text.blockCount(), kMinDetailLines, kMaxDetailLines);
  detail.setFixedHeight(lines * detail.fontMetrics().lineSpacing() + kDetailMargins);
}

/// RAII normal cursor, for a question in the middle of a long operation.
class ArrowCursor {
 public:
  ArrowCursor() { QGuiApplication::setOverrideCursor(Qt::ArrowCursor); }
  ArrowCursor(const ArrowCursor&) = delete;
  ArrowCursor& operator=(const ArrowCursor&) = delete;
  ~ArrowCursor() { QGuiApplication::restoreOverrideCursor(); }
};

/// Answers a question at the first letter of the answer. Escape and every other way to close it answer no,
/// since an operation may continue where no answer was given.
class Dialog : public QDialog {
 public:
  using QDialog::QDialog;

  void reject() override {
    if (auto* const no = findChild<QPushButton*>(QStringLiteral("no"))) {
      no->click();
    } else {
      QDialog::reject();
    }
  }

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    const QString letter = event->text().toLower();
    const bool yes = letter == QStringLiteral("ب") || letter == QStringLiteral("y");
    const bool no = letter == QStringLiteral("خ") || letter == QStringLiteral("n");
    auto* const button = findChild<QPushButton*>(yes ? QStringLiteral("yes") : QStringLiteral("no"));
    if ((yes || no) && button != nullptr) {
      button->click();
    } else {
      QDialog::keyPressEvent(event);
    }
  }
};

}  // namespace

void MessageDialog::SetFormBackColor(std::uint32_t color) { formColor_ = ColorOf(color); }
void MessageDialog::SetBtmBackColor(std::uint32_t color) { buttonColor_ = ColorOf(color); }
void MessageDialog::SetFrameBackColor(std::uint32_t color) { frameColor_ = ColorOf(color); }

void MessageDialog::ClearShow() {
  answer_ = kNoAnswer;
  Dialog dialog(QApplication::activeWindow());
  dialog.setObjectName(QStringLiteral("comMSG"));
  dialog.setWindowTitle(ToQt(title_));
  dialog.setAccessibleDescription(ToQt(message_));
  dialog.setWindowFlag(Qt::WindowContextHelpButtonHint, false);
  if (type_ == kQuestion) {
    dialog.setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);  // no close button
  }
  QVBoxLayout layout(&dialog);
  layout.setContentsMargins(12, 12, 12, 12);
  layout.setSpacing(12);
  layout.setSizeConstraint(QLayout::SetFixedSize);
  AddTexts(dialog, layout);
  AddButtons(dialog, layout);
  Paint(dialog);
  const ArrowCursor arrow;
  dialog.exec();
}

/// The suite's messages tell errors and warnings apart by their titles alone.
MessageIcon::Kind MessageDialog::IconKind() const {
  if (type_ == kQuestion) return MessageIcon::Kind::Question;
  if (title_ == sentences::kError) return MessageIcon::Kind::Error;
  return title_ == sentences::kWarning ? MessageIcon::Kind::Warning : MessageIcon::Kind::Note;
}

// All widgets below belong to their Qt parents.
// NOLINTBEGIN(cppcoreguidelines-owning-memory)
void MessageDialog::AddTexts(QDialog& dialog, QVBoxLayout& layout) const {
  const QString whole = WithPathsOnLines(ToQt(message_));
  const qsizetype gap = whole.indexOf(u'\n');
  auto* const frame = new QFrame(&dialog);
  frame->setObjectName(QStringLiteral("frame"));
  auto* const inner = new QVBoxLayout(frame);
  inner->setContentsMargins(18, 16, 18, 16);
  auto* const text = new QLabel(gap < 0 ? whole : whole.left(gap), frame);
  text->setObjectName(QStringLiteral("message"));
  text->setTextFormat(Qt::PlainText);
  text->setWordWrap(true);
  text->setMinimumWidth(kMinTextWidth);
  text->setTextInteractionFlags(Qt::TextSelectableByMouse);
  auto* const said = new QHBoxLayout;
  said->setSpacing(14);
  said->addWidget(new MessageIcon(IconKind(), frame), 0, Qt::AlignTop);
  said->addWidget(text, 1);
  inner->addLayout(said);
  if (gap >= 0) {
    auto* const detail = new QPlainTextEdit(whole.mid(gap + 1).trimmed(), frame);
    detail->setObjectName(QStringLiteral("detail"));
    detail->setReadOnly(true);
    detail->setTabChangesFocus(true);
    ShowEachInItsDirection(*detail);
    inner->addWidget(detail);
  }
  layout.addWidget(frame);
}

void MessageDialog::AddButtons(QDialog& dialog, QVBoxLayout& layout) {
  auto* const row = new QHBoxLayout;
  row->setSpacing(10);
  row->addStretch();
  const auto add = [&](const char* name, const QString& caption, int answer, bool first) {
    auto* const button = new QPushButton(caption, &dialog);
    button->setObjectName(QLatin1String(name));
    button->setMinimumWidth(96);
    button->setAutoDefault(true);
    QObject::connect(button, &QPushButton::clicked, &dialog, [this, &dialog, answer] {
      answer_ = answer;
      dialog.accept();
    });
    row->addWidget(button);
    if (first) {
      button->setDefault(true);
      button->setFocus();
    }
    return button;
  };
  if (type_ == kQuestion) {
    add("yes", QStringLiteral("بلي (ب)"), kYes, false);
    add("no", QStringLiteral("خير (خ يا Esc)"), kNo, true);
  } else {
    add("ok", QStringLiteral("تاييد"), kNoAnswer, true);
  }
  row->addStretch();
  layout.addLayout(row);
}
// NOLINTEND(cppcoreguidelines-owning-memory)

void MessageDialog::Paint(QDialog& dialog) const {
  QString style;
  if (formColor_.isValid()) style += QStringLiteral("QDialog { background: %1; }").arg(formColor_.name());
  if (frameColor_.isValid()) {
    style += QStringLiteral("QFrame#frame { background: %1; border: 1px solid %2; border-radius: 5px; }")
                 .arg(frameColor_.name(), frameColor_.darker(120).name());
    style +=
        QStringLiteral("QLabel { color: %1; background: transparent; border: 0; }").arg(TextOn(frameColor_));
  }
  if (buttonColor_.isValid()) {
    style += QStringLiteral(
                 "QPushButton { background: %1; color: %2; border-color: %3; }"
                 "QPushButton:hover { background: %4; }"
                 "QPushButton:focus { border: 2px solid %2; }")
                 .arg(buttonColor_.name(), TextOn(buttonColor_), buttonColor_.darker(130).name(),
                      buttonColor_.lighter(108).name());
  }
  dialog.setStyleSheet(style);
}

}  // namespace koru
