// The screen of the monthly charges: it starts the month's calculation, writes its postings and
// prints the depreciation of the month.
#pragma once

#include <QCalendarWidget>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <cstdint>

#include "platform/forms/Boxes.h"
#include "platform/forms/Form.h"
#include "platform/text/DateTime.h"
#include "reports/CurrencyChoice.h"

namespace tevra {

class frmRapCHE : public Form {
 public:
  explicit frmRapCHE(QWidget* parent = nullptr);

  QCalendarWidget* MonthView1;
  QLabel* lblData;
  QGroupBox* Frame1;
  QLabel* Label1;
  QGroupBox* fraDiverse;
  CheckBox* chkGenNoteContabile;
  CheckBox* ckbDetaliu;
  CheckBox* ckbDeviza;
  QComboBox* cboCodDeviza;
  QGroupBox* frmOptiuni;
  OptionButton* optCont;
  OptionButton* optCODCL;
  OptionButton* optLoc;
  OptionButton* optCC;
  QPushButton* cmdListare;
  QPushButton* cmdCalcul;
  QPushButton* cmdCMCancel;

 private:
  void Build();
  QWidget* BuildCalendar();
  QWidget* BuildOptions();
  QWidget* BuildDiverse();
  QLayout* BuildButtons();
  void Connect();
  void Form_Load();
  void MonthView1_Click();
  void cmdCalcul_Click();
  void pAddNoteContabile();
  void cmdListare_Click(Procedure& running);

  /// The date that stands in the calendar, at 00:00.
  DateTime SelectedDate() const;

  CurrencyChoice currency_;
  /// What the report is grouped by: 0 account, 1 class, 2 location, 3 cost centre.
  std::uint8_t bGrupare_ = 0;
};

}  // namespace tevra
