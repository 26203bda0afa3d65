#include "platform/data/CompanyFile.h"

#include <cstdint>
#include <optional>
#include <string_view>

#include "platform/data/Database.h"
#include "platform/data/EngineHandle.h"
#include "platform/data/FileCopy.h"
#include "platform/system/Paths.h"

namespace fs = std::filesystem;

namespace tevra {

namespace {

// While changes are in the side file, the header may count pages that are only there.
bool HasWaitingChanges(const fs::path& file) {
  std::error_code error;
  const auto size = fs::file_size(fs::path(file) += "-wal", error);
  return !error && size > 0;
}

void CheckLength(const fs::path& file, const detail::FileStart& start) {
  constexpr std::size_t kChangeCounter = 24, kPageCount = 28, kCountValidFor = 92;
  if (HasWaitingChanges(file)) return;
  if (start.Number(kChangeCounter) != start.Number(kCountValidFor)) return;
  // Measured again, because another program may just have moved its changes into the file.
  std::error_code ignored;
  if (fs::file_size(file, ignored) < std::uintmax_t{start.PageSize()} * start.Number(kPageCount)) {
    throw Failure(kDatabaseNotOpened,
                  "Baza de date este deteriorata, ii lipseste o parte: " + file.string());
  }
}

// SQLite would take the side files of an earlier file of this name for changes of the new one.
void RemoveSideFiles(const fs::path& file) {
  for (const char* ending : {"-wal", "-shm", "-journal"}) {
    std::error_code ignored;
    fs::remove(fs::path(file) += ending, ignored);
  }
}

}  // namespace

void CheckCompanyFile(const fs::path& file) {
  std::error_code error;
  const auto status = fs::status(file, error);
  if (!fs::exists(status)) {
    throw Failure(kDatabaseNotOpened, "Baza de date nu exista: " + file.string());
  }
  const std::string foreign = "Fisierul nu este o baza de date a unei societati: " + file.string();
  if (!fs::is_regular_file(status)) throw Failure(kDatabaseNotOpened, foreign);
  const detail::FileStart start = detail::ReadStart(file);
  static constexpr std::string_view kMagic("SQLite format 3\0", 16);
  constexpr std::size_t kIdAt = 68;
  const std::string_view begin(reinterpret_cast<const char*>(start.bytes.data()), kMagic.size());
  if (start.length < start.bytes.size() || begin != kMagic ||
      start.Number(kIdAt) != kApplicationId) {
    throw Failure(kDatabaseNotOpened, foreign);
  }
  CheckLength(file, start);
}

bool IsDamaged(const fs::path& file) {
  return !detail::IsWhole(detail::OpenStill(file), file);
}

void RemoveCompanyFile(const fs::path& file) noexcept {
  std::error_code ignored;
  fs::remove(file, ignored);
  RemoveSideFiles(file);
}

void RequireSoleUse(const fs::path& file) {
  const SoleUse alone(file);
}

SoleUse::SoleUse(const fs::path& file) {
  const Failure refused(kPermissionDenied, "Permission denied: " + file.string(), file.string());
  if (paths::IsReadOnly(file)) throw refused;
  detail::EngineHandle db = detail::OpenToWrite(file, SQLITE_OPEN_READWRITE, 0);
  if (!detail::TakeAlone(db, file)) throw refused;
  handle_ = std::shared_ptr<sqlite3>(std::move(db));
}

void CopyCompanyFile(const fs::path& source, const fs::path& target,
                     const std::function<void(const fs::path& copy)>& prepare,
                     const Progress& progress) {
  CheckCompanyFile(source);
  std::optional<SoleUse> alone;
  if (fs::exists(target)) {
    CheckCompanyFile(target);
    alone.emplace(target);
  } else {
    RemoveSideFiles(target);
  }
  paths::ReplaceFile(target, [&](const fs::path& copy) {
    detail::CopyPages(source, copy, target, progress);
    if (!prepare) return;
    prepare(copy);
    RequireSoleUse(copy);
  });
}

}  // namespace tevra
