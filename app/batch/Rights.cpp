#include "app/batch/Rights.h"

#include <algorithm>

#include "app/batch/Refusal.h"
#include "session/MenuTable.h"
#include "session/Session.h"

namespace tevra::batch {

void RequireMenuItem(const std::string& item, const std::string& what) {
  const Session& session = CurrentSession();
  const auto forbidden = ForbiddenItems(session.userType);
  if (std::find(forbidden.begin(), forbidden.end(), item) == forbidden.end()) return;
  throw Refusal("Utilizatorul " + session.userName + " nu are dreptul sa " + what + " !");
}

}  // namespace tevra::batch
