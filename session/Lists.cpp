#include "session/Lists.h"

#include <QUrl>

#include "platform/text/Strings.h"
#include "session/Session.h"

namespace tevra {

// A user's name may contain the separator of a setting's name.
std::string UserKey(const std::string& group, const std::string& owner) {
  const QString user = QString::fromStdString(UCase(CurrentSession().userName));
  return group + "/" + QUrl::toPercentEncoding(user).toStdString() + "/" + owner;
}

std::string GridKey(const std::string& grid) {
  return UserKey("Coloane", grid);
}

}  // namespace tevra
