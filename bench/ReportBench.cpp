// A report of 32,767 assets: its first page against the bare statement of its rows, and its PDF
// against the same texts painted by the toolkit alone.
//
//   bench-report [--short] [--benchmark_repetitions=N]
//
// Prints, behind the times, the pages a second against the toolkit's (at least 0.67) and, unless
// the run is short, what the first page takes longer than the statement (at most 300 ms), and the
// memory of the PDF beside that of a register four times as long.
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <cstdio>
#include <filesystem>
#include <fstream>

#include <benchmark/benchmark.h>
#include <malloc.h>
#include <sqlite3.h>

#include "bench/BareRows.h"
#include "bench/BestTimes.h"
#include "bench/GeneratedCompany.h"
#include "engine/Module3.h"
#include "platform/data/Recordset.h"
#include "platform/print/PageSettings.h"
#include "platform/print/Pdf.h"
#include "reports/Reports.h"
#include "session/Session.h"

namespace {

using namespace tevra;
using namespace tevra::bench;

const ChargesRequest kRequest{3, "LEI", 10, 2026, true};

const char* const kBareRows =
    "SELECT NRCRT, COD, DENUMIRE, VAL_AMOR_CUMULATA + VAL_RAMASA AS VAL_CUMP2, CASE WHEN BLOCATA "
    "THEN VAL_BLOCATA * COTAL_LUNARA ELSE (VAL_CUMP - VALCHELEI) * COTAL_LUNARA END AS VAL_AMOR, "
    "VAL_AMOR_CUMULATA, VAL_RAMASA, SUM(VAL_CUMP), SUM(VAL_AMOR_CUMULATA), SUM(VAL_RAMASA), "
    "COTAL_LUNARA, COD_CC FROM I_IMO GROUP BY COD, DENUMIRE, NRCRT, VAL_AMOR_CUMULATA, VAL_RAMASA, "
    "VAL_CUMP, VALCHELEI, COTAL_LUNARA, COD_CC, BLOCATA, VAL_BLOCATA ORDER BY COD_CC, NRCRT";

void FirstPage(benchmark::State& state) {
  while (state.KeepRunning()) {
    const auto report = ChargesReport(kRequest);
    report->LayOutMore();
    QImage image(800, 1130, QImage::Format_RGB32);
    QPainter painter(&image);
    PaintOnPaper(painter, *report, 0);
  }
}

void BareRows(benchmark::State& state, sqlite3* db) {
  while (state.KeepRunning()) {
    ReadBareRows(db, kBareRows);
  }
}

void Pdf(benchmark::State& state, const std::filesystem::path& file) {
  while (state.KeepRunning()) {
    const auto report = ChargesReport(kRequest);
    SavePdf(*report, file);
  }
}

// What stands on the pages, ready to be drawn.
struct Drawn {
  QRectF place;
  int alignment;
  QFont font;
  QString text;  // empty: a line
};

std::vector<std::vector<Drawn>> DrawnPages() {
  const auto report = ChargesReport(kRequest);
  report->LayOutAll();
  const QRectF area = report->PrintArea();
  std::vector<std::vector<Drawn>> pages(static_cast<std::size_t>(report->PageCount()));
  for (std::size_t page = 0; page < pages.size(); ++page) {
    for (const BandedReport::Band& band : report->BandsOf(static_cast<int>(page))) {
      for (const auto& [control, text] : band.texts) {
        if (text.isEmpty() && control->kind != ControlKind::kLine) continue;
        const QRectF place(area.left() + area.width() * control->left / 100,
                           band.top + control->top * kTwipsPerPoint,
                           area.width() * control->width / 100, band.height);
        pages[page].push_back({place, static_cast<int>(control->alignment | Qt::TextWordWrap),
                               PaperFont(control->size, control->bold), text});
      }
    }
  }
  return pages;
}

void Toolkit(benchmark::State& state, const std::vector<std::vector<Drawn>>& pages,
             const std::filesystem::path& file) {
  while (state.KeepRunning()) {
    QPdfWriter writer(QString::fromStdString(file.string()));
    writer.setPageLayout(RememberedPageLayout());
    writer.setPageMargins(QMarginsF());
    writer.setResolution(1440);
    QPainter painter(&writer);
    for (std::size_t page = 0; page < pages.size(); ++page) {
      if (page > 0) writer.newPage();
      for (const Drawn& drawn : pages[page]) {
        if (drawn.text.isEmpty()) {
          painter.drawLine(drawn.place.topLeft(), drawn.place.topRight());
          continue;
        }
        painter.setFont(drawn.font);
        painter.drawText(drawn.place, drawn.alignment, drawn.text);
      }
    }
  }
}

long ResidentKilobytes() {
  std::ifstream status("/proc/self/status");
  std::string word;
  while (status >> word) {
    if (word == "VmHWM:") {
      status >> word;
      return std::stol(word);
    }
  }
  return 0;
}

// The peak of one PDF above what the program had before.
long PeakOfPdf(const std::filesystem::path& file) {
  malloc_trim(0);
  std::ofstream("/proc/self/clear_refs") << "5";
  const long before = ResidentKilobytes();
  const auto report = ChargesReport(kRequest);
  SavePdf(*report, file);
  return ResidentKilobytes() - before;
}

long PeakWith(int assets, const std::filesystem::path& file) {
  const GeneratedCompany company(assets);
  CurrentSession().connectionString = company.ConnectionString();
  PeakOfPdf(file);  // the toolkit's own caches
  return PeakOfPdf(file);
}

template <typename... Subject>
void Once(const char* name, const Subject&... function) {
  benchmark::RegisterBenchmark(name, function...)->Unit(benchmark::kMillisecond)->Iterations(1);
}

void PrintMemory(const std::filesystem::path& file) {
  const long whole = PeakWith(RowsOf(false), file);
  const long fourfold = PeakWith(4 * RowsOf(false), file);
  std::printf("memory of the PDF, and of four times it: %ld and %ld KiB\n", whole, fourfold);
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const bool isShort = IsShort(argc, argv);
  QGuiApplication application(argc, argv);
  const std::filesystem::path file =
      std::filesystem::temp_directory_path() / ("tevra-bench-" + std::to_string(getpid()) + ".pdf");
  const GeneratedCompany company(isShort ? RowsOf(true) / 4 : RowsOf(false));
  CurrentSession().connectionString = company.ConnectionString();
  {
    Connection connection(company.ConnectionString());
    RunMonth(connection, DateTime(2026, 10, 31));
  }
  sqlite3* bare = OpenBare(company.File());
  const std::vector<std::vector<Drawn>> pages = DrawnPages();
  if (!isShort) {
    Once("first_page", FirstPage);
    Once("bare_rows", BareRows, bare);
  }
  Once("pdf", Pdf, file);
  Once("toolkit", Toolkit, pages, file);
  BestTimes times;
  RunInTurns(argc, argv, times);
  sqlite3_close(bare);

  std::printf("\npages a second, to the toolkit's:       %.2f (at least 0.67; %zu pages)\n",
              times.Of("toolkit") / times.Of("pdf"), pages.size());
  if (!isShort) {
    std::printf("first page, longer than the statement: %.0f ms (at most 300)\n",
                times.Of("first_page") - times.Of("bare_rows"));
    PrintMemory(file);
  }
  std::filesystem::remove(file);
  return 0;
}
