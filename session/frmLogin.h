// The window for choosing a company and logging in.
#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <optional>
#include <string>

#include "platform/forms/Boxes.h"
#include "platform/forms/Form.h"
#include "platform/grid/DataGrid.h"
#include "session/CompanyRegistry.h"

namespace tevra {

/// Shown modally; a login fills the session.
class frmLogin : public Form {
 public:
  frmLogin();
  ~frmLogin() override;

  bool LoginSucceeded() const { return succeeded_; }

  QGroupBox* Frame2;
  QLabel* Label1;  ///< the directory of the databases
  QPushButton* cmdCauta;
  DataGrid* TDBGrid1;
  TextBox* txtUserName;
  TextBox* txtPassword;
  QPushButton* cmdOK;
  QPushButton* cmdCancel;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void Build();
  QWidget* BuildServer();
  QLayout* BuildUser();
  void Form_Load();
  void ShowDirectory();
  void LoadSocietati();
  bool ShowSocietati();
  void RebuildSocietati();
  void TDBGrid1_RowColChange();
  void cmdCauta_Click();
  bool IsDatabaseName(const std::string& name) const;
  void cmdOK_Click();
  std::optional<bool> Asked(const char* procedure, const std::function<bool()>& question);
  bool RunOfModule(const char* name, const std::function<void()>& step);
  void CompleteLogin(Procedure& procedure);
  void VerificaVersiune();

  std::optional<CompanyRegistry> registry_;
  Adodc* source_;
  bool forcedUpgrade_ = false;
  bool succeeded_ = false;
};

}  // namespace tevra
