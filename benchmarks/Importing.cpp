#include "benchmarks/Importing.h"

#include <benchmark/benchmark.h>
#include <zip.h>

#include <QByteArray>
#include <QXmlStreamReader>
#include <memory>
#include <stdexcept>

#include "adapters/sheet/TableFile.h"
#include "adapters/xlsx/WorkbookFile.h"
#include "benchmarks/Countings.h"
#include "benchmarks/Program.h"
#include "benchmarks/WorkbookByHand.h"
#include "lines/CountImport.h"

namespace koru::bench {
namespace {

class Importing {
 public:
  Importing(const std::string& file, std::string workbook)
      : program_(file, kFullCounting, {}), workbook_(std::move(workbook)) {
    program_.Edit();
    SheetTexts texts = TextsOf(Lines());
    for (std::size_t row = 1; row < texts.size(); ++row)
      texts[row][LineColumn::ThirdCounting] = std::to_string(row % 1000) + ".25";
    const std::string failure = WriteWorkbook(workbook_, "counts", texts);
    if (!failure.empty()) throw std::runtime_error(failure);
  }

  /// Empties the column, so that each figure is entered anew.
  void StartAnew() {
    const GridRedrawOff redrawOff(Lines());
    for (int row = 1; row < Lines().Rows(); ++row) Lines().SetTextMatrix(row, LineColumn::ThirdCounting, {});
  }

  void Import() {
    const auto table = ReadTableFile(workbook_, 0, [](int) { return true; });
    const auto plan = PlanImport(*table, FindColumns(*table), {}, Lines());
    if (ApplyImport(plan, Lines()).stored != Lines().Rows() - 1) throw std::runtime_error("not imported");
    Program::Draw();
  }

  void ReadByHand() const {
    zip_t* const archive = zip_open(workbook_.c_str(), ZIP_RDONLY, nullptr);
    zip_stat_t size;
    constexpr const char* kSheet = "xl/worksheets/sheet1.xml";
    if (archive == nullptr || zip_stat(archive, kSheet, 0, &size) != 0)
      throw std::runtime_error("no workbook: " + workbook_);
    QByteArray xml(static_cast<qsizetype>(size.size), '\0');
    zip_file_t* const part = zip_fopen(archive, kSheet, 0);
    if (zip_fread(part, xml.data(), size.size) < 0) throw std::runtime_error("not read: " + workbook_);
    zip_fclose(part);
    zip_discard(archive);
    qsizetype length = 0;
    for (QXmlStreamReader reader(xml); !reader.atEnd(); reader.readNext()) length += reader.text().size();
    benchmark::DoNotOptimize(length);
  }

 private:
  [[nodiscard]] Grid& Lines() const { return program_.Form().flexDetail; }

  Program program_;
  std::string workbook_;
};

}  // namespace

Workload ImportWorkload(const std::string& fullSample, const std::string& workbook) {
  const auto importing = std::make_shared<Importing>(fullSample, workbook);
  Workload workload{"counts from a workbook, 32,767 rows", 2, [importing] { importing->Import(); },
                    [importing] { importing->ReadByHand(); }, [importing] { importing->StartAnew(); }};
  workload.maxMs = 2000;
  return workload;
}

}  // namespace koru::bench
