#include "platform/system/Log.h"

#include <cerrno>
#include <chrono>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/system/Clock.h"
#include "platform/system/LogText.h"
#include "platform/system/UserFolders.h"

namespace fs = std::filesystem;

namespace tevra::log {

namespace {

constexpr mode_t kOwnersAlone = 0600;

// A program that was stopped while it had the lock must not block the others.
bool Lock(int file) {
  constexpr int kTries = 20;
  for (int i = 0; i < kTries; ++i) {
    if (flock(file, LOCK_EX | LOCK_NB) == 0) return true;
    if (errno != EWOULDBLOCK && errno != EINTR) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  return false;
}

// Refuses links, which may lead anywhere, and pipes, which may wait for a reader.
int OpenPlain(const fs::path& file) {
  const int opened =
      open(file.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK,
           kOwnersAlone);
  struct stat status {};
  if (opened >= 0 && (fstat(opened, &status) != 0 || !S_ISREG(status.st_mode))) {
    close(opened);
    return -1;
  }
  return opened;
}

bool IsStillThere(int opened, const fs::path& file) {
  struct stat here {};
  struct stat there {};
  return fstat(opened, &here) == 0 && stat(file.c_str(), &there) == 0 &&
         here.st_ino == there.st_ino && here.st_dev == there.st_dev;
}

std::uintmax_t SizeOf(int opened) {
  struct stat status {};
  return fstat(opened, &status) == 0 ? static_cast<std::uintmax_t>(status.st_size) : 0;
}

fs::path Numbered(const fs::path& file, int number) {
  return fs::path(file) += "." + std::to_string(number);
}

void MakeFolder(const fs::path& folder) {
  std::error_code ignored;
  if (fs::create_directories(folder, ignored)) {
    fs::permissions(folder, fs::perms::owner_all, ignored);
  }
}

std::string LineOf(std::string_view text) {
  const std::string moment = clock::Now().Iso();
  return moment + " [" + std::to_string(getpid()) + "] " + std::string(text) + "\n";
}

struct Current {
  std::mutex mutex;
  Sink sink;
};

Current& TheSink() {
  static Current current;
  return current;
}

}  // namespace

bool LogFile::StartAnew() const {
  for (int i = kOlder; i > 0; --i) {
    std::error_code error;
    fs::rename(i == 1 ? file_ : Numbered(file_, i - 1), Numbered(file_, i), error);
    if (i == 1 && error) return false;
  }
  return true;
}

// Opens and locks the file with room for the bytes; -1 when that fails. The file is opened again
// when another program renamed it while this one waited for the lock.
int LogFile::OpenWithRoom(std::size_t bytes) const {
  constexpr int kTries = 10;
  for (int i = 0; i < kTries; ++i) {
    const int opened = OpenPlain(file_);
    if (opened < 0) return -1;
    // Without the lock the line is still whole; only the size is not kept.
    if (!Lock(opened)) return opened;
    const bool there = IsStillThere(opened, file_);
    const std::uintmax_t size = SizeOf(opened);
    if (there && (size == 0 || size + bytes <= mostBytes_)) return opened;
    const bool stuck = there && !StartAnew();
    close(opened);
    if (stuck) return -1;
  }
  return -1;
}

void LogFile::Append(std::string_view text) const noexcept {
  try {
    if (file_.empty()) return;
    MakeFolder(file_.parent_path());
    const std::string line = LineOf(text);
    const int opened = OpenWithRoom(line.size());
    if (opened < 0) return;
    // One write: lines of several programs do not mix.
    const ssize_t written = write(opened, line.data(), line.size());
    static_cast<void>(written);
    close(opened);
  } catch (...) {
    // Not reported: the user's work goes on without the log.
  }
}

fs::path UsersLogFile() {
  const fs::path folder = paths::UserStateFolder();
  return folder.empty() ? folder : folder / "tevra.log";
}

Sink SetSink(Sink sink) {
  const std::lock_guard guard(TheSink().mutex);
  return std::exchange(TheSink().sink, std::move(sink));
}

void Note(const std::string& line) {
  Sink sink;
  {
    const std::lock_guard guard(TheSink().mutex);
    sink = TheSink().sink;
  }
  if (sink) sink(line);
}

void NoteFailure(const Failure& failure, const std::string& where) {
  Note(FailureLine(failure) + (where.empty() ? "" : " | " + where));
}

}  // namespace tevra::log
