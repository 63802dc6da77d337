#include "tests/manual/ManualPages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

namespace koru::test {
namespace {

TEST(ManualPageReader, Marked_texts_anchors_links_and_pictures_are_read) {
  const ManualPage page =
      ReadManualPage("a.html",
                     "<h2 id=\"x\">آ</h2><p><b class=\"caption\">كالا</b> <kbd>F1</kbd> <code>a</code> "
                     "<a href=\"b.html#y\">پ</a><br><img src=\"pictures/p.png\" alt=\"\"></p>");
  EXPECT_EQ(page.error, "");
  EXPECT_EQ(page.ids, std::vector<std::string>{"x"});
  EXPECT_EQ(page.links, std::vector<std::string>{"b.html#y"});
  EXPECT_EQ(page.pictures, std::vector<std::string>{"pictures/p.png"});
  ASSERT_EQ(page.texts.size(), 5U);
  EXPECT_EQ(page.texts[1].kind, ManualText::Kind::Caption);
  EXPECT_EQ(page.texts[1].section, "x");
  EXPECT_EQ(page.texts[2].kind, ManualText::Kind::Key);
  EXPECT_EQ(page.texts[3].kind, ManualText::Kind::Code);
  EXPECT_EQ(page.texts[4].kind, ManualText::Kind::Prose);
  EXPECT_EQ(ReadManualPage("a.html", "<p><b>آ</p></b>").error, "p");
  EXPECT_EQ(ReadManualPage("a.html", "<p>آ").error, "p");
}

TEST(Manual, Every_tag_is_closed) {
  for (const ManualPage& page : ManualPages()) EXPECT_EQ(page.error, "") << page.name;
}

TEST(Manual, Every_link_leads_to_a_page_and_an_anchor) {
  std::map<std::string, std::set<std::string>> places;
  for (const ManualPage& page : ManualPages()) places[page.name] = {page.ids.begin(), page.ids.end()};
  std::size_t links = 0;
  for (const ManualPage& page : ManualPages()) {
    for (const std::string& link : page.links) {
      ++links;
      const std::size_t mark = link.find('#');
      const std::string target = link.substr(0, mark);
      const auto place = places.find(target.empty() ? page.name : target);
      ASSERT_NE(place, places.end()) << page.name << ": " << link;
      if (mark == std::string::npos) continue;
      EXPECT_TRUE(place->second.contains(link.substr(mark + 1))) << page.name << ": " << link;
    }
  }
  EXPECT_GT(links, 80U);
}

TEST(Manual, The_contents_name_every_page) {
  std::set<std::string> named = {"index.html"};
  std::set<std::string> pages;
  for (const ManualPage& page : ManualPages()) {
    pages.insert(page.name);
    if (page.name == "index.html") named.insert(page.links.begin(), page.links.end());
  }
  EXPECT_EQ(named, pages);
}

/// The names of the pictures that the scenarios of the manual make.
std::set<std::string> MadePictures() {
  std::set<std::string> made;
  for (const auto& entry : std::filesystem::directory_iterator(KORU_SOURCES "/scenarios/manual")) {
    if (!entry.path().filename().string().starts_with("pictures-")) continue;
    for (const std::string& line : LinesOf(entry.path())) {
      if (line.starts_with("picture \"")) made.insert(line.substr(9, line.find('"', 9) - 9) + ".png");
    }
  }
  return made;
}

TEST(Manual, Every_picture_on_a_page_exists_and_is_made_by_a_scenario) {
  std::set<std::string> shown;
  for (const ManualPage& page : ManualPages()) {
    for (const std::string& picture : page.pictures) {
      ASSERT_TRUE(picture.starts_with("pictures/")) << page.name << ": " << picture;
      shown.insert(picture.substr(picture.find('/') + 1));
    }
  }
  std::set<std::string> stored;
  for (const auto& entry : std::filesystem::directory_iterator(KORU_SOURCES "/docs/fa/pictures"))
    stored.insert(entry.path().filename().string());
  EXPECT_EQ(stored, MadePictures()) << "scripts/manual-pictures makes them";
  EXPECT_EQ(shown, stored);
}

}  // namespace
}  // namespace koru::test
