#include "session/Lists.h"

#include <QUrl>

#include "platform/text/Strings.h"
#include "session/Session.h"

namespace tevra {

// A user's name may contain the separator of a setting's name.
std::string GridKey(const std::string& grid) {
  const QString user = QString::fromStdString(UCase(CurrentSession().userName));
  return "Coloane/" + QUrl::toPercentEncoding(user).toStdString() + "/" + grid;
}

}  // namespace tevra
