// The screen of currencies and their rates.
#pragma once

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QStackedWidget>
#include <optional>
#include <string>

#include "platform/forms/Boxes.h"
#include "platform/forms/Form.h"
#include "platform/grid/DataGrid.h"
#include "reference/RatesFile.h"

namespace tevra {

/// The list of currencies, beside it the newest rates of the current one; below them the boxes for
/// a new rate or a new currency.
class frmValute : public Form {
 public:
  explicit frmValute(QWidget* parent = nullptr);
  ~frmValute() override;

  Adodc* adoValute = nullptr;
  Adodc* adoCursValute = nullptr;
  DataGrid* grdValute = nullptr;
  DataGrid* grdCursValuta = nullptr;
  QGroupBox* fraOptions = nullptr;
  OptionButton* optCurs = nullptr;
  OptionButton* optValuta = nullptr;
  QGroupBox* fraValuta = nullptr;
  TextBox* txtCodValuta = nullptr;
  TextBox* txtDenumireValuta = nullptr;
  QGroupBox* fraCurs = nullptr;
  DateBox* dteDataCurs = nullptr;
  NumberBox* txtCurs = nullptr;
  QLabel* lblValuta = nullptr;
  QLabel* Label1 = nullptr;
  QComboBox* cboNumarCursuri = nullptr;
  QPushButton* cmdCautaCurs = nullptr;
  QPushButton* cmdAdauga = nullptr;
  QPushButton* cmdPreluare = nullptr;
  QPushButton* cmdIesire = nullptr;

  std::string sCodValuta;  ///< the code of the current currency

  void pAfisareCursuri();
  void pAdaugaValuta();
  void pAdaugaCurs();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Build();
  void BuildGrids();
  QWidget* BuildRates();
  QWidget* BuildInput();
  void BuildButtons();
  void Place(QWidget* rates, QWidget* input);
  void Connect();
  void Form_Load();
  void grdValute_RowColChange();
  void cmdCautaCurs_Click();
  void cmdAdauga_Click();
  void cmdPreluare_Click();
  std::optional<RatesFile> ChosenRates();
  RatesFile RatesAt(const std::string& address);
  bool MayAddCurrency();
  bool MayAddRate();
  bool Refuse(const char* message, QWidget* box);
  void DeleteCurrency();
  void DeleteRate();
  static bool AskToDelete(const std::string& question);
  void RunTitled(const char* title, const Body& body);

  QStackedWidget* frames_ = nullptr;
  QWidget* buttons_ = nullptr;
};

}  // namespace tevra
