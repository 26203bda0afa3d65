#include "platform/data/WorkTicks.h"

#include <utility>

namespace tevra::detail {

WorkTicks::WorkTicks(sqlite3* db, std::function<void()> tick) : db_(db), tick_(std::move(tick)) {
  constexpr int kInstructions = 5000;
  sqlite3_progress_handler(db_, kInstructions, &WorkTicks::Tick, this);
}

WorkTicks::~WorkTicks() {
  sqlite3_progress_handler(db_, 0, nullptr, nullptr);
}

void WorkTicks::Check() const {
  if (thrown_) std::rethrow_exception(thrown_);
}

// An exception must not pass through SQLite's own functions.
int WorkTicks::Tick(void* ticks) {
  auto& self = *static_cast<WorkTicks*>(ticks);
  try {
    self.tick_();
    return 0;
  } catch (...) {
    self.thrown_ = std::current_exception();
    return 1;
  }
}

}  // namespace tevra::detail
