#include "app/tevra/FailureLog.h"

#include <QLoggingCategory>
#include <QtMessageHandler>

#include "platform/system/Log.h"

namespace tevra {

namespace {

Q_LOGGING_CATEGORY(kFailures, "tevra.failures")

QtMessageHandler theUsual = nullptr;

void WriteMessage(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  const QLatin1String category(context.category ? context.category : "");
  if (category.startsWith(QLatin1String("tevra.")) || type == QtCriticalMsg || type == QtFatalMsg) {
    log::LogFile(log::UsersLogFile()).Append("tevra " + text.toStdString());
  }
  if (theUsual) theUsual(type, context, text);
}

}  // namespace

void UseLog() {
  theUsual = qInstallMessageHandler(WriteMessage);
  log::SetSink([](const std::string& line) {
    qCWarning(kFailures).noquote() << QString::fromStdString(line);
  });
}

}  // namespace tevra
