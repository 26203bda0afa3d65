#include "session/frmMsgBox.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QScreen>
#include <QScrollArea>
#include <QVBoxLayout>
#include <algorithm>

#include "platform/forms/Pictures.h"

namespace tevra {

namespace {

constexpr int kTwips = 15;  // of a logical pixel
constexpr int kMargin = 200 / kTwips;
constexpr int kBetweenButtons = 100 / kTwips;
constexpr int kIcon = 32;
constexpr int kWidestText = 560;

const char* PictureOfIcon(long word) {
  switch (word & kIconMask) {
    case kCritical:
      return "\\BMP\\W95MBX01.ico";
    case kQuestion:
      return "\\BMP\\W95MBX02.ico";
    case kExclamation:
      return "\\BMP\\W95MBX03.ico";
    case kInformation:
      return "\\BMP\\W95MBX04.ico";
    default:
      return nullptr;
  }
}

// The pictures of the first two buttons, by the set of buttons.
std::pair<const char*, const char*> PicturesOfButtons(long word) {
  constexpr const char* kOkPicture = "\\BMP\\OK.bmp";
  constexpr const char* kLeavePicture = "\\BMP\\Iesire.bmp";
  switch (word & kButtonsMask) {
    case kOkOnly:
      return {kOkPicture, nullptr};
    case kOkCancel:
    case kYesNoCancel:
    case kYesNo:
      return {kOkPicture, kLeavePicture};
    case kAbortRetryIgnore:
      return {kLeavePicture, nullptr};
    default:
      return {nullptr, nullptr};
  }
}

// Adds places to break a name without blanks, so that the box is not wider than the screen.
QString Breakable(const QString& text) {
  constexpr int kLongestWord = 40;
  constexpr QChar kBreakHere(0x200B);
  QString broken;
  int word = 0;
  for (const QChar character : text) {
    word = character.isSpace() ? 0 : word + 1;
    if (word > kLongestWord && !character.isLowSurrogate()) {
      broken += kBreakHere;
      word = 1;
    }
    broken += character;
  }
  return broken;
}

}  // namespace

frmMsgBox::frmMsgBox(const MessageRequest& request, QWidget* parent)
    : Form("frmMsgBox", QString::fromStdString(request.title), parent) {
  setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                 Qt::WindowCloseButtonHint);
  setWindowModality(Qt::ApplicationModal);
  imgMsg = new QLabel(this);
  imgMsg->setObjectName("imgMsg");
  if (const char* picture = PictureOfIcon(request.buttons)) {
    imgMsg->setPixmap(PictureIcon(picture).pixmap(kIcon, kIcon));
  } else {
    imgMsg->hide();
  }
  text_ = QString::fromStdString(request.prompt);
  QWidget* text = BuildText(text_);
  BuildButtons(request);
  Arrange(text);
  pressed_ = HarmlessAnswer(request.buttons);
}

// A text longer than the screen scrolls; texts are never interpreted as markup.
QWidget* frmMsgBox::BuildText(const QString& text) {
  lblMsg = new QLabel;
  lblMsg->setObjectName("lblMsg");
  lblMsg->setTextFormat(Qt::PlainText);
  lblMsg->setText(Breakable(text));
  lblMsg->setWordWrap(true);
  lblMsg->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  const QRect room = lblMsg->fontMetrics().boundingRect(QRect(0, 0, kWidestText, 100000),
                                                        Qt::TextWordWrap, lblMsg->text());
  const int highest = screen()->availableSize().height() * 2 / 3;
  lblMsg->setMinimumSize(room.width() + 8, std::min(room.height() + 8, highest));
  if (room.height() + 8 <= highest) {
    lblMsg->setParent(this);
    return lblMsg;
  }
  auto* scrolled = new QScrollArea(this);
  scrolled->setWidgetResizable(true);
  scrolled->setFrameShape(QFrame::NoFrame);
  scrolled->setWidget(lblMsg);
  scrolled->setMinimumSize(kWidestText + 30, highest);
  return scrolled;
}

void frmMsgBox::BuildButtons(const MessageRequest& request) {
  const std::vector<MessageButton> buttons = ButtonsOf(request.buttons);
  const auto [first, second] = PicturesOfButtons(request.buttons);
  int widest = 84;
  for (std::size_t i = 0; i < buttons.size(); ++i) {
    const bool own = i < request.captions.size() && !request.captions[i].empty();
    auto* button = new QPushButton(
        own ? QString::fromStdString(request.captions[i]) : QString(buttons[i].caption), this);
    button->setObjectName(QString("cmdBtn(%1)").arg(i));
    button->setProperty("Tag", static_cast<qlonglong>(buttons[i].answer));
    if (const char* picture = i == 0 ? first : i == 1 ? second : nullptr) {
      button->setIcon(PictureIcon(picture));
    }
    widest = std::max(widest, button->sizeHint().width() + 12);
    connect(button, &QPushButton::clicked, this,
            [this, index = static_cast<int>(i)] { cmdBtn_Click(index); });
    cmdBtn.push_back(button);
  }
  for (QPushButton* button : cmdBtn) button->setFixedSize(widest, button->sizeHint().height() + 4);
  QPushButton* byDefault = cmdBtn[DefaultButton(request.buttons)];
  byDefault->setDefault(true);
  byDefault->setFocus();
}

void frmMsgBox::Arrange(QWidget* text) {
  auto* message = new QHBoxLayout;
  message->setSpacing(kMargin);
  message->addWidget(imgMsg, 0, Qt::AlignTop);
  message->addWidget(text, 1);
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(kBetweenButtons);
  buttons->addStretch();
  for (QPushButton* button : cmdBtn) buttons->addWidget(button);
  buttons->addStretch();
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  all->setSpacing(kMargin);
  all->addLayout(message, 1);
  all->addLayout(buttons);
  // The box is wide enough for its title beside the window's buttons.
  constexpr int kNarrowest = 220;
  constexpr int kBesideTitle = 140;
  QFont bold = font();
  bold.setBold(true);
  const int title = QFontMetrics(bold).horizontalAdvance(windowTitle());
  setMinimumWidth(std::max(kNarrowest, title + kBesideTitle));
  adjustSize();
  setFixedSize(sizeHint().expandedTo(minimumSize()));
}

void frmMsgBox::cmdBtn_Click(int index) {
  const long code = cmdBtn[static_cast<std::size_t>(index)]->property("Tag").toLongLong();
  if (code == kHelp) {
    QKeyEvent help(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier);
    // The box itself has no help; the window behind it shows it.
    QWidget* behind = parentWidget() ? parentWidget()->window() : this;
    QApplication::sendEvent(behind, &help);
    return;
  }
  pressed_ = code;
  close();
}

void frmMsgBox::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) {
    QApplication::clipboard()->setText(windowTitle() + "\n" + text_);
    return;
  }
  if (event->key() == Qt::Key_Escape) {
    close();
    return;
  }
  // A letter presses the only button that begins with it, so D and N answer Da and Nu.
  QPushButton* named = nullptr;
  for (QPushButton* button : cmdBtn) {
    const bool begins =
        !event->text().isEmpty() && button->text().startsWith(event->text(), Qt::CaseInsensitive);
    if (begins && named) return Form::keyPressEvent(event);
    if (begins) named = button;
  }
  if (!named) return Form::keyPressEvent(event);
  named->click();
}

long ShowMsgBox(const MessageRequest& request) {
  // A message during long work must not show the hourglass cursor.
  const bool busy = QApplication::overrideCursor();
  if (busy) QApplication::setOverrideCursor(Qt::ArrowCursor);
  frmMsgBox box(request, QApplication::activeWindow());
  box.ShowModal();
  if (busy) QApplication::restoreOverrideCursor();
  return box.BtnPressed();
}

}  // namespace tevra
