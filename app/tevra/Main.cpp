// tevra: the window program.
#include <QLocale>
#include <QPalette>
#include <csignal>
#include <thread>

#include <fontconfig/fontconfig.h>

#include "app/tevra/Desktop.h"
#include "app/tevra/FailureLog.h"
#include "app/tevra/Screens.h"
#include "app/tevra/ToolkitWords.h"
#include "platform/forms/FormsApplication.h"
#include "platform/forms/Pictures.h"
#include "platform/system/MessageBox.h"
#include "platform/system/QtSettings.h"
#include "platform/system/StandardError.h"
#include "session/ApplicationFiles.h"
#include "session/Session.h"
#include "session/Version.h"
#include "session/frmLogin.h"
#include "session/frmMain.h"
#include "session/frmSplash.h"

namespace {

using namespace tevra;

std::string TwoDigits(int number) {
  return (number < 10 ? "0" : "") + std::to_string(number);
}

// The last net: a failure that no screen told is told here, and the program goes on.
class Application : public FormsApplication {
 public:
  using FormsApplication::FormsApplication;

  bool notify(QObject* receiver, QEvent* event) override {
    try {
      return FormsApplication::notify(receiver, event);
    } catch (const std::exception&) {
      const Procedure procedure{"notify", "Application", "tevra"};
      ShowStandardError(CaughtFailure(procedure), procedure);
      return false;
    }
  }
};

void PrepareApplication() {
  QApplication::setApplicationName("tevra");
  QLocale::setDefault(QLocale(QLocale::Romanian, QLocale::Romania));
  QCoreApplication::installTranslator(new ToolkitWords(qApp));
  SetSettings(std::make_unique<QtSettings>());
  SetApplicationTitle(kApplicationTitle);
  UseLog();
  SetPictureDirectory(ProgramDirectory().string());
  QApplication::setWindowIcon(PictureIcon("\\BMP\\Tevra.ico"));
  UseDesktop();
}

// From the start to the main frame; false when nobody logged in.
bool Login() {
  {
    frmSplash splash;
    splash.ShowAtOnce();
    CurrentSession().versionText = TwoDigits(kVersionMajor) + TwoDigits(kVersionMinor);
  }
  frmLogin login;
  login.ShowModal();
  return login.LoginSucceeded();
}

// The fonts of the machine are read beside the toolkit's own start: the first text would wait for
// them.
std::jthread StartReadingFonts() {
  return std::jthread([] { FcInit(); });
}

}  // namespace

int main(int argc, char** argv) {
  // A file size limit is an error of the write, as a full disk is, and no reason to die.
  std::signal(SIGXFSZ, SIG_IGN);
  const std::jthread fonts = StartReadingFonts();
  Application application(argc, argv);
  PrepareApplication();
  // The login's window closing is not the program's end.
  QApplication::setQuitOnLastWindowClosed(false);
  if (!Login()) return 0;
  CurrentSession().toolTipColour =
      application.palette().color(QPalette::ToolTipBase).rgb() & 0xFFFFFFU;
  QApplication::setQuitOnLastWindowClosed(true);
  frmMain frame;
  HandInScreens(frame);
  frame.show();
  return QApplication::exec();
}
