#include <QGuiApplication>
#include <filesystem>

#include "app/batch/commands/Commands.h"
#include "platform/data/Connection.h"
#include "platform/print/Pdf.h"
#include "platform/system/Clock.h"
#include "reports/Reports.h"
#include "session/Session.h"

namespace tevra::batch {

namespace {

// Fonts need the toolkit, which needs no screen for them; its remarks are not for the user. It ends
// with the report.
class Toolkit {
 public:
  Toolkit() {
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    application_ = std::make_unique<QGuiApplication>(count_, arguments_);
  }

 private:
  int count_ = 1;
  char name_[12] = "tevra-batch";
  char* arguments_[2] = {name_, nullptr};
  std::unique_ptr<QGuiApplication> application_;
};

// The month that the figures are of: that of the last calculation.
DateTime MonthOfCharges(const std::string& written) {
  if (!written.empty()) return ParseDate(written);
  Connection connection(CurrentSession().connectionString);
  const Value last =
      connection.QueryValue("SELECT MAX(DATA_CALCUL) FROM I_IMO WHERE NOT Data_Calcul IS NULL");
  return last.IsNull() ? clock::Today() : last.AsDateTime();
}

std::unique_ptr<BandedReport> MakeReport(const CommandLine& line) {
  const auto grouping = static_cast<std::uint8_t>(line.grouping);
  if (line.report == ReportKind::Charges) {
    const DateTime month = MonthOfCharges(line.date);
    return ChargesReport({grouping, line.currency, month.Month(), month.Year(), line.detail});
  }
  const PeriodRequest period{grouping, line.currency, ParseDate(line.from), ParseDate(line.to)};
  return line.report == ReportKind::Purchases ? PurchasesReport(period) : InventoryReport(period);
}

}  // namespace

void WriteReport(const CommandLine& line, std::ostream& out) {
  const Toolkit toolkit;
  const std::unique_ptr<BandedReport> report = MakeReport(line);
  SavePdf(*report, std::filesystem::absolute(line.pdf));
  const int pages = report->PageCount();
  out << line.pdf << ": " << pages << (pages == 1 ? " pagina\n" : " pagini\n");
}

}  // namespace tevra::batch
