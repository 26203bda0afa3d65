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

  /// The chosen page; nothing when the user cancelled.
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

/// Asks for the page, starting from the given one, and remembers the choice for the user: for a
/// kind of document like RememberPageLayout, and also as the general page when the user asks for
/// it. Returns false and changes nothing when the user cancelled.
bool AskPageSetup(QPageLayout& layout, const std::string& kind = {});

}  // namespace tevra
