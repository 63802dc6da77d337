#include "desktop/forms/LineFinderBar.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QShortcut>
#include <QStyledItemDelegate>
#include <QTimer>

#include "desktop/fields/Fields.h"
#include "desktop/forms/LineProgress.h"
#include "desktop/grid/GridView.h"
#include "desktop/toolkit/PlainText.h"
#include "lines/LineColumns.h"

namespace koru {
namespace {

constexpr int kBoxWidth = 130;
constexpr int kNumberWidth = 60;  ///< in the list, after the name of a kind

/// Shows the accessible texts of a list's entries, which have the numbers of lines.
class NumberedEntries : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    const QString numbered = index.data(Qt::AccessibleTextRole).toString();
    if (!numbered.isEmpty()) option->text = numbered;
  }
};

/// The kinds of lines; the open list has the number of lines of each.
class KindList : public QComboBox {
 public:
  KindList(LineFinder& finder, QWidget* parent) : QComboBox(parent), finder_(finder) {
    setItemDelegate(new NumberedEntries(this));  // NOLINT(cppcoreguidelines-owning-memory)
  }

  void showPopup() override {
    const LineCounts& counts = finder_.Counts();
    for (int i = 0; i < count(); ++i) {
      const int lines = counts.Of(static_cast<LineKind>(itemData(i).toInt()));
      setItemData(i, QStringLiteral("%1: %2").arg(itemText(i)).arg(lines), Qt::AccessibleTextRole);
    }
    view()->setMinimumWidth(minimumSizeHint().width() + kNumberWidth);
    QComboBox::showPopup();
  }

 private:
  LineFinder& finder_;
};

QString Notice(int shown, int lines) {
  return RightToLeft(QStringLiteral("فيلتر: %1 سطر از %2").arg(shown).arg(lines));
}

}  // namespace

// The widgets are owned by their Qt parents.
// NOLINTBEGIN(cppcoreguidelines-owning-memory)
LineFinderBar::LineFinderBar(LineFinder& finder, QWidget* parent)
    : QWidget(parent),
      finder_(finder),
      box_(new QLineEdit(this)),
      kinds_(new KindList(finder, this)),
      room_(new QWidget(this)),
      notice_(NewNotice({}, room_)),
      command_(new QHBoxLayout),
      progress_(new LineProgress(this)) {
  box_->setPlaceholderText(QStringLiteral("نام، كد يا باركد"));
  box_->setAccessibleName(QStringLiteral("يافتن سطر"));
  box_->setToolTip(
      WithKeys(QStringLiteral("يافتن سطر با واژه هاي نام، كد يا باركد"), QStringLiteral("Ctrl+F")));
  box_->setMinimumWidth(kBoxWidth);
  box_->setMaximumWidth(2 * kBoxWidth);
  box_->installEventFilter(this);
  kinds_->setAccessibleName(QStringLiteral("كدام سطرها"));
  notice_->setObjectName(QStringLiteral("linesShown"));
  notice_->setWordWrap(false);
  notice_->setToolTip(
      PlainToolTip(QStringLiteral("فيلتر فقط سطرها را در اين پنجره پنهان مي كند: ثبت، محاسبه، شماره رديف، "
                                  "اكسل، گزارش و جمع ها همه سطرها را "
                                  "دارند.")));
  auto* const layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(4);
  auto* const room = new QHBoxLayout(room_);
  room->setContentsMargins(0, 0, 0, 0);
  room->setSpacing(4);
  room->addWidget(notice_);
  room->addLayout(command_);
  room->addStretch();
  layout->addWidget(box_, 1);
  layout->addWidget(kinds_);
  layout->addWidget(room_);
  layout->addSpacing(8);
  layout->addWidget(progress_, 2);
  connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, box_, [this] {
    box_->setFocus(Qt::ShortcutFocusReason);
    box_->selectAll();
  });
}
// NOLINTEND(cppcoreguidelines-owning-memory)

QWidget& LineFinderBar::Progress() const { return *progress_; }

QBoxLayout& LineFinderBar::PlaceOfCommand() const { return *command_; }

void LineFinderBar::Follow(GridView& lines) {
  lines_ = &lines;
  applied_ = finder_.Applied.Subscribe([this] { Apply(); });
  KeepRoomForNotice();
  rowsChanged_ = lines.Rows().Source()->RowsChanged.Subscribe([this](const GridChange&) { ShowLater(); });
  connect(&lines.Rows(), &QAbstractItemModel::rowsInserted, this, &LineFinderBar::ShowLater);
  Apply();
}

/// A place of one size: when the notice or the command appears in it, the window need not be laid out anew.
void LineFinderBar::KeepRoomForNotice() {
  for (QWidget* const part : room_->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
    QSizePolicy policy = part->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    part->setSizePolicy(policy);
  }
  const QString text = notice_->text();
  notice_->setText(Notice(kMaxLines, kMaxLines));
  room_->layout()->invalidate();
  room_->setFixedSize(room_->layout()->sizeHint());
  notice_->setText(text);
}

void LineFinderBar::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (lines_ != nullptr && (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange))
    KeepRoomForNotice();
}

/// A figure that the form refused stays in its cell, and with it the lines that are shown.
void LineFinderBar::Apply() {
  if (!lines_->FinishEdit()) return;
  if (finder_.IsOn()) {
    lines_->ShowOnly(finder_.RowsThatFit());
  } else {
    lines_->ShowAll();
  }
  ShowNow();
}

void LineFinderBar::ShowLater() {
  if (requested_) return;
  requested_ = true;
  QTimer::singleShot(0, this, &LineFinderBar::ShowNow);
}

void LineFinderBar::ShowNow() {
  requested_ = false;
  const Grid* const grid = lines_->Rows().Source();
  if (grid == nullptr) return;  // the form was unloaded
  progress_->Show(finder_.Counts());
  const QString text = Notice(lines_->Rows().rowCount(), grid->Rows() - 1);
  if (notice_->text() != text) notice_->setText(text);
  notice_->setVisible(lines_->Rows().IsFiltered());
}

bool LineFinderBar::eventFilter(QObject* object, QEvent* event) {
  if (object == box_ && event->type() == QEvent::KeyPress)
    return KeyPressed(static_cast<QKeyEvent*>(event)->key());
  return QWidget::eventFilter(object, event);
}

bool LineFinderBar::KeyPressed(int key) {
  switch (key) {
    case Qt::Key_Escape:
      if (!box_->text().isEmpty()) finder_.txtFindLine.UserType({});
      break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      finder_.Apply();
      break;
    case Qt::Key_Down:
      break;
    default:
      return false;
  }
  lines_->setFocus(Qt::ShortcutFocusReason);
  return true;
}

}  // namespace koru
