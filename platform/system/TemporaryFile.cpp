#include "platform/system/TemporaryFile.h"

#include <cerrno>
#include <charconv>
#include <chrono>
#include <cstdint>
#include <fstream>
#include <functional>
#include <optional>
#include <random>
#include <string>
#include <string_view>

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/text/FailureText.h"

namespace fs = std::filesystem;

namespace tevra::paths {
namespace {

constexpr std::string_view kBegin = ".tevra-";
constexpr std::string_view kEnd = ".tmp";
constexpr const char* kSideEndings[] = {"-wal", "-shm", "-journal"};
constexpr std::chrono::hours kLeftAlone{1};

std::string Hex(std::uint64_t number) {
  char text[17];
  return {text, std::to_chars(text, text + sizeof text, number, 16).ptr};
}

// Where a process number means the same process: this start of this machine, as seen from the same
// set of processes.
const std::string& Here() {
  static const std::string here = [] {
    std::string boot;
    std::getline(std::ifstream("/proc/sys/kernel/random/boot_id"), boot);
    std::error_code ignored;
    boot += fs::read_symlink("/proc/self/ns/pid", ignored).string();
    return Hex(std::hash<std::string>()(boot));
  }();
  return here;
}

/// Begins with the program that makes it. The rest is unpredictable, so that in a shared folder
/// nobody can create a link there first.
std::string TemporaryName() {
  std::random_device device;
  const std::uint64_t number = (std::uint64_t{device()} << 32) | device();
  return std::string(kBegin) + Here() + "-" + std::to_string(getpid()) + "-" + Hex(number) +
         std::string(kEnd);
}

// The temporary file's name in that of one of its side files, or the name itself; nothing for any
// other file.
std::optional<std::string> TemporaryOf(const std::string& name) {
  std::string main = name;
  for (const char* ending : kSideEndings) {
    if (name.ends_with(ending)) main.resize(name.size() - std::string_view(ending).size());
  }
  return main.starts_with(kBegin) && main.ends_with(kEnd) ? std::optional(main) : std::nullopt;
}

enum class Maker { kRuns, kEnded, kUnknown };

Maker MakerOf(const std::string& name) {
  const std::string begin = std::string(kBegin) + Here() + "-";
  if (!name.starts_with(begin)) return Maker::kUnknown;
  pid_t process = 0;
  const char* end = name.data() + name.size();
  if (std::from_chars(name.data() + begin.size(), end, process).ec != std::errc() || process <= 0) {
    return Maker::kUnknown;
  }
  return kill(process, 0) == 0 || errno == EPERM ? Maker::kRuns : Maker::kEnded;
}

bool IsOld(const fs::path& file) {
  std::error_code error;
  const auto written = fs::last_write_time(file, error);
  return !error && fs::file_time_type::clock::now() - written > kLeftAlone;
}

}  // namespace

Descriptor::Descriptor(const fs::path& path, int flags, mode_t mode)
    : number_(open(path.c_str(), flags | O_CLOEXEC, mode)) {}

Descriptor::~Descriptor() {
  if (IsOpen()) close(number_);
}

fs::path FolderOf(const fs::path& file) {
  const fs::path folder = file.parent_path();
  return folder.empty() ? fs::path(".") : folder;
}

TemporaryFile::TemporaryFile(const fs::path& target) : target_(target) {
  for (;;) {
    path_ = FolderOf(target) / TemporaryName();
    if (Descriptor(path_, O_WRONLY | O_CREAT | O_EXCL, kNewFileMode).IsOpen()) return;
    if (errno != EEXIST) ThrowFor(errno, target);
  }
}

TemporaryFile::~TemporaryFile() {
  if (placed_) return;
  unlink(path_.c_str());
  for (const char* ending : kSideEndings) unlink((path_.string() + ending).c_str());
}

void TemporaryFile::Flush() const {
  const Descriptor file(path_, O_RDONLY);
  if (!file.IsOpen()) ThrowFor(errno, target_);
  struct stat replaced {};
  if (stat(target_.c_str(), &replaced) == 0) fchmod(file.Number(), replaced.st_mode & 07777);
  if (fsync(file.Number()) != 0) ThrowFor(errno, target_);
}

void TemporaryFile::Place() {
  if (rename(path_.c_str(), target_.c_str()) != 0) ThrowFor(errno, target_);
  placed_ = true;
}

void SweepTemporaryFiles(const fs::path& folder) noexcept {
  try {
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
      const auto main = TemporaryOf(entry->path().filename().string());
      if (!main) continue;
      const Maker maker = MakerOf(*main);
      if (maker == Maker::kRuns || (maker == Maker::kUnknown && !IsOld(entry->path()))) continue;
      unlink(entry->path().c_str());
    }
  } catch (const std::exception&) {
    // Left-over files harm nobody.
  }
}

}  // namespace tevra::paths
