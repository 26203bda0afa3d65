#include "session/frmMain.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <charconv>
#include <cmath>

#include "platform/data/Connection.h"
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

constexpr int kTwips = 15;           // of a logical pixel
constexpr int kStep = 28;            // from one child's title to the next
constexpr QSize kDecoration(8, 32);  // what a desktop puts around a window

// A setting that is missing or damaged gives the default.
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

QString Plain(const char* caption) {
  return QString(caption).remove('&').trimmed();
}

}  // namespace

frmMain::frmMain() {
  setObjectName("frmMain");
  mdiArea = new QMdiArea(this);
  mdiArea->setObjectName("mdiArea");
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
  action->setEnabled(item.action != MenuAction::kNone);
  items_[item.name] = action;
  if (!separates) connect(action, &QAction::triggered, this, [this, &item] { Choose(item); });
}

void frmMain::SetOpener(const std::string& item, std::function<void()> opener) {
  items_.at(item);
  openers_[item] = std::move(opener);
}

void frmMain::Choose(const MenuItem& item) {
  try {
    const Hourglass hourglass(item.hourglass);
    if (item.action == MenuAction::kFrame) return RunFrameItem(item.name);
    const auto opener = openers_.find(item.name);
    if (opener == openers_.end()) return ShowNotYet(item);
    opener->second();
  } catch (const std::exception&) {
    ShowFailure(item);
  }
}

void frmMain::ShowNotYet(const MenuItem& item) {
  MsgBoxEx("Ecranul \"" + Plain(item.caption).toStdString() +
               "\" nu este disponibil in aceasta versiune a programului !",
           kInformation);
}

void frmMain::ShowFailure(const MenuItem& item) {
  const Failure failure = CaughtFailure();
  const std::string name = item.name;
  if (name == "mnuCompactare") {
    MsgBoxEx("Compactarea trebuie sa fie prima operatie!", kOkOnly, " Compactare ");
    return;
  }
  const Procedure procedure{name + "_Click", "Form", "frmMain"};
  item.ownErrors ? ShowShortError(failure, procedure) : ShowStandardError(failure, procedure);
}

void frmMain::RunFrameItem(const std::string& name) {
  if (name == "mnuFileExit") close();
  if (name == "Preluare") Preluare_Click();
  if (name == "mnuWindowCascade") Cascade();
  if (name == "mnuWindowTileHorizontal") Tile(false);
  if (name == "mnuWindowTileVertical") Tile(true);
  if (name == "mnuHelpContents") mnuHelpContents_Click();
  if (name == "mnuHelpAbout") frmAbout(this).ShowModal();
}

// The lower limit of the catalogue of HG 2139/2004 becomes the normal duration.
void frmMain::Preluare_Click() {
  Connection connection(CurrentSession().connectionString);
  Transaction transaction(connection);
  const std::int64_t changed =
      connection.Execute("Update I_CLASIFICARE Set DURNOR_NOU = LIM_INF WHERE LIM_INF IS NOT NULL");
  transaction.Commit();
  connection.Close();
  MsgBoxEx("Au fost modificate Duratele normale de functionare pentru " + std::to_string(changed) +
           " imobilizari ");
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
  if (event->key() == Qt::Key_F1) return mnuHelpContents_Click();
  QMainWindow::keyPressEvent(event);
}

// ---- Children -----------------------------------------------------------------------------------

void frmMain::ShowForm(Form& form) {
  for (QMdiSubWindow* window : mdiArea->subWindowList()) {
    if (window->widget() != &form) continue;
    if (window->isMinimized()) window->showNormal();
    mdiArea->setActiveSubWindow(window);
    return;
  }
  const QSize wanted = form.size().expandedTo(form.minimumSizeHint());
  const QMdiSubWindow* front = mdiArea->activeSubWindow();
  QMdiSubWindow* window = mdiArea->addSubWindow(&form);
  window->setAttribute(Qt::WA_DeleteOnClose);
  window->setWindowIcon(windowIcon());
  // The size is the screen's own, as far as the frame has room.
  const QSize frame = window->sizeHint() - form.sizeHint();
  window->resize((wanted + frame).boundedTo(mdiArea->viewport()->size()));
  // A screen that closes itself takes its window along.
  connect(
      &form, &Form::Closed, window, [window] { window->close(); }, Qt::QueuedConnection);
  window->show();
  form.show();
  window->move(PlaceBehind(front, window->size()));
  mdiArea->setActiveSubWindow(window);
}

// A title lower than the child in front, as far as the frame has room: never half outside.
QPoint frmMain::PlaceBehind(const QMdiSubWindow* front, const QSize& size) const {
  if (!front || front->isMaximized() || front->isMinimized()) return {};
  const QPoint wanted = front->pos() + QPoint(kStep, kStep);
  const QSize room = mdiArea->viewport()->size() - size;
  return {std::clamp(wanted.x(), 0, std::max(0, room.width())),
          std::clamp(wanted.y(), 0, std::max(0, room.height()))};
}

// A message takes the activation away and gives it back to the same child: that is no change.
void frmMain::ChildActivated(QMdiSubWindow* window) {
  if (!window || window == front_) return;
  front_ = window;
  if (auto* form = qobject_cast<Form*>(window->widget())) form->Activate();
}

// Minimised children stay as they are, maximised ones take their own size.
std::vector<QMdiSubWindow*> frmMain::ChildrenToArrange() const {
  std::vector<QMdiSubWindow*> children;
  for (QMdiSubWindow* window : mdiArea->subWindowList(QMdiArea::StackingOrder)) {
    if (window->isMinimized()) continue;
    if (window->isMaximized()) window->showNormal();
    children.push_back(window);
  }
  return children;
}

// Each a title lower than the one before, the active one last; their sizes stay where they fit.
void frmMain::Cascade() {
  const QSize area = mdiArea->viewport()->size();
  QPoint at;
  for (QMdiSubWindow* window : ChildrenToArrange()) {
    window->resize(window->size().boundedTo(area));
    if (at.x() + window->width() > area.width() || at.y() + window->height() > area.height()) {
      at = {};
    }
    window->move(at);
    at += QPoint(kStep, kStep);
  }
}

// Across: each as wide as the area, one under the other.
void frmMain::Tile(bool sideBySide) {
  const std::vector<QMdiSubWindow*> children = ChildrenToArrange();
  const QRect area = mdiArea->viewport()->rect();
  const int count = static_cast<int>(children.size());
  for (int i = 0; i < count; ++i) {
    QMdiSubWindow* window = children[static_cast<std::size_t>(i)];
    const int from = (sideBySide ? area.width() : area.height()) * i / count;
    const int to = (sideBySide ? area.width() : area.height()) * (i + 1) / count;
    window->setGeometry(sideBySide ? QRect(from, 0, to - from, area.height())
                                   : QRect(0, from, area.width(), to - from));
  }
}

// The open children stand behind the menu's own items, the active one marked.
void frmMain::ListWindows() {
  for (QAction* action : windowMenu_->actions()) {
    if (action->property("child").toBool()) {
      windowMenu_->removeAction(action);
      action->deleteLater();
    }
  }
  const QList<QMdiSubWindow*> children = mdiArea->subWindowList();
  if (!children.isEmpty()) windowMenu_->addSeparator()->setProperty("child", true);
  int number = 1;
  for (QMdiSubWindow* window : children) {
    QString title = window->windowTitle();
    title.replace("&", "&&");
    const QString letter = number < 10 ? "&" : "";
    QAction* action = windowMenu_->addAction(letter + QString::number(number++) + " " + title);
    action->setProperty("child", true);
    action->setCheckable(true);
    action->setChecked(window == mdiArea->activeSubWindow());
    connect(action, &QAction::triggered, window, [this, window] {
      if (window->isMinimized()) window->showNormal();
      mdiArea->setActiveSubWindow(window);
    });
  }
}

// ---- Load and unload ----------------------------------------------------------------------------

void frmMain::MDIForm_Load() {
  Place();
  setWindowTitle("Tevra - " + QString::fromStdString(CurrentSession().companyName));
  ApplyRights();
  Panel1->setText("Utilizator:" + QString::fromStdString(CurrentSession().userName));
}

// Never so small that the menu is cut, and never outside the screens there are now.
void frmMain::Place() {
  setMinimumSize(std::max(menuBar()->sizeHint().width() + 8, 480), 320);
  QRect place(Pixels("MainLeft", 1000), Pixels("MainTop", 1000), Pixels("MainWidth", 6500),
              Pixels("MainHeight", 6500));
  place.setSize(place.size().expandedTo(minimumSize()));
  const QScreen* shown = QApplication::screenAt(place.center());
  QRect area = (shown ? shown : QApplication::primaryScreen())->availableGeometry();
  area.setSize(area.size() - kDecoration);
  place.setSize(place.size().boundedTo(area.size()).expandedTo(minimumSize()));
  place.moveLeft(std::clamp(place.left(), area.left(),
                            std::max(area.left(), area.right() + 1 - place.width())));
  place.moveTop(std::clamp(place.top(), area.top(),
                           std::max(area.top(), area.bottom() + 1 - place.height())));
  move(place.topLeft());
  resize(place.size());
}

void frmMain::ApplyRights() {
  for (const std::string& name : ForbiddenItems(CurrentSession().userType)) {
    items_.at(name)->setEnabled(false);
  }
}

void frmMain::MDIForm_Unload() {
  if (isMinimized()) return;
  KeepPixels("MainLeft", x());
  KeepPixels("MainTop", y());
  KeepPixels("MainWidth", width());
  KeepPixels("MainHeight", height());
}

void frmMain::closeEvent(QCloseEvent* event) {
  mdiArea->closeAllSubWindows();
  if (!mdiArea->subWindowList().isEmpty()) {
    event->ignore();
    return;
  }
  try {
    MDIForm_Unload();
  } catch (const std::exception&) {
    // A place that cannot be kept is no reason to stay open.
    ShowStandardError(CaughtFailure(), {"MDIForm_Unload", "Form", "frmMain"});
  }
  event->accept();
}

}  // namespace tevra
