// Lets a Progress watch a long statement of SQLite.
// For the data layer's own sources only.
#pragma once

#include <exception>
#include <functional>

#include <sqlite3.h>

namespace tevra::detail {

/// While it lives, SQLite calls `tick` from time to time during the statements of the handle. What
/// `tick` throws interrupts the statement; Check then throws it again.
class WorkTicks {
 public:
  WorkTicks(sqlite3* db, std::function<void()> tick);
  ~WorkTicks();
  WorkTicks(const WorkTicks&) = delete;
  WorkTicks& operator=(const WorkTicks&) = delete;

  /// To be called when a statement failed, before its error is reported.
  void Check() const;

 private:
  static int Tick(void* ticks);

  sqlite3* db_;
  std::function<void()> tick_;
  std::exception_ptr thrown_;
};

}  // namespace tevra::detail
