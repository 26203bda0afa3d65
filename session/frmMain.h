// The main frame: menu, status bar and the open screens.
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
#include "platform/forms/WindowLayout.h"
#include "session/MenuTable.h"

class QMdiSubWindow;

namespace tevra {

/// Holds no work of its own but the menu's: the screens are handed in, one opener a menu item.
/// While it lives, screens are shown among its children. Closing it asks for each screen that has
/// unsaved changes, then closes them all.
class frmMain : public QMainWindow {
  Q_OBJECT

 public:
  frmMain();
  ~frmMain() override;

  /// What an item opens or starts; may throw. An item that has no opener is disabled, and so is
  /// one that the user has no right to.
  void SetOpener(const std::string& item, std::function<void()> opener);

  QAction* Item(const std::string& name) const { return items_.at(name); }

  QMdiArea* mdiArea;
  QStatusBar* sbStatusBar;
  QLabel* Panel1;  ///< of the status bar: the user

 protected:
  void closeEvent(QCloseEvent* event) override;
  void setVisible(bool visible) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void BuildMenu();
  void BuildMenuItem(QMenu* menu, const MenuItem& item);
  void MDIForm_Load();
  void MDIForm_Unload();
  void Place();
  void PlaceOnScreen(QRect place);
  QRect PlaceToRestore() const;
  bool IsForbidden(const std::string& item) const;
  void ApplyRights();
  void ListWindows();
  void ShowForm(Form& form);
  void MakeRoomFor(const QSize& window);
  void BringToFront(QMdiSubWindow* window);
  std::vector<Form*> ChangedScreens() const;
  void AskThenClose();

  void Choose(const MenuItem& item);
  void RunFrameItem(const std::string& name);
  void ShowFailure(const MenuItem& item);
  std::vector<QMdiSubWindow*> ChildrenToArrange() const;
  std::vector<windows::WindowSize> SizesOf(const std::vector<QMdiSubWindow*>& children) const;
  QPoint PlaceBehind(const QMdiSubWindow* front, const QSize& size) const;
  void ChildActivated(QMdiSubWindow* window);
  void Cascade();
  void Tile(bool sideBySide);
  void mnuHelpContents_Click();

  std::map<std::string, QAction*> items_;
  std::map<std::string, std::function<void()>> openers_;
  QMenu* windowMenu_ = nullptr;
  QPointer<QMdiSubWindow> front_;  // the child that was brought to the front last
  QRect placed_;                   // where the program itself put it last
  bool opensMaximised_ = false;
  bool asking_ = false;  // whether the screens' changes may be lost
};

}  // namespace tevra
