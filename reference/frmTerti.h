// The screen of clients and suppliers.
#pragma once

#include <QGroupBox>
#include <array>
#include <string>

#include "platform/screens/ListScreen.h"
#include "reference/ThirdParties.h"
#include "session/CodeEditors.h"

namespace tevra {

/// A list with search, and below it a form with all fields of the selected third party. The empty
/// form takes a new one.
class frmTerti : public ListScreen {
 public:
  explicit frmTerti(QWidget* parent = nullptr);

  DataGrid* TDBGrid1 = nullptr;
  std::array<TextBox*, party::kCount> txtFields{};
  TextBox* TextCT = nullptr;
  QGroupBox* fraTert = nullptr;
  QGroupBox* fraAdresaFacturare = nullptr;
  QGroupBox* fraAdresaLivrare = nullptr;
  QPushButton* cmdListare = nullptr;
  QPushButton* cmdAdauga = nullptr;
  QPushButton* cmdModifica = nullptr;
  QPushButton* cmdSterge = nullptr;
  QPushButton* cmdIesire = nullptr;

  /// Calls `added` for each third party that the user adds, and goes to the name.
  void WhenAdded(CodeAdded added);

  /// True when the form has a name.
  bool EsteTertValid() const;
  void AdaugaSocietate();
  /// Empties the form, ready for a new supplier.
  void CurataCampuri();
  /// Lists the third parties whose names begin with the text of txtCautare.
  void Cautare();
  /// Selects the third party with a code in the list and empties the form.
  void Pozitionare(const std::string& code);

 private:
  ListDescription Describe();
  std::vector<ListButton> Buttons();
  void BuildForm();
  void MakeBoxes();
  void PlaceMain();
  static void PlaceAddress(QGroupBox* frame, const std::array<TextBox*, 4>& boxes);
  void Connect();
  void OrderForm();

  void RowSelected(const std::string& key) override;
  void cmdCauta_Click(Procedure& running) override;
  void TDBGrid1_SelChange();
  bool txtFields_Validate();
  void cmdAdauga_Click();
  void cmdModifica_Click();
  void cmdSterge_Click();

  std::string CurrentCode() const;
  std::string Question() const;
  Party Typed() const;
  void Show(const Party& party);
  bool MayDropTyping() const;
  void GoTo(const std::string& code);
  void RunTitled(const char* title, const Body& body);

  QWidget* form_ = nullptr;
  CodeAdded added_;
  bool positioning_ = false;  // the selection is being moved by the screen
  bool following_ = false;    // the form is about to follow the selection
};

}  // namespace tevra
