#include "reports/Reports.h"

#include <array>
#include <utility>

#include "platform/print/PageSettings.h"
#include "platform/system/Clock.h"
#include "platform/text/Dates.h"
#include "platform/text/Strings.h"
#include "reports/CalculatedMonth.h"
#include "reports/DataEnv.h"
#include "reports/Layouts.h"
#include "reports/PageTexts.h"
#include "reports/ShapedData.h"
#include "session/Session.h"

namespace tevra {

namespace {

// The layouts in lei and in currency, by the code of the grouping.
using Layouts = std::array<std::pair<const char*, const char*>, 4>;

constexpr Layouts kCharges{{{"DataReportCHE", "DataReportCHEVAL"},
                            {"DataReportCHE_GR", "DataReportCHE_GR_VAL"},
                            {"DataReportCHE_LOC", "DataReportCHE_LOC_VAL"},
                            {"DataReportCHE_CC", "DataReportCHE_CC_VAL"}}};
constexpr Layouts kPurchases{{{"DataReport_STA_ACH", "DataReport_STA_ACH_VAL"},
                              {"DataReport_STA_ACH_GR", "DataReport_STA_ACH_GR_VAL"},
                              {"DataReport_STA_ACH_LOC", "DataReport_STA_ACH_LOC_VAL"},
                              {"DataReport_STA_ACH_CC", "DataReport_STA_ACH_CC_VAL"}}};
constexpr std::array<const char*, 4> kInventory{"DataReport_ObvInv_CONT", "DataReport_ObInv",
                                                "DataReport_ObInv_LOC", "DataReport_ObInv_CC"};

bool InLei(const std::string& currency) {
  return EqualNoCase(currency, kLei);
}

ReportLayout Design(const Layouts& layouts, std::uint8_t grouping, const std::string& currency) {
  const auto& [lei, other] = layouts.at(grouping);
  return LayoutNamed(InLei(currency) ? lei : other);
}

// Closes an earlier run of the command; a preview that shows it keeps its rows. All groupings of a
// report are one kind of document for the page settings.
std::unique_ptr<BandedReport> Run(ReportLayout design, const QString& title, const char* paperKind,
                                  const Values& params = {}) {
  DataEnv& environment = CurrentDataEnv();
  environment.Close(design.command);
  environment.Run(design.command, params);
  auto data = std::make_shared<ShapedData>(environment.Rs(design.command), design.group);
  auto report = std::make_unique<BandedReport>(title, std::move(design), std::move(data),
                                               clock::Today(), RememberedPageLayout(paperKind));
  report->SetPaperKind(paperKind);
  return report;
}

CalculatedMonths ReadMonths() {
  Connection connection(CurrentSession().connectionString);
  return CalculatedMonths(connection);
}

// The last day to which most assets were calculated; nothing before the first calculation.
std::optional<DateTime> DayOf(const CalculatedMonths& months) {
  const auto month = months.Most();
  return month ? std::optional(month->last) : std::nullopt;
}

// The rows of the paper may be of several months; its title names one.
void WarnOfOtherMonths(ReportLayout& design, const CalculatedMonths& months,
                       const ChargesRequest& request) {
  const long others = months.Others(request.month, request.year);
  if (others == 0) return;
  ReportControl warning{"lblAlteLuni", ControlKind::kLabel};
  warning.text = QString::fromStdString(OtherMonthsText(others, !InLei(request.currency)));
  warning.top = 43;
  warning.alignment = Qt::AlignHCenter;
  design.Section("ReportHeader").controls.push_back(warning);
}

void SetPeriod(ReportLayout& design, const PeriodRequest& request) {
  const auto set = [&](const char* label, const std::string& text) {
    design.Control("Section4", label).text = QString::fromStdString(text);
  };
  set("lblValuta", InLei(request.currency) ? kLei : request.currency);
  set("lblData1", ShortDate(request.from));
  set("lblData2", ShortDate(request.to));
}

}  // namespace

std::string MonthName(int month) {
  static constexpr std::array<const char*, 12> kNames{
      "Ianuarie", "Februarie", "Martie",     "Aprilie",   "Mai",       "Iunie",
      "Iulie",    "August",    "Septembrie", "Octombrie", "Noiembrie", "Decembrie"};
  return month >= 1 && month <= 12 ? kNames[static_cast<std::size_t>(month - 1)] : "";
}

std::unique_ptr<BandedReport> ChargesReport(const ChargesRequest& request) {
  ReportLayout design = Design(kCharges, request.grouping, request.currency);
  if (!request.detail) {
    design.Section("CH_Cont_Detail").visible = false;
    design.Control("CH_Cont_Grouping_Header", "Line5").visible = false;
  }
  const auto set = [&](const char* label, const std::string& text) {
    design.Control("ReportHeader", label).text = QString::fromStdString(text);
  };
  set("lblLuna", MonthName(request.month));
  set("lblAn", std::to_string(request.year));
  set("lblValuta", InLei(request.currency) ? kLei : request.currency);
  const CalculatedMonths months = ReadMonths();
  WarnOfOtherMonths(design, months, request);
  AddPageTexts(design, DayOf(months), !InLei(request.currency));
  return Run(std::move(design), "Cheltuieli cu amortizarea", "DataReportCHE");
}

std::unique_ptr<BandedReport> PurchasesReport(const PeriodRequest& request) {
  ReportLayout design = Design(kPurchases, request.grouping, request.currency);
  SetPeriod(design, request);
  AddPageTexts(design, DayOf(ReadMonths()), !InLei(request.currency));
  return Run(std::move(design), "Achizitii", "DataReport_STA_ACH", {request.from, request.to});
}

// One design is used for lei and for currency; its grand total is always in lei.
std::unique_ptr<BandedReport> InventoryReport(const PeriodRequest& request) {
  ReportLayout design = LayoutNamed(kInventory.at(request.grouping));
  SetPeriod(design, request);
  const bool lei = InLei(request.currency);
  design.Control("section1", "txtValoare").field = lei ? "VAL_CUMP" : "VAL_CUMP_VAL";
  design.Control("section7", "text7").field = lei ? "TVALCUMP" : "TVALCUMPVAL";
  if (!lei) design.ownTotals = "TOTAL GENERAL LEI";
  AddPageTexts(design, DayOf(ReadMonths()), false);
  return Run(std::move(design), "Obiecte de inventar", "DataReport_ObInv",
             {request.from, request.to});
}

}  // namespace tevra
