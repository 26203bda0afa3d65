// The card of one fixed asset.
#pragma once

#include <QCheckBox>
#include <QGroupBox>
#include <QPushButton>
#include <array>
#include <set>
#include <string>

#include "platform/forms/Boxes.h"
#include "platform/forms/DataCombo.h"
#include "platform/forms/Form.h"
#include "register/AssetSave.h"
#include "register/PurchaseNote.h"

class QGridLayout;

namespace tevra {

/// What the card should open.
struct AssetToOpen {
  bool bAdaugare = true;  ///< a new asset
  std::string sNrCrt;     ///< otherwise the NRCRT of the asset
};

/// The boxes hold the data: handlers read and write them, and only the two saves convert them to
/// fields.
class frmFisaImo : public Form {
 public:
  explicit frmFisaImo(const AssetToOpen& asset, QWidget* parent = nullptr);
  ~frmFisaImo() override;

  std::array<TextBox*, text::kCount> txtText{};
  std::array<NumberBox*, number::kCount> txtNumar{};
  std::array<DateBox*, date::kCount> DTPicker1{};
  DataCombo* cboGrupa = nullptr;
  DataCombo* cboCentruCost = nullptr;
  DataCombo* cboLocalizare = nullptr;
  DataCombo* cboFurnizori = nullptr;
  DataCombo* cboTVA = nullptr;
  DataCombo* cboCont = nullptr;
  DataCombo* cboGradUtiliz = nullptr;
  QGroupBox* Frame2 = nullptr;  ///< the buttons
  QGroupBox* Frame6 = nullptr;  ///< the methods
  QGroupBox* Frame7 = nullptr;  ///< direct expense
  OptionButton* Liniara = nullptr;
  OptionButton* Accelerata = nullptr;
  OptionButton* CuUzura = nullptr;
  OptionButton* FaraUzura = nullptr;
  OptionButton* Faraam = nullptr;
  CheckBox* chkBlocata = nullptr;
  CheckBox* chkChelt = nullptr;
  QPushButton* cmdSalvare = nullptr;
  QPushButton* cmdModificare = nullptr;
  QPushButton* cmdVanzare = nullptr;
  QPushButton* cmdConservare = nullptr;
  QPushButton* cmdIesire = nullptr;

  /// True when the card may be saved; otherwise a message has said why, and the focus is in the box
  /// to correct.
  bool EsteFisaValida();

 protected:
  void Form_Activate() override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  struct ComboSource;

  // The screen.
  void Build();
  QWidget* BuildIdentity();
  QWidget* BuildPurchase();
  QWidget* BuildMethod();
  QWidget* BuildDurations();
  QWidget* BuildDates();
  QWidget* BuildExpense();
  QWidget* BuildBlocking();
  QWidget* BuildButtons();
  void MakeBoxes();
  DataCombo* MakeCombo(const char* name, const char* tag);
  OptionButton* MakeOption(Method method);
  void Arrange(bool narrow);
  void SetTabOrder();
  void Connect();

  // Loading.
  void Form_Load();
  void OpenNew();
  void OpenExisting();
  void ShowTitle();
  void LoadBoxes(const Recordset& row);
  void LoadCombos();
  std::array<ComboSource, 7> Combos() const;
  void ConnectCombos();
  void PickedInCombo(const ComboSource& combo);
  void cboGrupa_Click();

  // Boxes that are left as they were.
  void OnLeaveTouched(QWidget* box, const char* procedure, const std::function<void()>& derive);
  bool IsUntouched(const QWidget* box) const;
  void Settle();

  // The method panel.
  Method Letter() const;
  static Method MethodOf(const OptionButton* option);
  std::array<OptionButton*, 5> Options() const;
  void OptionClicked(Method method);
  void Liniara_Click();
  void MethodClick(Method method);
  void FallBackToLinear();
  void Apply(const Derived& derived, bool withReal = true);
  void txtNumar_LostFocus(number::Place left);
  void TakeRateOfDay();
  void LeaveNormalDuration();
  void LeaveRealDuration();
  void DeriveFromDuration(bool withReal);
  void DTPicker1_LostFocus(date::Place left);
  void chkBlocata_Click();
  void chkBlocata_LostFocus();
  void chkChelt_Click();

  // Saving.
  AssetCard Card() const;
  void ShowSaved(const AssetRow& row);
  void cmdSalvare_Click();
  void cmdModificare_Click();
  bool MayReplaceNotes(PurchaseNoteUse& use);
  void AddNote(const PurchaseNoteUse& agreed);
  void CurataCampuri();

  // The checks before a save.
  bool Refuse(const std::string& message, QWidget* box);
  bool RefuseNumber(number::Place place);
  bool IsNumberFromZero(number::Place place) const;
  bool AreNumbersValid();
  bool IsBlockingValid();

  AssetToOpen asset_;
  std::array<Adodc*, 7> sources_{};
  bool loading_ = false;
  bool loaded_ = false;  // the combos have their lists
  ChangeWatch settled_;  // what the boxes held when the last handler of a box left was through
  std::set<const QWidget*> touched_;  // typed in or clicked since then

  std::array<QWidget*, 7> frames_{};
  QGridLayout* grid_ = nullptr;
  int wide_ = 0;  // the smallest width at which the frames fit into two rows
  bool narrow_ = false;
};

/// Opens the card of an asset, or a card for a new one; one that is open already comes to the
/// front.
frmFisaImo& OpenAssetCard(const AssetToOpen& asset);

}  // namespace tevra
