#include "session/ApplicationFiles.h"

#include "platform/text/Failure.h"

namespace fs = std::filesystem;

namespace tevra {

fs::path ProgramDirectory() {
  std::error_code error;
  const fs::path program = fs::read_symlink("/proc/self/exe", error);
  return error ? fs::current_path() : program.parent_path();
}

fs::path TemplatePath() {
  const fs::path directory = ProgramDirectory();
  for (const fs::path& candidate :
       {directory / "Kelnar.mdb", directory / ".." / "share" / "tevra" / "Kelnar.mdb"}) {
    if (fs::exists(candidate)) return fs::weakly_canonical(candidate);
  }
  throw Failure(kFileNotFound, "File not found: " + (directory / "Kelnar.mdb").string());
}

}  // namespace tevra
