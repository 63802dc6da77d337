#include "desktop/fields/SelectorEdit.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QLineEdit>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QToolButton>
#include <QTreeView>
#include <QVBoxLayout>

#include "tests/desktop/WindowTools.h"

namespace koru {
namespace {

using test::Open;
using test::Press;
using test::Type;

class SelectorEditTest : public testing::Test {
 protected:
  SelectorEditTest() {
    // The widgets belong to their window. NOLINTBEGIN(cppcoreguidelines-owning-memory)
    field = new SelectorEdit(&window);
    auto* const layout = new QVBoxLayout(&window);
    // NOLINTEND(cppcoreguidelines-owning-memory)
    layout->addWidget(field);
    QObject::connect(field, &SelectorEdit::openRequested, field,
                     [this](const QString& typed) { field->Open(records, typed); });
    QObject::connect(field, &SelectorEdit::recordChosen, field,
                     [this](std::int32_t id) { chosen.push_back(id); });
    Open(window);
    field->setFocus();
  }

  [[nodiscard]] QWidget* Popup() const { return QApplication::activePopupWidget(); }
  [[nodiscard]] QString Current() const {
    return Popup()->findChild<QTreeView*>("records")->currentIndex().data().toString();
  }
  void InPopup(Qt::Key key) { QTest::keyClick(Popup()->findChild<QLineEdit*>("filter"), key); }

  std::vector<SelectorRecord> records{{1, "انبار مركزي", -1, true},
                                      {2, "سالن قطعات يدكي", 0, true},
                                      {3, "سالن ۲", 0, true},
                                      {4, "انبار شعبه", -1, true}};
  std::vector<std::int32_t> chosen;
  QWidget window;
  SelectorEdit* field = nullptr;
};

TEST_F(SelectorEditTest, F4_opens_the_tree_on_the_selected_record_and_Enter_picks_another) {
  field->SetShown(QStringLiteral("انبار شعبه"), 4);
  Press(Qt::Key_F4);
  ASSERT_NE(Popup(), nullptr);
  EXPECT_EQ(Current(), QStringLiteral("انبار شعبه"));
  InPopup(Qt::Key_Up);
  InPopup(Qt::Key_Return);
  EXPECT_EQ(Popup(), nullptr);
  EXPECT_EQ(chosen, std::vector<std::int32_t>{3});
}

TEST_F(SelectorEditTest, Typing_opens_the_list_and_finds_a_record_however_its_letters_are_written) {
  Type(QStringLiteral("یدکی"));  // Persian yeh and kaf; the record has the Arabic ones
  ASSERT_NE(Popup(), nullptr);
  EXPECT_EQ(Current(), QStringLiteral("سالن قطعات يدكي"));
  InPopup(Qt::Key_Return);
  EXPECT_EQ(chosen, std::vector<std::int32_t>{2});
}

TEST_F(SelectorEditTest, Latin_digits_find_Persian_ones) {
  Type("2");
  EXPECT_EQ(Current(), QStringLiteral("سالن ۲"));
  InPopup(Qt::Key_Escape);
}

TEST_F(SelectorEditTest, Escape_closes_and_nothing_is_chosen) {
  Press(Qt::Key_Down, Qt::AltModifier);
  ASSERT_NE(Popup(), nullptr);
  InPopup(Qt::Key_Escape);
  EXPECT_EQ(Popup(), nullptr);
  EXPECT_TRUE(chosen.empty());
}

TEST_F(SelectorEditTest, What_nothing_matches_picks_nothing) {
  Type(QStringLiteral("ژژژ"));
  InPopup(Qt::Key_Return);
  EXPECT_TRUE(chosen.empty());
  InPopup(Qt::Key_Escape);
}

TEST_F(SelectorEditTest, The_same_letter_a_second_time_finds_the_record_again) {
  for (int time = 0; time < 2; ++time) {
    Type(QStringLiteral("ش"));
    EXPECT_EQ(Current(), QStringLiteral("انبار شعبه")) << time;
    InPopup(Qt::Key_Return);
  }
  EXPECT_EQ(chosen, (std::vector<std::int32_t>{4, 4}));
}

TEST_F(SelectorEditTest, The_cross_is_drawn_for_the_scale_of_the_screen) {
  field->SetShown(QStringLiteral("انبار شعبه"), 4);
  const QIcon cross = field->findChild<QLineEdit*>()->actions().constFirst()->icon();
  for (const double scale : {1.0, 1.5, 2.0}) {
    const QImage picture = cross.pixmap(QSize(16, 16), scale).toImage();
    ASSERT_EQ(picture.width(), 16 * scale);
    EXPECT_EQ(picture.pixelColor(0, 0).alpha(), 0) << scale;
    EXPECT_GT(picture.pixelColor(picture.width() / 2, picture.height() / 2).alpha(), 200) << scale;
  }
}

TEST_F(SelectorEditTest, A_click_on_the_cross_selects_nothing) {
  field->SetShown(QStringLiteral("انبار شعبه"), 4);
  auto* const cross = field->findChild<QLineEdit*>()->findChild<QToolButton*>();
  ASSERT_NE(cross, nullptr);
  QTest::mouseClick(cross, Qt::LeftButton);
  EXPECT_EQ(chosen, std::vector<std::int32_t>{Selector::kNothing});
}

TEST_F(SelectorEditTest, Delete_selects_nothing) {
  field->SetShown(QStringLiteral("انبار شعبه"), 4);
  Press(Qt::Key_Delete);
  EXPECT_EQ(chosen, std::vector<std::int32_t>{Selector::kNothing});
}

TEST_F(SelectorEditTest, The_tooltip_shows_a_stored_name_as_it_is) {
  field->SetShown(QStringLiteral("سالن <b>قطعات</b> & ابزار"), 2);
  const QString tip = field->findChild<QLineEdit*>()->toolTip();
  EXPECT_TRUE(Qt::mightBeRichText(tip));
  EXPECT_EQ(QTextDocumentFragment::fromHtml(tip).toPlainText(), QStringLiteral("سالن <b>قطعات</b> & ابزار"));
  field->SetShown(QStringLiteral("انبار & شعبه"), 4);
  EXPECT_EQ(field->findChild<QLineEdit*>()->toolTip(), QStringLiteral("انبار & شعبه"));
}

TEST_F(SelectorEditTest, A_record_that_is_not_offered_is_shown_and_cannot_be_picked) {
  records[0].offered = false;
  Press(Qt::Key_F4);
  EXPECT_EQ(Current(), QStringLiteral("سالن قطعات يدكي")) << "the first that is offered";
  InPopup(Qt::Key_Up);
  EXPECT_EQ(Current(), QStringLiteral("سالن قطعات يدكي"));
  auto& tree = *Popup()->findChild<QTreeView*>("records");
  const QModelIndex parent = tree.model()->index(0, 0);
  EXPECT_EQ(parent.data().toString(), QStringLiteral("انبار مركزي"));
  EXPECT_FALSE(parent.data(Qt::ToolTipRole).toString().isEmpty());
  QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.visualRect(parent).center());
  EXPECT_TRUE(chosen.empty());
  ASSERT_NE(Popup(), nullptr);
  InPopup(Qt::Key_Return);
  EXPECT_EQ(chosen, std::vector<std::int32_t>{2});
  Type(QStringLiteral("مركزي"));
  InPopup(Qt::Key_Return);
  EXPECT_EQ(chosen, std::vector<std::int32_t>{2}) << "its name finds it, but does not pick it";
  InPopup(Qt::Key_Escape);
}

}  // namespace
}  // namespace koru
