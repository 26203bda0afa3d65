#include "app/tevra/MessageBoxes.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <map>

namespace tevra {

namespace {

QMessageBox::Icon IconOf(long word) {
  switch (word & kIconMask) {
    case kCritical:
      return QMessageBox::Critical;
    case kQuestion:
      return QMessageBox::Question;
    case kExclamation:
      return QMessageBox::Warning;
    case kInformation:
      return QMessageBox::Information;
    default:
      return QMessageBox::NoIcon;
  }
}

}  // namespace

long ShowMessageBox(const MessageRequest& request) {
  QMessageBox box(IconOf(request.buttons), QString::fromStdString(request.title), {},
                  QMessageBox::NoButton, QApplication::activeWindow());
  box.setObjectName("frmMsgBox");
  box.setTextFormat(Qt::PlainText);
  box.setText(QString::fromStdString(request.prompt));
  const std::vector<MessageButton> buttons = ButtonsOf(request.buttons);
  std::map<QAbstractButton*, long> codes;
  for (std::size_t i = 0; i < buttons.size(); ++i) {
    const std::string& own = request.captions[i];
    // The role keeps the order in which they are added, whatever the desktop's habits.
    QPushButton* button =
        box.addButton(own.empty() ? QString(buttons[i].caption) : QString::fromStdString(own),
                      QMessageBox::ActionRole);
    codes[button] = buttons[i].answer;
    if (i == DefaultButton(request.buttons)) box.setDefaultButton(button);
    if (i + 1 == buttons.size()) box.setEscapeButton(button);
  }
  box.exec();
  return codes[box.clickedButton()];
}

}  // namespace tevra
