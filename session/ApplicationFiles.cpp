#include "session/ApplicationFiles.h"

#include "platform/data/CompanyFile.h"
#include "platform/data/Connection.h"
#include "platform/system/Paths.h"
#include "platform/system/UserFolders.h"
#include "platform/text/FailureText.h"
#include "session/Module1.h"
#include "session/Version.h"

namespace fs = std::filesystem;

namespace tevra {

namespace {

constexpr const char* kTemplate = "Kelnar.mdb";
constexpr const char* kFolder = "tevra";

fs::path& TestDirectory() {
  static fs::path directory;
  return directory;
}

bool IsOlder(const fs::path& file) {
  Connection connection("Data Source=" + file.string() + ";Mode=Read;PWD=" + kFilePassword);
  const Value version = connection.QueryValue("Select VERSIUNE from kv_info");
  return !version.IsNull() && version.AsLong() < kRevision;
}

}  // namespace

fs::path ProgramDirectory() {
  if (!TestDirectory().empty()) return TestDirectory();
  std::error_code error;
  const fs::path program = fs::read_symlink("/proc/self/exe", error);
  return error ? fs::current_path() : program.parent_path();
}

void SetProgramDirectory(const fs::path& directory) {
  TestDirectory() = directory;
}

fs::path TemplatePath() {
  const fs::path directory = ProgramDirectory();
  for (const fs::path& folder : {directory, directory / ".." / "share" / kFolder}) {
    const fs::path candidate = paths::Resolve((folder / kTemplate).string());
    if (fs::exists(candidate)) return fs::weakly_canonical(candidate);
  }
  throw FileFailure(kFileNotFound, (directory / kTemplate).string());
}

fs::path ApplicationDirectory() {
  const fs::path own = ProgramDirectory();
  const bool portable = paths::FileExists((own / kTemplate).string()) && !paths::IsReadOnly(own);
  const fs::path data = paths::UserDataFolder();
  return portable || data.empty() ? own : data;
}

fs::path TemplateFor(const fs::path& directory) {
  const fs::path file = paths::Resolve((directory / kTemplate).string());
  return fs::exists(file) && !IsOlder(file) ? file : TemplatePath();
}

fs::path TemplateIn(const fs::path& directory) {
  const fs::path file = paths::Resolve((directory / kTemplate).string());
  if (!fs::exists(file)) {
    CopyCompanyFile(TemplatePath(), file);
  } else if (IsOlder(file)) {
    const fs::path newer = TemplatePath();
    if (!fs::equivalent(newer, file)) CopyCompanyFile(newer, file);
  }
  return file;
}

}  // namespace tevra
