#include "app/batch/commands/Report.h"

#include <QGuiApplication>
#include <filesystem>
#include <iostream>

#include "app/batch/Refusal.h"
#include "app/batch/commands/Commands.h"
#include "platform/data/Connection.h"
#include "platform/print/PageSettings.h"
#include "platform/print/Pdf.h"
#include "platform/system/Clock.h"
#include "reports/CalculatedMonth.h"
#include "reports/ReportCurrency.h"
#include "reports/Reports.h"
#include "session/Session.h"

namespace tevra::batch {

namespace {

// Fonts need the toolkit, which needs no screen for them: whatever the environment asks for, a
// screen that is not there would end the program. The toolkit's remarks are not for the user.
class Toolkit {
 public:
  Toolkit() {
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
      // A fatal one ends the program at once: the user must see why.
      if (type == QtFatalMsg) std::cerr << text.toStdString() << std::endl;
    });
    qputenv("QT_QPA_PLATFORM", "offscreen");
    application_ = std::make_unique<QGuiApplication>(count_, arguments_);
  }

 private:
  int count_ = 1;
  char name_[12] = "tevra-batch";
  char* arguments_[2] = {name_, nullptr};
  std::unique_ptr<QGuiApplication> application_;
};

std::string CurrencyOf(Connection& connection, const std::string& written) {
  if (const auto currency = FindReportCurrency(connection, written)) return *currency;
  throw Refusal("Valuta \"" + written + "\" nu exista in lista de valute !");
}

DateTime TitleDay(Connection& connection, const std::string& written) {
  if (!written.empty()) return ParseDate(written);
  const auto month = MonthOfCharges(connection);
  return month ? month->last : clock::Today();
}

std::unique_ptr<BandedReport> MakeReport(const CommandLine& line, const Streams& streams) {
  Connection connection(CurrentSession().connectionString);
  const auto grouping = static_cast<std::uint8_t>(line.grouping);
  const std::string currency = CurrencyOf(connection, line.currency);
  if (line.report == ReportKind::Charges) {
    const DateTime day = TitleDay(connection, line.date);
    const long others = AssetsOfOtherMonths(connection, day.Month(), day.Year());
    if (others > 0) streams.err << OtherMonthsText(others) << '\n';
    return ChargesReport({grouping, currency, day.Month(), day.Year(), !line.groupsOnly});
  }
  const PeriodRequest period{grouping, currency, ParseDate(line.from), ParseDate(line.to)};
  return line.report == ReportKind::Purchases ? PurchasesReport(period) : InventoryReport(period);
}

QPageLayout PageOf(const CommandLine& line) {
  const auto orientation = line.landscape ? QPageLayout::Landscape : QPageLayout::Portrait;
  const QMarginsF margins = DefaultPageLayout().margins();
  return MakePageLayout(FindPaper(line.paper)->size, orientation, margins);
}

}  // namespace

void WriteReport(const CommandLine& line, const Streams& streams) {
  const Toolkit toolkit;
  const std::unique_ptr<BandedReport> report = MakeReport(line, streams);
  report->SetPageLayout(PageOf(line));
  SavePdf(*report, std::filesystem::absolute(line.pdf));
  const int pages = report->PageCount();
  streams.out << line.pdf << ": " << pages << (pages == 1 ? " pagina\n" : " pagini\n");
}

void WriteChargesPdf(Grouping grouping, const DateTime& day, const std::filesystem::path& file) {
  const Toolkit toolkit;
  const std::unique_ptr<BandedReport> report =
      ChargesReport({static_cast<std::uint8_t>(grouping), kLei, day.Month(), day.Year(), true});
  report->SetPageLayout(DefaultPageLayout());
  SavePdf(*report, file);
}

}  // namespace tevra::batch
