#include "app/batch/ReportProgram.h"

#include <filesystem>
#include <string>

#include <unistd.h>

#include "app/batch/Refusal.h"
#include "session/ApplicationFiles.h"

namespace tevra::batch {

void StartReportProgram(const char* const* argv) {
  const std::string program = (ProgramDirectory() / "tevra-batch-report").string();
  ::execv(program.c_str(), const_cast<char* const*>(argv));
  throw Refusal("Programul " + program + " nu poate fi pornit !");
}

}  // namespace tevra::batch
