// The disposal of one fixed asset: scrapping or sale.
#pragma once

#include <QLabel>
#include <QPushButton>
#include <array>
#include <optional>
#include <string>

#include "accounting/NotePreview.h"
#include "platform/forms/Boxes.h"
#include "platform/forms/DataCombo.h"
#include "platform/forms/Form.h"
#include "register/AssetDisposal.h"

namespace tevra {

/// Brings the asset up to the day of leaving, takes the data of a sale, and shows the notes before
/// they are written. Handlers keep the order of the steps; AssetDisposal computes and writes.
class frmIesireImo : public Form {
 public:
  /// `nrCrt`: the NRCRT of the asset.
  explicit frmIesireImo(std::int32_t nrCrt, QWidget* parent = nullptr);
  ~frmIesireImo() override;

  Adodc* adoImobilizare = nullptr;
  Adodc* adoTVA = nullptr;  ///< the chosen VAT rate
  TextBox* txtNrInv = nullptr;
  TextBox* txtDenumire = nullptr;
  OptionButton* Casare = nullptr;
  OptionButton* Vanzare = nullptr;
  TextBox* txtOut = nullptr;  ///< hidden: "C" or "V"
  DateBox* DTPicker1 = nullptr;
  DataCombo* cboIDClient = nullptr;
  TextBox* txtDocIesire = nullptr;
  std::array<NumberBox*, amount::kCount> txtValoare{};
  NumberBox* TextCump = nullptr;
  NumberBox* TextCumpDev = nullptr;
  DataCombo* cboCheltuieli = nullptr;
  DataCombo* cboClient = nullptr;
  DataCombo* cboVenituri = nullptr;
  DataCombo* cboTVA = nullptr;
  std::array<TextBox*, account::kCount> txtCont{};  ///< hidden: the values of the four combos
  NumberBox* txtProcent = nullptr;
  NumberBox* txtTVA = nullptr;
  QLabel* lblIesita = nullptr;   ///< shown for an asset that has left before
  QLabel* lblAtentie = nullptr;  ///< what looks wrong in the notes
  NotePreview* notePreview = nullptr;
  QPushButton* cmdSalvare = nullptr;
  QPushButton* cmdIesire = nullptr;

 protected:
  void Form_Activate() override;

 private:
  // The screen.
  void Build();
  void MakeBoxes();
  QWidget* BuildAsset();
  QWidget* BuildExit();
  QWidget* BuildAccounts();
  QWidget* BuildButtons();
  DataCombo* MakeCombo(const char* name);
  NumberBox* MakeAmount(const char* name);
  void Connect();
  void ConnectCombos();

  // Loading.
  void Form_Load();
  void Casare_Click();
  void Vanzare_Click();
  void LoadCombo(std::size_t source, DataCombo& combo, const char* statement,
                 const char* listField = "CONT_TITLU", const char* boundColumn = "CONT");
  void LoadAllAccounts();
  std::optional<DisposalAsset> Calculate();
  void ReadDepreciationAccount();
  void ShowResidual(const DisposalAsset& asset);
  void ShowLeftBefore();
  void ShowNotes();

  // Boxes that are left, rows that are picked.
  void DTPicker1_LostFocus();
  bool txtValoare_LostFocus(amount::Place left);
  void DeriveForeignPrice(double rate);
  void DeriveDifferences(double rate);
  void cboTVA_Click();

  // Saving.
  Disposal Contents() const;
  void cmdSalvare_Click(Procedure& running);
  bool Refused(const std::optional<DisposalRefusal>& refusal);
  bool Save(const Disposal& disposal);
  void AddNotes(const Disposal& sale, double rate, const SaleNoteUse& agreed);

  std::int32_t nrCrt_;
  std::array<Adodc*, 5> sources_{};
  std::string sCont_;    // CONT of the asset, as Vanzare has read it
  std::string sCodCC_;   // its COD_CC
  double noteRate_ = 0;  // of the notes that are shown
  std::optional<std::string> depreciationAccount_;
  std::optional<DisposalAsset> shown_;  // to which the boxes of the values belong
  std::optional<DateTime> calculated_;  // the date to which the shown residual value belongs
  bool loading_ = false;
};

/// Opens the disposal of an asset; one that is open already comes to the front.
frmIesireImo& OpenDisposal(std::int32_t nrCrt);

}  // namespace tevra
