// The main frame: menu, status bar and the screens among which a user works.
#pragma once

#include <QAction>
#include <QLabel>
#include <QMainWindow>
#include <QMdiArea>
#include <QPointer>
#include <QStatusBar>
#include <functional>
#include <map>
#include <string>

#include "platform/forms/Form.h"
#include "session/MenuTable.h"

class QMdiSubWindow;

namespace tevra {

/// Holds no work of its own but the menu's: the screens are handed in, one opener a menu item.
/// While it lives, screens are shown among its children. Closing it closes them.
class frmMain : public QMainWindow {
  Q_OBJECT

 public:
  frmMain();
  ~frmMain() override;

  /// What an item opens or starts; may throw. An item that is told nothing says that its screen is
  /// still to come.
  void SetOpener(const std::string& item, std::function<void()> opener);

  QAction* Item(const std::string& name) const { return items_.at(name); }

  QMdiArea* mdiArea;
  QStatusBar* sbStatusBar;
  QLabel* Panel1;  ///< of the status bar: the user

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void BuildMenu();
  void BuildMenuItem(QMenu* menu, const MenuItem& item);
  void MDIForm_Load();
  void MDIForm_Unload();
  void Place();
  void ApplyRights();
  void ListWindows();
  void ShowForm(Form& form);

  void Choose(const MenuItem& item);
  void RunFrameItem(const std::string& name);
  void ShowNotYet(const MenuItem& item);
  void ShowFailure(const MenuItem& item);
  void Preluare_Click();
  std::vector<QMdiSubWindow*> ChildrenToArrange() const;
  QPoint PlaceBehind(const QMdiSubWindow* front, const QSize& size) const;
  void ChildActivated(QMdiSubWindow* window);
  void Cascade();
  void Tile(bool sideBySide);
  void mnuHelpContents_Click();

  std::map<std::string, QAction*> items_;
  std::map<std::string, std::function<void()>> openers_;
  QMenu* windowMenu_ = nullptr;
  QPointer<QMdiSubWindow> front_;  // the child that came to the front last
};

}  // namespace tevra
