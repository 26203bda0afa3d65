// Kills a process of its own in the middle of a chosen write of the engine, to see what work that
// was cut off leaves behind.
#pragma once

#include <functional>

#include <signal.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tevra::test {

/// Stands in the place of the system's write while it exists.
class WriteCounter {
 public:
  WriteCounter() {
    sqlite3_vfs* vfs = sqlite3_vfs_find(nullptr);
    for (const char* name : {"pwrite", "pwrite64"}) {
      auto system = vfs->xGetSystemCall(vfs, name);
      if (!system) continue;
      write_ = reinterpret_cast<Write>(system);
      vfs->xSetSystemCall(vfs, name, reinterpret_cast<sqlite3_syscall_ptr>(&Count));
    }
  }
  ~WriteCounter() {
    sqlite3_vfs* vfs = sqlite3_vfs_find(nullptr);
    for (const char* name : {"pwrite", "pwrite64"}) vfs->xSetSystemCall(vfs, name, nullptr);
  }
  WriteCounter(const WriteCounter&) = delete;
  WriteCounter& operator=(const WriteCounter&) = delete;

  /// The writes of `work`, which opens and closes its connection itself.
  int WritesOf(const std::function<void()>& work) {
    count_ = killAt_ = 0;
    work();
    return count_;
  }

  /// Does `work` in a process of its own that is killed in its write number `killAt`, half of it
  /// done; true when it was.
  bool KilledIn(int killAt, const std::function<void()>& work) {
    const pid_t child = fork();
    if (child == 0) {
      count_ = 0;
      killAt_ = killAt;
      work();
      _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFSIGNALED(status);
  }

 private:
  using Write = ssize_t (*)(int, const void*, size_t, off_t);
  static ssize_t Count(int file, const void* data, size_t size, off_t offset) {
    if (++count_ == killAt_) {
      write_(file, data, size / 2, offset);
      raise(SIGKILL);
    }
    return write_(file, data, size, offset);
  }

  static inline Write write_ = nullptr;
  static inline int count_ = 0;
  static inline int killAt_ = 0;
};

}  // namespace tevra::test
