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
#include "care/Upgrade.h"
#include "exchange/PendingExport.h"
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

// Shows a failure that no screen has shown; the program goes on.
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

// From the start to the main frame; false when the user did not log in.
bool Login() {
  {
    frmSplash splash;
    splash.ShowAtOnce();
    CurrentSession().versionText = TwoDigits(kVersionMajor) + TwoDigits(kVersionMinor);
  }
  frmLogin login(ActualizeazaBD);
  login.ShowModal();
  return login.LoginSucceeded();
}

// The machine's fonts are read in a thread while Qt starts; otherwise the first text would wait for
// them.
std::jthread StartReadingFonts() {
  return std::jthread([] { FcInit(); });
}

}  // namespace

int main(int argc, char** argv) {
  // A file size limit then is an error of the write call, like a full disk, and does not end the
  // program.
  std::signal(SIGXFSZ, SIG_IGN);
  const std::jthread fonts = StartReadingFonts();
  Application application(argc, argv);
  PrepareApplication();
  // Closing the login window must not end the program.
  QApplication::setQuitOnLastWindowClosed(false);
  if (!Login()) return 0;
  SettleExportAtOpening();
  CurrentSession().toolTipColour =
      application.palette().color(QPalette::ToolTipBase).rgb() & 0xFFFFFFU;
  QApplication::setQuitOnLastWindowClosed(true);
  frmMain frame;
  HandInScreens(frame);
  frame.show();
  return QApplication::exec();
}
