#include "care/KeptBefore.h"

#include <string>
#include <utility>

#include "care/BackupName.h"
#include "platform/data/CompanyFile.h"
#include "platform/system/Clock.h"
#include "platform/system/Paths.h"
#include "platform/text/Dates.h"

namespace fs = std::filesystem;

namespace tevra {

namespace {

std::string Beginning(const fs::path& file) {
  return file.stem().string() + "_Inlocuit_";
}

fs::path FreeName(const fs::path& file) {
  DateTime moment = clock::Now();
  for (;; moment = DateTime::FromSerial(moment.Serial() + 1.0 / 86400)) {
    fs::path name = file;
    name.replace_filename(Beginning(file) + Format(moment, "dd.mm.yyyy_hh.nn.ss") +
                          file.extension().string());
    if (!fs::exists(fs::symlink_status(name))) return name;
  }
}

bool IsKeptOf(const fs::path& file, const std::string& name) {
  const std::string begin = Beginning(file);
  return name.starts_with(begin) && MomentInName(name) &&
         name.size() == begin.size() + std::string("dd.mm.yyyy_hh.nn.ss.mdb").size();
}

}  // namespace

KeptBefore::KeptBefore(fs::path file) : file_(std::move(file)), name_(FreeName(file_)) {}

KeptBefore::~KeptBefore() {
  if (!kept_ && !copy_.empty()) RemoveCompanyFile(copy_);
}

void KeptBefore::Make() {
  if (!fs::is_regular_file(file_)) return;
  copy_ = name_;
  for (const char* ending : {"", "-wal", "-journal"}) {
    const fs::path part = fs::path(file_) += ending;
    if (!fs::is_regular_file(part)) continue;
    paths::ReplaceFile(fs::path(copy_) += ending,
                       [&](const fs::path& temporary) { CopyBytes(part, temporary); });
  }
}

void KeptBefore::Keep(const fs::path& chosen) {
  kept_ = true;
  if (copy_.empty()) return;
  std::error_code ignored;
  for (const auto& entry : fs::directory_iterator(file_.parent_path(), ignored)) {
    if (!IsKeptOf(file_, entry.path().filename().string()) || !entry.is_regular_file(ignored) ||
        entry.path() == copy_ || fs::equivalent(entry.path(), chosen, ignored)) {
      continue;
    }
    RemoveCompanyFile(entry.path());
  }
}

}  // namespace tevra
