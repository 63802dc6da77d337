#include "tests/manual/ManualPages.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string_view>

namespace koru::test {
namespace {

constexpr std::string_view kWithoutEnd[] = {"meta", "link", "img", "br", "!DOCTYPE"};

/// The value of an attribute; empty without it.
std::string Attribute(const std::string& tag, const std::string& name) {
  const std::string begin = " " + name + "=\"";
  const std::size_t at = tag.find(begin);
  if (at == std::string::npos) return {};
  const std::size_t from = at + begin.size();
  return tag.substr(from, tag.find('"', from) - from);
}

class Reader {
 public:
  explicit Reader(ManualPage& page) : page_(page) {}

  void Text(std::string text) {
    if (text.find_first_not_of(" \n") == std::string::npos) return;
    page_.texts.push_back({std::move(text), CurrentKind(), section_});
  }

  void Tag(const std::string& tag) {
    const bool closes = tag.starts_with("/");
    const std::string name = tag.substr(closes ? 1 : 0, tag.find_first_of(" \n") - (closes ? 1 : 0));
    if (std::find(std::begin(kWithoutEnd), std::end(kWithoutEnd), name) != std::end(kWithoutEnd)) {
      if (name == "img") page_.pictures.push_back(Attribute(tag, "src"));
    } else if (closes) {
      Close(name);
    } else {
      Open(name, tag);
    }
  }

  void End() {
    if (!open_.empty()) Wrong(open_.back().name);
  }

 private:
  struct Element {
    std::string name;
    std::string kind;  ///< its class
  };

  void Open(const std::string& name, const std::string& tag) {
    open_.push_back({name, Attribute(tag, "class")});
    const std::string id = Attribute(tag, "id");
    if (!id.empty()) page_.ids.push_back(id);
    if (name == "h2") section_ = id;
    if (name == "a") page_.links.push_back(Attribute(tag, "href"));
  }

  void Close(const std::string& name) {
    if (open_.empty() || open_.back().name != name) return Wrong(name);
    open_.pop_back();
  }

  void Wrong(const std::string& name) {
    if (page_.error.empty()) page_.error = name;
  }

  [[nodiscard]] ManualText::Kind CurrentKind() const {
    using Kind = ManualText::Kind;
    for (auto element = open_.rbegin(); element != open_.rend(); ++element) {
      if (element->kind == "caption") return Kind::Caption;
      if (element->kind == "data") return Kind::Data;
      if (element->name == "kbd") return Kind::Key;
      if (element->name == "code" || element->name == "pre") return Kind::Code;
    }
    return Kind::Prose;
  }

  ManualPage& page_;
  std::vector<Element> open_;
  std::string section_;
};

}  // namespace

ManualPage ReadManualPage(const std::string& name, const std::string& html) {
  ManualPage page;
  page.name = name;
  Reader reader(page);
  std::size_t at = 0;
  while (at < html.size()) {
    const std::size_t tag = std::min(html.find('<', at), html.size());
    if (tag > at) reader.Text(html.substr(at, tag - at));
    if (tag == html.size()) break;
    const std::size_t end = html.find('>', tag);
    if (end == std::string::npos) break;
    reader.Tag(html.substr(tag + 1, end - tag - 1));
    at = end + 1;
  }
  reader.End();
  return page;
}

std::vector<ManualPage> ManualPages() {
  std::vector<ManualPage> pages;
  for (const auto& entry : std::filesystem::directory_iterator(KORU_SOURCES "/docs/fa")) {
    if (entry.path().extension() != ".html") continue;
    std::ifstream stream(entry.path(), std::ios::binary);
    pages.push_back(
        ReadManualPage(entry.path().filename().string(), {std::istreambuf_iterator<char>(stream), {}}));
  }
  std::sort(pages.begin(), pages.end(),
            [](const auto& one, const auto& other) { return one.name < other.name; });
  return pages;
}

std::vector<std::string> LinesOf(const std::filesystem::path& file) {
  std::vector<std::string> lines;
  std::ifstream stream(file, std::ios::binary);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

}  // namespace koru::test
