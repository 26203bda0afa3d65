// Paper, orientation and margins of what is printed.
#pragma once

#include <QComboBox>
#include <QPageLayout>
#include <array>
#include <optional>

#include "platform/forms/Boxes.h"
#include "platform/forms/Form.h"

namespace tevra {

class frmPageSetup : public Form {
  Q_OBJECT

 public:
  explicit frmPageSetup(const QPageLayout& layout, QWidget* parent = nullptr);

  /// The page chosen; nothing when the user gave up.
  const std::optional<QPageLayout>& Chosen() const { return chosen_; }

  QComboBox* cboHartie;
  OptionButton* optPortret;
  OptionButton* optPeisaj;
  std::array<NumberBox*, 4> txtMargine;  ///< left, right, top, bottom; mm
  QPushButton* cmdAccept;
  QPushButton* cmdRenunta;

 private:
  void Build();
  QWidget* BuildMargins();
  void Fill(const QPageLayout& layout);
  void cmdAccept_Click();
  bool Validare();

  std::optional<QPageLayout> chosen_;
};

/// Asks for the page, beginning with the one given, and remembers for the user what was chosen.
/// False, and nothing changed, when the user gave up.
bool AskPageSetup(QPageLayout& layout);

}  // namespace tevra
