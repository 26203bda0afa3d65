// The box that shows every message of the program.
#pragma once

#include <QLabel>
#include <QPushButton>
#include <vector>

#include "platform/forms/Form.h"
#include "platform/system/MessageBox.h"

namespace tevra {

/// Modal. Escape and closing the window press the button that changes nothing: Anulare, otherwise
/// Nu, otherwise the last one.
class frmMsgBox : public Form {
 public:
  explicit frmMsgBox(const MessageRequest& request, QWidget* parent = nullptr);

  std::vector<QPushButton*> cmdBtn;  ///< the code of each in its property "Tag"
  QLabel* imgMsg;
  QLabel* lblMsg;

  /// The number of buttons.
  int nButtons() const { return static_cast<int>(cmdBtn.size()); }
  /// The code of the button pressed.
  long BtnPressed() const { return pressed_; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void BuildButtons(const MessageRequest& request);
  QWidget* BuildText(const QString& text);
  void Arrange(QWidget* text);
  void cmdBtn_Click(int index);

  QString text_;
  long pressed_;
};

/// Shows a message above the active window; the program's message handler.
long ShowMsgBox(const MessageRequest& request);

}  // namespace tevra
