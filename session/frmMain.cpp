#include "session/frmMain.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>

#include "platform/forms/FormsApplication.h"
#include "platform/forms/Hourglass.h"
#include "platform/forms/Windows.h"
#include "platform/system/Desktop.h"
#include "platform/system/MessageBox.h"
#include "platform/system/Settings.h"
#include "platform/text/Strings.h"
#include "session/ApplicationFiles.h"
#include "session/Module1.h"
#include "session/Session.h"
#include "session/Version.h"
#include "session/frmAbout.h"

namespace tevra {

namespace {

constexpr int kTwips = 15;           // in a logical pixel
constexpr QSize kDecoration(8, 32);  // the desktop's window frame
constexpr const char* kMaximised = "Settings/MainMaximized";

// A missing or damaged setting gives the default.
int Pixels(const char* name, float twips) {
  const auto kept = Settings().Get(std::string("Settings/") + name);
  if (kept) {
    float read = 0;
    const auto [end, error] = std::from_chars(kept->data(), kept->data() + kept->size(), read);
    const bool whole = error == std::errc() && end == kept->data() + kept->size();
    if (whole && std::isfinite(read)) twips = read;
  }
  return static_cast<int>(std::clamp(twips, -300000.0F, 300000.0F)) / kTwips;
}

void KeepPixels(const char* name, int pixels) {
  Settings().Set(std::string("Settings/") + name, std::to_string(pixels * kTwips));
}

// Where a frame with its decoration may stand.
QRect RoomOnScreen(const QPoint& at) {
  const QScreen* shown = QApplication::screenAt(at);
  QRect area = (shown ? shown : QApplication::primaryScreen())->availableGeometry();
  area.setSize(area.size() - kDecoration);
  return area;
}

bool IsPlaceKept() {
  for (const char* name : {"MainLeft", "MainTop", "MainWidth", "MainHeight"}) {
    if (Settings().Get(std::string("Settings/") + name)) return true;
  }
  return false;
}

}  // namespace

frmMain::frmMain() {
  setObjectName("frmMain");
  mdiArea = new QMdiArea(this);
  mdiArea->setObjectName("mdiArea");
  // A list that fills the frame stays so behind a card that is opened from it.
  mdiArea->setOption(QMdiArea::DontMaximizeSubWindowOnActivation);
  mdiArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  mdiArea->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  setCentralWidget(mdiArea);
  connect(mdiArea, &QMdiArea::subWindowActivated, this,
          [this](QMdiSubWindow* window) { ChildActivated(window); });
  BuildMenu();
  sbStatusBar = statusBar();
  sbStatusBar->setObjectName("sbStatusBar");
  Panel1 = new QLabel(sbStatusBar);
  Panel1->setObjectName("Panel1");
  Panel1->setTextFormat(Qt::PlainText);
  Panel1->setMargin(2);
  sbStatusBar->addWidget(Panel1, 1);
  windows::SetHost([this](Form& form) { ShowForm(form); });
  MDIForm_Load();
}

frmMain::~frmMain() {
  windows::SetHost({});
}

// ---- The menu -----------------------------------------------------------------------------------

void frmMain::BuildMenu() {
  menuBar()->setNativeMenuBar(false);
  for (const MenuTop& top : MenuTable()) {
    QMenu* menu = menuBar()->addMenu(top.caption);
    menu->menuAction()->setObjectName(top.name);
    menu->setObjectName(QString(top.name) + "_Menu");
    items_[top.name] = menu->menuAction();
    for (const MenuItem& item : top.items) BuildMenuItem(menu, item);
    if (std::string(top.name) == "mnuWindow") windowMenu_ = menu;
  }
  connect(windowMenu_, &QMenu::aboutToShow, this, [this] { ListWindows(); });
}

void frmMain::BuildMenuItem(QMenu* menu, const MenuItem& item) {
  const bool separates = item.action == MenuAction::kSeparator;
  QAction* action = separates ? menu->addSeparator() : menu->addAction(item.caption);
  action->setObjectName(item.name);
  action->setEnabled(item.action == MenuAction::kFrame);
  items_[item.name] = action;
  if (separates) return;
  connect(action, &QAction::triggered, this,
          [this, &item] { AfterEvent(this, [this, &item] { Choose(item); }); });
}

void frmMain::SetOpener(const std::string& item, std::function<void()> opener) {
  items_.at(item)->setEnabled(!IsForbidden(item));
  openers_[item] = std::move(opener);
}

void frmMain::Choose(const MenuItem& item) {
  try {
    const Hourglass hourglass(item.hourglass);
    if (item.action == MenuAction::kFrame) return RunFrameItem(item.name);
    openers_.at(item.name)();
  } catch (const std::exception&) {
    ShowFailure(item);
  }
}

void frmMain::ShowFailure(const MenuItem& item) {
  const std::string name = item.name;
  const Procedure procedure{name + "_Click", "Form", "frmMain"};
  const Failure failure = CaughtFailure(procedure);
  if (name == "mnuCompactare") {
    MsgBoxEx("Compactarea trebuie sa fie prima operatie!", kOkOnly, " Compactare ");
    return;
  }
  item.ownErrors ? ShowShortError(failure, procedure) : ShowStandardError(failure, procedure);
}

void frmMain::RunFrameItem(const std::string& name) {
  if (name == "mnuFileExit") close();
  if (name == "mnuWindowCascade") Cascade();
  if (name == "mnuWindowTileHorizontal") Tile(false);
  if (name == "mnuWindowTileVertical") Tile(true);
  if (name == "mnuHelpContents") mnuHelpContents_Click();
  if (name == "mnuHelpAbout") frmAbout(this).ShowModal();
}

void frmMain::mnuHelpContents_Click() {
  const std::string helpFile = ProgramDirectory().string() + "\\tevra.chm";
  if (helpFile.empty()) {
    MsgBoxEx("No help file!!! ", kInformation, kApplicationTitle);
    return;
  }
  try {
    ShowInViewer(helpFile);
  } catch (const Failure& failure) {
    MsgBoxEx(failure.Description());
  }
}

void frmMain::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F1) return AfterEvent(this, [this] { mnuHelpContents_Click(); });
  QMainWindow::keyPressEvent(event);
}

// ---- Load and unload ----------------------------------------------------------------------------

void frmMain::MDIForm_Load() {
  Place();
  setWindowTitle("Tevra - " + QString::fromStdString(CurrentSession().companyName));
  ApplyRights();
  Panel1->setText("Utilizator:" + QString::fromStdString(CurrentSession().userName));
}

// Never smaller than the menu, and never outside the current screens.
void frmMain::Place() {
  setMinimumSize(std::max(menuBar()->sizeHint().width() + 8, 480), 320);
  PlaceOnScreen({Pixels("MainLeft", 1000), Pixels("MainTop", 1000), Pixels("MainWidth", 6500),
                 Pixels("MainHeight", 6500)});
  opensMaximised_ = !IsPlaceKept() || Settings().Get(kMaximised) == "1";
}

void frmMain::PlaceOnScreen(QRect place) {
  place.setSize(place.size().expandedTo(minimumSize()));
  const QRect area = RoomOnScreen(place.center());
  place.setSize(place.size().boundedTo(area.size()).expandedTo(minimumSize()));
  place.moveLeft(std::clamp(place.left(), area.left(),
                            std::max(area.left(), area.right() + 1 - place.width())));
  place.moveTop(std::clamp(place.top(), area.top(),
                           std::max(area.top(), area.bottom() + 1 - place.height())));
  move(place.topLeft());
  resize(place.size());
  placed_ = place;
}

// A frame that is too small for what it opens grows, as far as the desktop has room.
void frmMain::MakeRoomFor(const QSize& window) {
  const QSize lacking = (window - mdiArea->viewport()->size()).expandedTo({0, 0});
  const QSize room = RoomOnScreen(geometry().center()).size();
  const bool fits = size().boundedTo(room) == size();
  if (isMaximized() || isFullScreen() || lacking.isNull() || !fits) return;
  PlaceOnScreen({pos(), size() + lacking});
}

void frmMain::setVisible(bool visible) {
  if (visible && std::exchange(opensMaximised_, false)) {
    setWindowState(windowState() | Qt::WindowMaximized);
  }
  QMainWindow::setVisible(visible);
}

bool frmMain::IsForbidden(const std::string& item) const {
  const std::vector<std::string> forbidden = ForbiddenItems(CurrentSession().userType);
  return std::find(forbidden.begin(), forbidden.end(), item) != forbidden.end();
}

void frmMain::ApplyRights() {
  for (const std::string& name : ForbiddenItems(CurrentSession().userType)) {
    items_.at(name)->setEnabled(false);
  }
}

// The place to which a maximised frame can be restored. The toolkit gives it without the
// decoration: one that nobody changed is taken as it was set, or it would wander from start to
// start.
QRect frmMain::PlaceToRestore() const {
  const QRect restored = normalGeometry();
  const QPoint moved = restored.topLeft() - placed_.topLeft();
  const bool decorated = moved.x() >= 0 && moved.x() <= kDecoration.width() && moved.y() >= 0 &&
                         moved.y() <= kDecoration.height();
  return decorated && restored.size() == placed_.size() ? placed_ : restored;
}

void frmMain::MDIForm_Unload() {
  if (isMinimized()) return;
  const QRect place = isMaximized() ? PlaceToRestore() : QRect(pos(), size());
  KeepPixels("MainLeft", place.x());
  KeepPixels("MainTop", place.y());
  KeepPixels("MainWidth", place.width());
  KeepPixels("MainHeight", place.height());
  Settings().Set(kMaximised, isMaximized() ? "1" : "0");
}

void frmMain::closeEvent(QCloseEvent* event) {
  if (!ChangedScreens().empty()) {
    event->ignore();
    AskThenClose();
    return;
  }
  mdiArea->closeAllSubWindows();
  if (!mdiArea->subWindowList().isEmpty()) {
    event->ignore();
    return;
  }
  try {
    MDIForm_Unload();
  } catch (const std::exception&) {
    // A window position that cannot be stored must not prevent closing.
    ShowStandardError(CaughtFailure(), {"MDIForm_Unload", "Form", "frmMain"});
  }
  event->accept();
}

}  // namespace tevra
