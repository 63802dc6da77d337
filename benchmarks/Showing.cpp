#include "benchmarks/Showing.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>
#include <QTableView>
#include <array>
#include <filesystem>
#include <memory>
#include <stdexcept>

#include "benchmarks/Countings.h"
#include "benchmarks/LinesByHand.h"
#include "benchmarks/Program.h"
#include "benchmarks/SortByHand.h"
#include "benchmarks/WorkbookByHand.h"
#include "lines/LineColumns.h"
#include "platform/text/Numbers.h"
#include "platform/text/PersianText.h"

namespace koru::bench {
namespace {

constexpr const char* kLinesQuery =
    "select round(ifnull(BaseValue,0),0), tblGood.Barcode, FirstCounting, SecondCounting, ThirdCounting, "
    "AcceptedCounting, SystemCounting, ContradictionCounting, ifnull(ScaleID,-1), "
    "ifnull(tblGoodScale.Name,''), "
    "ifnull(tblGood.Code,''), tblGood.Name from tblInventoryCountingDetail join tblGood on "
    "tblInventoryCountingDetail.Barcode = tblGood.Barcode left join tblGoodScale on ScaleID = "
    "tblGoodScale.ID where "
    "CountingID = 1 order by RowNumber";

constexpr int kEditedRows = 10;  ///< all of them visible
constexpr int kMovedRows = 10;   ///< all of them visible

/// Scrolls through the lines page by page and repaints each page completely.
class Paging {
 public:
  explicit Paging(GridView& lines) : lines_(lines) {}

  void ShowNextPage() {
    QScrollBar& bar = *lines_.verticalScrollBar();
    bar.setValue(bar.value() + bar.pageStep() > bar.maximum() ? 0 : bar.value() + bar.pageStep());
    lines_.viewport()->repaint();
  }

 private:
  GridView& lines_;
};

/// A table view without any code of the system, which shows the lines of a GridView with the same model, in
/// the same size and columns. It is hidden while other workloads run, which would draw its lines as well.
class BareView {
 public:
  explicit BareView(const GridView& lines) {
    view_.setModel(lines.model());
    view_.setSelectionBehavior(QAbstractItemView::SelectRows);  // redraws the current row, as the system does
    view_.setWordWrap(false);
    view_.setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    view_.verticalHeader()->hide();
    view_.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    view_.verticalHeader()->setDefaultSectionSize(lines.verticalHeader()->defaultSectionSize());
    for (int col = 0; col < lines.model()->columnCount(); ++col) {
      view_.setColumnWidth(col, lines.columnWidth(col));
      view_.setColumnHidden(col, lines.isColumnHidden(col));
    }
    view_.resize(lines.size());
  }

  [[nodiscard]] QTableView& View() { return view_; }
  void SetVisible(bool visible) {
    if (view_.isVisible() == visible) return;
    view_.setVisible(visible);
    Program::Draw();
  }

 private:
  QTableView view_;
};

/// Presses arrow keys in a view, ten lines down and ten up again, all in sight, and lets it draw what follows
/// from each.
class ArrowKeys {
 public:
  explicit ArrowKeys(QTableView& view) : view_(view) {}

  void PressNext() {
    const int inRound = keys_++ % (2 * kMovedRows);
    const bool down = inRound < kMovedRows;
    // A sort between two keys moves the current good, and with it the current row.
    const QModelIndex start =
        view_.model()->index(down ? inRound : 2 * kMovedRows - inRound, LineColumn::FirstCounting);
    if (view_.currentIndex() != start) view_.setCurrentIndex(start);
    QKeyEvent press(QEvent::KeyPress, down ? Qt::Key_Down : Qt::Key_Up, Qt::NoModifier);
    const QModelIndex before = view_.currentIndex();
    QApplication::sendEvent(&view_, &press);
    if (view_.currentIndex() == before) throw std::runtime_error("not moved");
    Program::Draw();
  }

 private:
  QTableView& view_;
  int keys_ = 0;
};

/// The lines that have the word in their name, code or barcode, byte for byte.
int LinesWith(const Grid& lines, const std::string& word) {
  int found = 0;
  for (int row = 1; row < lines.Rows(); ++row) {
    for (const int col : {+LineColumn::GoodName, +LineColumn::GoodCode, +LineColumn::Barcode}) {
      if (lines.TextMatrix(row, col).find(word) == std::string_view::npos) continue;
      ++found;
      break;
    }
  }
  return found;
}

class Showing {
 public:
  Showing(const std::string& file, const std::string& workbooks)
      : program_(file, kFullCounting, workbooks),
        few_(file, kCountingOf100, {}),
        plain_(file),
        workbooks_(workbooks),
        names_(KeysOf<std::string>(Lines(), LineColumn::GoodName, PersianSortKey)),
        rates_(KeysOf<double>(Lines(), LineColumn::Rate, Val)),
        texts_(TextsOf(Lines())) {}

  void Load() { program_.Form().FillInvCounterDetailData(kFullCounting); }
  void LoadByHand() { benchmark::DoNotOptimize(CopyTexts(plain_, kLinesQuery)); }

  /// The filter of another workload hides lines.
  void ShowAllLines() {
    if (program_.Form().Finder().IsOn()) program_.Form().Finder().txtFindLine.UserType({});
  }
  void StartAtTop() {
    ShowAllLines();
    bare_.SetVisible(false);
    SortByNumber();
    program_.Lines().verticalScrollBar()->setValue(0);
    Program::Draw();
  }
  void EditAndDraw() {
    const int row = ++edits_ % kEditedRows + 1;
    if (!Lines().UserEdit(row, LineColumn::AcceptedCounting, std::to_string(edits_)))
      throw std::runtime_error("not edited");
    Program::Draw();
  }
  void SumAndDrawPage() {
    benchmark::DoNotOptimize(SumAmounts(Lines()));
    program_.Lines().viewport()->repaint();
  }

  void SortByNumber() { Lines().Sort(LineColumn::RowNumber, SortMode::GenericAscending); }
  void SortBy(int column) {
    if (!Lines().UserClickHeader(column)) throw std::runtime_error("not sorted");
  }
  void SortNames() { benchmark::DoNotOptimize(SortReady(names_)); }
  void SortRates() { benchmark::DoNotOptimize(SortReady(rates_)); }

  void ShowBareView() {
    ShowAllLines();
    bare_.SetVisible(true);
  }
  void PressArrow() { arrows_.PressNext(); }
  void PressArrowInBareView() { bareArrows_.PressNext(); }

  void ShowPageOfFull() { pagesOfFull_.ShowNextPage(); }
  void ShowPageOfFew() { pagesOfFew_.ShowNextPage(); }

  /// Types a word into the box that finds lines, each time another one, and shows what is found.
  void FindAndDraw() {
    LineFinder& finder = program_.Form().Finder();
    if (!finder.txtFindLine.UserType(NextWord())) throw std::runtime_error("not typed");
    Program::Draw();
  }
  void PassAndDrawPage() {
    benchmark::DoNotOptimize(LinesWith(Lines(), NextWord()));
    program_.Lines().viewport()->repaint();
  }

  void RemoveWorkbooks() {
    std::filesystem::remove_all(workbooks_);
    std::filesystem::create_directories(workbooks_);
  }
  void Export() { program_.Press(program_.Form().cmdExcel); }
  void ExportByHand() { WriteWorkbookByHand(workbooks_ + "/by-hand.xlsx", texts_); }

 private:
  [[nodiscard]] Grid& Lines() { return program_.Form().flexDetail; }
  [[nodiscard]] std::string NextWord() {
    constexpr std::array<const char*, 3> kWords = {"برنج", "1", "هيچ"};  // some, most and none of the lines
    return kWords.at(words_++ % kWords.size());
  }

  Program program_;
  Program few_;
  PlainConnection plain_;
  std::string workbooks_;
  std::vector<std::pair<std::string, int>> names_;
  std::vector<std::pair<double, int>> rates_;
  std::vector<std::vector<std::string>> texts_;
  Paging pagesOfFull_{program_.Lines()};
  Paging pagesOfFew_{few_.Lines()};
  BareView bare_{program_.Lines()};
  ArrowKeys arrows_{program_.Lines()};
  ArrowKeys bareArrows_{bare_.View()};
  int edits_ = 0;
  std::size_t words_ = 0;
};

}  // namespace

std::vector<Workload> ShowingWorkloads(const std::string& fullSample, const std::string& workbooks) {
  const auto lines = std::make_shared<Showing>(fullSample, workbooks);
  const auto unsorted = [lines] {
    lines->ShowAllLines();
    lines->SortByNumber();
  };
  return {
      {"loading 32,767 lines and totals", 2, [lines] { lines->Load(); }, [lines] { lines->LoadByHand(); }},
      {"edit of an accepted count, totals, repaint", 2, [lines] { lines->EditAndDraw(); },
       [lines] { lines->SumAndDrawPage(); }, [lines] { lines->StartAtTop(); }},
      {"a filter over a full counting", 2, [lines] { lines->FindAndDraw(); },
       [lines] { lines->PassAndDrawPage(); }, [lines] { lines->StartAtTop(); }},
      {"an arrow key, 32,767 lines", 1.5, [lines] { lines->PressArrow(); },
       [lines] { lines->PressArrowInBareView(); }, [lines] { lines->ShowBareView(); }},
      {"sort by rate, 32,767 lines", 3, [lines] { lines->SortBy(LineColumn::Rate); },
       [lines] { lines->SortRates(); }, unsorted},
      {"sort by name, 32,767 lines", 3, [lines] { lines->SortBy(LineColumn::GoodName); },
       [lines] { lines->SortNames(); }, unsorted},
      {"a page of 32,767 lines beside one of 100", 1.2, [lines] { lines->ShowPageOfFull(); },
       [lines] { lines->ShowPageOfFew(); }, [lines] { lines->ShowAllLines(); }},
      {"cmdExcel, 32,767 lines", 1.5, [lines] { lines->Export(); }, [lines] { lines->ExportByHand(); },
       [lines] { lines->RemoveWorkbooks(); }}};
}

Workload SearchWorkload(const std::string& searchDatabase) {
  struct Searching {
    explicit Searching(const std::string& file) : program(file, 2, {}), plain(file) {
      program.Press(program.Form().cmdSearch);
    }
    Program program;
    PlainConnection plain;
  };
  const auto searching = std::make_shared<Searching>(searchDatabase);
  return {"counting search, 30,000 found", 2,
          [searching] {
            auto& form = dynamic_cast<frmInvSearch&>(searching->program.Shown());
            searching->program.Press(form.cmdSearch);
            if (form.flexSearch.Rows() != kCountingsFound + 1) throw std::runtime_error("not all were found");
          },
          [searching] {
            benchmark::DoNotOptimize(CopyTexts(
                searching->plain,
                "select ID, Code, ManualCode, InvName, FarsiCreateDate, FullName, FarsiFromDate, FarsiToDate,"
                " Counter1, Counter2, Counter3, Accepter from vwInventoryCounting order by ID"));
          }};
}

}  // namespace koru::bench
