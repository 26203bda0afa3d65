// Which printer, which pages, how many copies.
#pragma once

#include <QComboBox>
#include <QSpinBox>
#include <optional>

#include "platform/forms/Boxes.h"
#include "platform/forms/Form.h"
#include "platform/forms/frmProgress.h"
#include "platform/print/Printing.h"

namespace tevra {

class frmPrint : public Form {
  Q_OBJECT

 public:
  explicit frmPrint(PagedDocument& document, QWidget* parent = nullptr);

  /// What to print; nothing when the user gave up.
  const std::optional<PrintJob>& Chosen() const { return chosen_; }

  QComboBox* cboImprimanta;
  OptionButton* optToate;
  OptionButton* optInterval;
  QSpinBox* txtDeLa;
  QSpinBox* txtPanaLa;
  QSpinBox* txtExemplare;
  QPushButton* cmdTiparire;
  QPushButton* cmdRenunta;

 private:
  void Build();
  QWidget* BuildPages();
  void cmdTiparire_Click();

  PagedDocument& document_;
  std::optional<PrintJob> chosen_;
};

/// How far work on pages is.
ProgressWords PageWords();

/// Asks and prints; where there is no printer, says so. Throws as PrintDocument.
void PrintAsked(PagedDocument& document, QWidget* parent);

}  // namespace tevra
