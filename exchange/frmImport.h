// The screen that takes in the file of a branch.
#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QTableWidget>
#include <optional>
#include <string>

#include "exchange/ExchangeHeader.h"
#include "exchange/ImportFile.h"
#include "platform/data/Connection.h"
#include "platform/forms/Boxes.h"
#include "platform/forms/DateBox.h"
#include "platform/forms/Form.h"

namespace tevra {

/// Choosing a file tries the import and takes it back, to show what it would change. The button
/// writes it, if it would still change the same.
class frmImport : public Form {
  Q_OBJECT

 public:
  explicit frmImport(QWidget* parent = nullptr);

  QGroupBox* frmSelFile;
  TextBox* txtFileName;
  QPushButton* cmdSelFile;
  QGroupBox* frmInfo;
  TextBox* txtCodSocietate;
  TextBox* txtDeLa;
  TextBox* txtPanaLa;
  OptionButton* optDa;
  OptionButton* optNu;
  QGroupBox* frmModificari;
  QTableWidget* grdModificari;  ///< what is new, and the third parties with their codes here
  QLabel* lblLinii;             ///< the lines: new, replaced, their sums
  QLabel* lblStare;             ///< what stands against the import, with file and place
  QPushButton* cmdImport;
  QPushButton* cmdIesire;

 private:
  void Build();
  void BuildHeader();
  void BuildChanges();
  void Place();
  void Form_Load();
  void cmdSelFile_Click(Procedure& running);
  bool GetXMLHeader(const HeaderTexts& texts);
  void ShowHeader();
  void cmdImport_Click(Procedure& running);
  bool MayImport();
  void Preview();
  Imported Import(bool dryRun);
  StepRunner ToMessages();
  StepRunner ToLabel();
  void ShowChanges();
  void Clear();
  void Tell(const std::string& text);

  Connection connection_;
  std::string file_;
  ExchangeHeader header_;
  std::optional<ImportChanges> shown_;
};

}  // namespace tevra
