// The card of one inventory object.
#pragma once

#include <QGroupBox>
#include <QPushButton>
#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "accounting/DocumentUse.h"
#include "accounting/NotePreview.h"
#include "inventory/ObjectLists.h"
#include "inventory/ObjectSave.h"
#include "platform/forms/Boxes.h"
#include "platform/forms/DataCombo.h"
#include "platform/forms/Form.h"

namespace tevra {

/// What the card should open.
struct ObjectToOpen {
  bool bAdaugare = true;  ///< a new object
  std::string sNrCrt;     ///< otherwise the NRCRT of the object
};

/// The boxes hold the data. Below them stands the note that the card would write: the purchase of a
/// new object, the write-off of an existing one.
class frmObInvFisa : public Form {
 public:
  explicit frmObInvFisa(const ObjectToOpen& object, QWidget* parent = nullptr);
  ~frmObInvFisa() override;

  std::int32_t ID = 0;    ///< the NRCRT of the object; 0 for a new one
  bool bBlocata = false;  ///< the object was written off when the card opened

  std::array<TextBox*, object::kTexts> txtText{};
  std::array<NumberBox*, object::kNumbers> txtNumar{};
  std::array<DateBox*, object::kDates> DTPicker1{};
  DataCombo* cboCentruCost = nullptr;
  DataCombo* cboLocalizare = nullptr;
  DataCombo* cboFurnizori = nullptr;
  DataCombo* cboTVA = nullptr;
  DataCombo* cboCont = nullptr;
  CheckBox* chKCasare = nullptr;
  QGroupBox* Frame1 = nullptr;  ///< all boxes but those of the exit
  QGroupBox* Frame5 = nullptr;  ///< the exit
  QPushButton* cmdSalvare = nullptr;
  QPushButton* cmdModificare = nullptr;
  QPushButton* cmdDescarcare = nullptr;
  QPushButton* cmdVanzare = nullptr;
  QPushButton* cmdConservare = nullptr;
  QPushButton* cmdIesire = nullptr;
  NotePreview* grdNota = nullptr;

  /// True when the card may be saved; otherwise a message has said why, and the focus is in the box
  /// to correct.
  bool EsteFisaValida();

 protected:
  void Form_Activate() override;

 private:
  // The screen.
  void Build();
  void MakeBoxes();
  QWidget* BuildObject();
  QWidget* BuildExit();
  QWidget* BuildNote();
  QWidget* BuildButtons();
  void SetTabOrder();
  void Connect();

  // Loading.
  void Form_Load();
  void OpenNew();
  void OpenExisting();
  void LoadCombos();
  std::array<DataCombo*, 5> Combos() const;
  void PickedInCombo(std::size_t combo);
  void txtNumar_LostFocus(object::Number left);

  // Saving.
  ObjectCard Card() const;
  bool Refuse(const ObjectRefusal& refusal);
  void cmdSalvare_Click(Procedure& running);
  void cmdModificare_Click();
  void cmdDescarcare_Click(Procedure& running);
  void AddNote(const DocumentUse& agreed);
  void CurataCampuri();

  // The note.
  void ShowNote();
  std::string WhyNoNote(const ObjectCard& card, Note& note);
  const std::optional<std::string>& ExpenseAccount(const std::string& account);

  bool bAdaugare_;
  bool writtenOff_ = false;  // bBlocata, or written off on this card
  bool loaded_ = false;      // the combos have their lists
  std::array<Adodc*, 5> sources_{};
  std::array<bool, 2> typed_{};   // value and rate were typed since they were left last
  std::array<Value, 2> derived_;  // value and rate when the value in currency was last derived
  QGroupBox* noteFrame_ = nullptr;
  // An account and its expense account as they were read last.
  std::optional<std::pair<std::string, std::optional<std::string>>> expense_;
};

/// Opens the card of an object, or a card for a new one; one that is open already comes to the
/// front.
frmObInvFisa& OpenObjectCard(const ObjectToOpen& object);

}  // namespace tevra
