#include "platform/print/PreviewButtons.h"

#include "platform/forms/Buttons.h"
#include "platform/forms/Pictures.h"

namespace tevra {
namespace {

constexpr int kPictureWidth = 32;  // of a button with a picture only

}  // namespace

QToolButton* MakeToolButton(const char* name, const char* picture, const char* text,
                            const char* tip, QWidget* parent) {
  auto* button = new QToolButton(parent);
  button->setObjectName(name);
  button->setToolTip(tip);
  button->setAccessibleName(tip);
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::TabFocus);
  const QIcon icon = PictureIcon(picture);
  icon.isNull() ? button->setText(text) : button->setIcon(icon);
  button->setMinimumSize(28, 28);
  return button;
}

QPushButton* MakeCommand(const char* name, const char* caption, const char* picture,
                         const char* tip, QWidget* parent) {
  QPushButton* button = MakeButton(name, caption, tip, parent);
  button->setIcon(PictureIcon(picture));
  button->setMinimumWidth(button->icon().isNull() ? 0 : kPictureWidth);
  button->setFocusPolicy(Qt::TabFocus);
  return button;
}

QFrame* MakeSeparator(QWidget* parent) {
  auto* line = new QFrame(parent);
  line->setFrameShape(QFrame::VLine);
  line->setFrameShadow(QFrame::Sunken);
  return line;
}

}  // namespace tevra
