#include "platform/forms/Windows.h"

#include <utility>

namespace tevra::windows {

namespace {

Host& CurrentHost() {
  static Host host;
  return host;
}

}  // namespace

Host SetHost(Host host) {
  return std::exchange(CurrentHost(), std::move(host));
}

void Show(Form& form) {
  form.setAttribute(Qt::WA_DeleteOnClose);
  const Host host = CurrentHost();
  if (host) return host(form);
  form.show();
  form.raise();
  form.activateWindow();
}

}  // namespace tevra::windows
