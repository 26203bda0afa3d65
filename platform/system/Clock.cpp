#include "platform/system/Clock.h"

#include <ctime>
#include <optional>

namespace tevra::clock {
namespace {

std::optional<DateTime>& MomentSet() {
  static std::optional<DateTime> moment;
  return moment;
}

}  // namespace

DateTime Now() {
  if (MomentSet()) return *MomentSet();
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  // A leap second counts as the last second of its minute.
  return DateTime(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour,
                  local.tm_min, local.tm_sec > 59 ? 59 : local.tm_sec);
}

DateTime Today() {
  return Now().Midnight();
}

void Set(const DateTime& moment) {
  MomentSet() = moment;
}

void Reset() {
  MomentSet().reset();
}

}  // namespace tevra::clock
