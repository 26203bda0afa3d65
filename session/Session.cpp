#include "session/Session.h"

namespace tevra {

Session& CurrentSession() {
  static Session session;
  return session;
}

}  // namespace tevra
