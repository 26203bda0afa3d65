// The frame's children: how they open, are arranged, listed and closed.
#include <QMdiSubWindow>
#include <QMenu>
#include <algorithm>
#include <utility>

#include "session/frmMain.h"

namespace tevra {

namespace {

constexpr const char* kOwnSize = "ownSize";  // of a child that was tiled

// What the title and the border take.
QSize Decoration(const QMdiSubWindow& window) {
  const QMargins margins = window.contentsMargins();
  return {margins.left() + margins.right(), margins.top() + margins.bottom()};
}

}  // namespace

void frmMain::BringToFront(QMdiSubWindow* window) {
  if (window->isMinimized()) window->showNormal();
  mdiArea->setActiveSubWindow(window);
}

void frmMain::ShowForm(Form& form) {
  for (QMdiSubWindow* window : mdiArea->subWindowList()) {
    if (window->widget() == &form) return BringToFront(window);
  }
  const QSize wanted = form.size().expandedTo(form.minimumSizeHint());
  const QMdiSubWindow* front = mdiArea->activeSubWindow();
  QMdiSubWindow* window = mdiArea->addSubWindow(&form);
  window->setAttribute(Qt::WA_DeleteOnClose);
  window->setWindowIcon(windowIcon());
  // The size is the screen's own, as far as the frame has room; what still does not fit is reached
  // by the frame's scroll bars.
  const QSize least = window->minimumSizeHint();  // below this its content would be cut
  MakeRoomFor(least);
  const QSize room = mdiArea->viewport()->size();
  window->resize((wanted + Decoration(*window)).boundedTo(room).expandedTo(least));
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
  const QPoint wanted = front->pos() + QPoint(windows::kTitleStep, windows::kTitleStep);
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

// A child that was tiled goes back to the size that it had before.
std::vector<windows::WindowSize> frmMain::SizesOf(
    const std::vector<QMdiSubWindow*>& children) const {
  std::vector<windows::WindowSize> sizes;
  for (const QMdiSubWindow* window : children) {
    const QVariant before = window->property(kOwnSize);
    sizes.push_back(
        {before.isValid() ? before.toSize() : window->size(), window->minimumSizeHint()});
  }
  return sizes;
}

// The active child comes last and stands in front of the others.
void frmMain::Cascade() {
  const std::vector<QMdiSubWindow*> children = ChildrenToArrange();
  const auto places = windows::Cascade(mdiArea->viewport()->size(), SizesOf(children));
  for (std::size_t i = 0; i < children.size(); ++i) {
    children[i]->setProperty(kOwnSize, {});
    children[i]->setGeometry(places[i]);
  }
}

void frmMain::Tile(bool sideBySide) {
  const std::vector<QMdiSubWindow*> children = ChildrenToArrange();
  const std::vector<windows::WindowSize> sizes = SizesOf(children);
  const auto places = windows::Tile(mdiArea->viewport()->size(), sizes, sideBySide);
  for (std::size_t i = 0; i < children.size(); ++i) {
    children[i]->setProperty(kOwnSize, sizes[i].wanted);
    children[i]->setGeometry(places[i]);
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
    connect(action, &QAction::triggered, window, [this, window] { BringToFront(window); });
  }
}

std::vector<Form*> frmMain::ChangedScreens() const {
  std::vector<Form*> changed;
  for (const QMdiSubWindow* window : mdiArea->subWindowList()) {
    auto* form = qobject_cast<Form*>(window->widget());
    if (form && form->HasChanges()) changed.push_back(form);
  }
  return changed;
}

// Every changed screen is asked for before the first one closes: a "Nu" leaves all of them open.
// As Form::AskThenClose, when the event that closes the frame is over.
void frmMain::AskThenClose() {
  if (std::exchange(asking_, true)) return;
  QMetaObject::invokeMethod(
      this,
      [this] {
        bool drop = true;
        for (Form* form : ChangedScreens()) {
          BringToFront(qobject_cast<QMdiSubWindow*>(form->parentWidget()));
          drop = drop && form->AskToDropChanges();
          if (!drop) break;
        }
        asking_ = false;
        if (!drop) return;
        for (Form* form : ChangedScreens()) form->DropChangesAndClose();
        close();
      },
      Qt::QueuedConnection);
}

}  // namespace tevra
