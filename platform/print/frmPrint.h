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

  /// The print job; nothing when the user cancelled.
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

/// A progress window for work on pages.
ProgressWords PageWords();

/// Asks and prints; shows a message when there is no printer. Throws like PrintDocument.
void PrintAsked(PagedDocument& document, QWidget* parent);

}  // namespace tevra
