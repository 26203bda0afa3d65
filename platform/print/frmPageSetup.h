// Paper, orientation and margins of what is printed.
#pragma once

#include <QComboBox>
#include <QPageLayout>
#include <array>
#include <optional>
#include <string>

#include "platform/forms/Boxes.h"
#include "platform/forms/Form.h"

namespace tevra {

class frmPageSetup : public Form {
  Q_OBJECT

 public:
  /// `ofKind`: the page is that of one kind of document, and may be made the general one too.
  explicit frmPageSetup(const QPageLayout& layout, bool ofKind = false, QWidget* parent = nullptr);

  /// The page chosen; nothing when the user gave up.
  const std::optional<QPageLayout>& Chosen() const { return chosen_; }

  QComboBox* cboHartie;
  OptionButton* optPortret;
  OptionButton* optPeisaj;
  std::array<NumberBox*, 4> txtMargine;  ///< left, right, top, bottom; mm
  CheckBox* chkGeneral;                  ///< shown for the page of a kind
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

/// Asks for the page, beginning with the one given, and remembers for the user what was chosen: for
/// a kind of document as RememberPageLayout has it, and as the general page too where the user says
/// so. False, and nothing changed, when the user gave up.
bool AskPageSetup(QPageLayout& layout, const std::string& kind = {});

}  // namespace tevra
