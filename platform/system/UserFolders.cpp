#include "platform/system/UserFolders.h"

#include <cstdlib>

#include <pwd.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace tevra::paths {

namespace {

constexpr const char* kProgram = "tevra";

fs::path Variable(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

fs::path Home() {
  if (const fs::path home = Variable("HOME"); !home.empty()) return home;
  const passwd* user = getpwuid(getuid());
  return user ? user->pw_dir : "";
}

// A relative path in the variable counts as none.
fs::path Folder(const char* variable, const fs::path& underHome) {
  if (const fs::path folder = Variable(variable); folder.is_absolute()) return folder / kProgram;
  const fs::path home = Home();
  return home.empty() ? home : home / underHome / kProgram;
}

}  // namespace

fs::path UserDataFolder() {
  return Folder("XDG_DATA_HOME", fs::path(".local") / "share");
}

fs::path UserStateFolder() {
  return Folder("XDG_STATE_HOME", fs::path(".local") / "state");
}

}  // namespace tevra::paths
