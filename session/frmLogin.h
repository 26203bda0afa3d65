// The window for choosing a company and logging in.
#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <functional>
#include <optional>
#include <string>

#include "platform/forms/Boxes.h"
#include "platform/forms/Form.h"
#include "platform/grid/DataGrid.h"
#include "platform/system/Progress.h"
#include "session/CompanyRegistry.h"

namespace tevra {

/// Upgrades the structure of the session's company; throws Failure and GivenUp.
using StructureUpgrade = std::function<void(const Progress& progress)>;

/// Shown modally; a login fills the session.
class frmLogin : public Form {
 public:
  /// `upgrade` runs when the user agrees to it.
  explicit frmLogin(StructureUpgrade upgrade = {});
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
  bool RunUpgrade();

  std::optional<CompanyRegistry> registry_;
  Adodc* source_;
  StructureUpgrade upgrade_;
  bool forcedUpgrade_ = false;
  bool succeeded_ = false;
};

}  // namespace tevra
