#include "lines/BookFigures.h"

#include <algorithm>

#include "lines/DocumentCondition.h"
#include "platform/text/Numbers.h"

namespace koru {
namespace {

/// No document records a quantity to more decimals: what a difference of sums has beyond is binary noise.
constexpr int kStockDecimals = 6;

double AsWritten(double sum) { return Val(NumberText(sum)); }

}  // namespace

BookFiguresReader::BookFiguresReader(dteInvCounting& data, const InvCountingControls& controls,
                                     std::int32_t invID)
    : data_(data), documents_(DocumentCondition(controls, invID)) {}

bool BookFiguresReader::Read(const std::vector<std::string>& barcodes, const GoOn& goOn,
                             std::vector<BookFigures>& figures) {
  if (barcodes.empty()) return true;
  const std::size_t before = figures.size();
  const std::size_t goodsOfGroup = std::max<std::size_t>(data_.StatementsPerTrip() / kFigures, 1);
  std::vector<Question> questions;
  for (std::size_t first = 0; first < barcodes.size(); first += goodsOfGroup) {
    if (!goOn(first)) return false;
    const std::size_t goods = std::min(goodsOfGroup, barcodes.size() - first);
    figures.resize(before + first + goods);
    Group group{{&barcodes[first], goods}, {&figures[before + first], goods}, {}, {}};
    questions.clear();
    for (std::size_t good = 0; good < goods; ++good) {
      for (const Figure figure : {Figure::Unit, Figure::Rate, Figure::Received, Figure::Dispatched}) {
        questions.push_back({good, figure, false});
      }
    }
    try {
      AskAll(group, questions);
    } catch (...) {
      // Answers to later statements of the same trip are dropped.
      figures.resize(before + first + group.failed.good + 1);
      if (group.failed.figure == Figure::Unit) figures.back().unit.reset();
      if (group.failed.figure <= Figure::Rate) figures.back().rate.reset();
      figures.back().bookStock.reset();
      throw;
    }
  }
  return true;
}

double BookFiguresReader::BookStock(const std::string& barcode) {
  std::vector<BookFigures> figures(1);
  Group group{{&barcode, 1}, figures, {}, {}};
  AskAll(group, std::vector<Question>{{0, Figure::Received, false}, {0, Figure::Dispatched, false}});
  return figures.front().bookStock.value_or(0);
}

void BookFiguresReader::AskAll(Group& group, std::span<const Question> questions) {
  group.received.resize(group.barcodes.size());
  const std::size_t perTrip = data_.StatementsPerTrip();
  for (; questions.size() > perTrip; questions = questions.subspan(perTrip)) {
    Ask(group, questions.first(perTrip));
  }
  Ask(group, questions);
}

void BookFiguresReader::Ask(Group& group, std::span<const Question> questions) {
  std::vector<SqlText> statements;
  statements.reserve(questions.size());
  for (const Question& question : questions) {
    statements.push_back(StatementOf(question, group.barcodes[question.good]));
  }
  std::vector<Question> second;
  std::size_t answered = 0;
  const auto take = [&](std::size_t i, const Recordset& found) {
    if (!Take(group, questions[i], found) && !questions[i].isSecond) {
      second.push_back({questions[i].good, questions[i].figure, true});
    }
    answered = i + 1;
  };
  try {
    data_.rssqlCommon.OpenAll(statements, take);
  } catch (...) {
    group.failed = questions[std::min(answered, questions.size() - 1)];
    // One by one, these would have been asked before the failing statement.
    if (!second.empty()) Ask(group, second);
    throw;
  }
  if (!second.empty()) Ask(group, second);
}

SqlText BookFiguresReader::StatementOf(const Question& question, std::string_view barcode) const {
  switch (question.figure) {
    case Figure::Unit:
      if (question.isSecond) {
        return SqlText("Select ID,Name from tblGoodScale Where isnull(ScaleToBaseParent,0)=1 Order by ID");
      }
      return SqlText(
                 "Select ID,Name from tblGoodScale Where isnull(ScaleToBaseParent,0)=1 and ID in "
                 "(Select ScaleID from tblGoodSaleScale Where Barcode = '") +
             Typed(barcode) + "')";
    case Figure::Rate:
      return (question.isSecond ? SqlText("Select isnull(Value,0) as Value from tblInventoryReceiptDetail,"
                                          "tblInventoryReceipt Where ID=ReceiptID and Barcode='")
                                : SqlText("Select isnull(Value,0) as Value from tblInventoryDispatchDetail,"
                                          "tblInventoryDispatch Where ID=DispatchID and Barcode='")) +
             Typed(barcode) + "' and Isnull(Value,0)>0 and " + documents_ + ")) Order By ReceiveDate Desc";
    case Figure::Received:
      return SqlText(
                 "Select isnull(sum(isnull(Qty,0)),0) as Qty from tblInventoryReceiptDetail where "
                 "LTrim(RTrim(Barcode))='") +
             Typed(barcode) + "' and ReceiptID in (select ID from tblInventoryReceipt where " + documents_ +
             ")))";
    case Figure::Dispatched:
      break;
  }
  return SqlText(
             "Select isnull(sum(isnull(Qty,0)),0) as Qty from tblInventoryDispatchDetail where "
             "LTrim(RTrim(Barcode))='") +
         Typed(barcode) + "' and DispatchID in (select ID from tblInventoryDispatch where " + documents_ +
         ")))";
}

bool BookFiguresReader::Take(Group& group, const Question& question, const Recordset& found) {
  BookFigures& figures = group.figures[question.good];
  switch (question.figure) {
    case Figure::Unit:
      if (found.RecordCount() == 0) return false;
      figures.unit = {found.Field("Name").Text(), found.Field("ID").Text()};
      return true;
    case Figure::Rate:
      if (found.RecordCount() == 0) return false;
      figures.rate = found.Field("Value").Text();
      return true;
    case Figure::Received:
      group.received[question.good] = found.Field("Qty").Number();
      return true;
    case Figure::Dispatched:
      break;
  }
  const double received = AsWritten(group.received[question.good]);
  figures.bookStock = Round(received - AsWritten(found.Field("Qty").Number()), kStockDecimals);
  return true;
}

}  // namespace koru
