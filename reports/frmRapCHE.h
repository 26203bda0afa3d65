// The screen of the monthly charges: it starts the month's calculation and
// writes its postings.
#pragma once

#include <QCalendarWidget>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

#include "platform/forms/Boxes.h"
#include "platform/forms/Form.h"
#include "platform/text/DateTime.h"

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
  QPushButton* cmdCalcul;
  QPushButton* cmdCMCancel;

 private:
  void Build();
  void Form_Load();
  void MonthView1_Click();
  void cmdCalcul_Click();
  void pAddNoteContabile();

  /// The date that stands in the calendar, at 00:00.
  DateTime SelectedDate() const;
};

}  // namespace tevra
