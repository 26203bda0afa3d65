// The screen of the monthly charges: it starts the month's calculation, writes its postings and
// prints the depreciation of the month.
#pragma once

#include <QLabel>
#include <QPushButton>

#include "platform/forms/MonthCalendar.h"
#include "platform/text/DateTime.h"
#include "reports/ReportScreen.h"

namespace tevra {

class frmRapCHE : public ReportScreen {
 public:
  explicit frmRapCHE(QWidget* parent = nullptr);

  MonthCalendar* MonthView1;
  QLabel* lblData;
  QGroupBox* Frame1;
  QLabel* Label1;
  QGroupBox* fraDiverse;
  CheckBox* chkGenNoteContabile;
  CheckBox* ckbDetaliu;
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
  QWidget* BuildDiverse();
  QLayout* BuildButtons();
  void Connect();
  void Form_Load();
  void MonthView1_Click();
  void cmdCalcul_Click();
  void pAddNoteContabile();
  void cmdListare_Click(Procedure& running);

  /// The date selected in the calendar, at 00:00.
  DateTime SelectedDate() const;
};

}  // namespace tevra
