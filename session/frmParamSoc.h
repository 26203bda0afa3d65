// The open company's identity, financial years, depreciation coefficients and accounts.
#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <array>
#include <map>
#include <optional>
#include <string>

#include "platform/forms/Boxes.h"
#include "platform/forms/DataCombo.h"
#include "platform/forms/Form.h"
#include "session/FinancialYears.h"

namespace tevra {

struct InfoField;

/// Each tab is saved alone. Changes that were not saved are dropped when the screen closes, once
/// the user agreed.
class frmParamSoc : public Form {
 public:
  explicit frmParamSoc(QWidget* parent = nullptr);
  ~frmParamSoc() override;

  QTabWidget* SSTab1;
  Adodc* adoInfoSoc;
  Adodc* AdoExercitiu;
  Adodc* adoCoefAD;
  Adodc* adoConfigurari;

  std::map<std::string, QLineEdit*>
      txtInfo;  ///< by field of kv_info; the names are "txt" and the field
  std::array<DateBox*, 6> DTPicker1;
  DateBox* dtpInceput;
  std::array<NumberBox*, 3> txtCoefDeg;
  std::array<DataCombo*, 3> cboCont;
  std::array<TextBox*, 3> txtConfig;  ///< the accounts; hidden
  DataCombo* cboDeviza;
  CheckBox* chkDocumentAn;  ///< CompanySetting::kDocumentWithYear
  QPushButton* cmdSalvare;
  QPushButton* cmdCancel;
  QLabel* lblStare;  ///< the result of the last save

 private:
  void Build();
  QWidget* BuildInfo();
  QGroupBox* BuildInfoFrame(const char* name, const char* caption,
                            const std::vector<InfoField>& fields);
  QWidget* BuildYears();
  QWidget* BuildCoefficients();
  QWidget* BuildAccounts();
  QWidget* BuildCharges();
  QWidget* BuildConfiguration();
  void CheckOnLeaving();
  void GuardCoefficients();
  void Form_Load();
  void LoadAccountCombos();
  void ShowAccount(std::size_t index);
  FinancialYears Years() const;
  bool Validare() const;
  std::optional<std::size_t> WrongCoefficient() const;
  std::string WrongCoefficientText(std::size_t index) const;
  bool AreCoefficientsValid();
  void ShowSaved();
  void cmdSalvare_Click(Procedure& procedure);
  void UpdateParameters(Adodc& source);
  void SaveConfiguration();

  QGroupBox* frmCoeficienti_ = nullptr;
  Adodc* adoConturi_;
  Adodc* adoDeviza_;
};

}  // namespace tevra
