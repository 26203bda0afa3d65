// The pattern of a request for a report: what it is grouped by, its currency, often a period; then
// the preview takes the screen's place.
#pragma once

#include <QGroupBox>
#include <QPushButton>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/forms/Boxes.h"
#include "platform/forms/Form.h"
#include "platform/print/BandedReport.h"
#include "reports/CurrencyChoice.h"
#include "reports/Reports.h"

namespace tevra {

/// A choice of what the report is grouped by.
struct ReportGrouping {
  OptionButton** member;  ///< the screen's pointer to it
  const char* name;
  const char* caption;
};

/// What all requests have. A screen makes its grouping, places the controls and calls LoadRequest.
class ReportScreen : public Form {
 public:
  QGroupBox* frmOptiuni = nullptr;
  CheckBox* ckbDeviza;
  QComboBox* cboCodDeviza;

 protected:
  ReportScreen(const char* name, const QString& caption, QWidget* parent);

  /// The frame of options. Choosing one sets bGrupare to its place, from 0. `firstAgain`: also the
  /// first one, chosen again after another; else that changes the mark alone.
  QGroupBox* MakeGrouping(const std::vector<ReportGrouping>& groupings, bool firstAgain);

  /// Chooses the first grouping and the currency in lei.
  void LoadRequest();

  std::uint8_t bGrupare() const { return bGrupare_; }
  std::string Currency() const { return currency_.Currency(); }

  /// Makes the report and shows its preview in the place of this screen, which closes. Throws what
  /// `make` throws; then the screen stays.
  void ShowReport(Procedure& running, const std::function<std::unique_ptr<BandedReport>()>& make);

 private:
  CurrencyChoice currency_;
  std::vector<OptionButton*> groupings_;
  std::uint8_t bGrupare_ = 0;
};

/// A request for a report over a period, as data.
struct PeriodReportDescription {
  std::vector<ReportGrouping> groupings;
  QString options = "Optiuni";      ///< the caption of the frame with the currency
  std::vector<QWidget*> more = {};  ///< what else stands in that frame, above the currency
  std::function<std::unique_ptr<BandedReport>(const PeriodRequest& request)> report;
};

/// Period, grouping, currency, OK. A screen derives from it and calls Open at the end of its
/// constructor.
class PeriodReportScreen : public ReportScreen {
 public:
  QGroupBox* fraData = nullptr;
  DateBox* DTPickerdela = nullptr;
  DateBox* DTPickerla = nullptr;
  QGroupBox* Frame2 = nullptr;
  QPushButton* cmdCMOK = nullptr;
  QPushButton* cmdCMCancel = nullptr;

 protected:
  using ReportScreen::ReportScreen;

  void Open(PeriodReportDescription description);

 private:
  QWidget* BuildPeriod();
  QWidget* BuildOptions();
  QLayout* BuildButtons();
  void OrderControls();
  void cmdCMOK_Click(Procedure& running);

  PeriodReportDescription description_;
};

}  // namespace tevra
