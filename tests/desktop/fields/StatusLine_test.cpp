#include "desktop/fields/StatusLine.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTextDocumentFragment>

namespace koru {
namespace {

TEST(StatusLine, A_text_that_does_not_fit_is_cut_and_its_tooltip_has_all_of_it) {
  StatusLine line;
  const QString sentence = QStringLiteral("پروندة اكسل ساخته شد: /home/anbar/Documents/a.xlsx");
  line.Say(sentence);
  line.resize(line.sizeHint());
  QApplication::processEvents();
  EXPECT_TRUE(line.text().contains(sentence));
  EXPECT_EQ(line.toolTip(), QString());
  line.resize(line.sizeHint().width() / 2, line.height());
  line.show();
  QApplication::processEvents();
  EXPECT_FALSE(line.text().contains(sentence));
  EXPECT_EQ(QTextDocumentFragment::fromHtml(line.toolTip()).toPlainText(), sentence);
  EXPECT_EQ(line.Sentence(), sentence);
  EXPECT_EQ(line.minimumSizeHint().width(), 0) << "no sentence makes the window wider";
}

}  // namespace
}  // namespace koru
