#include "platform/data/CommitMark.h"

#include <random>

namespace tevra::detail {

CommitMark NextMark(CommitMark before) {
  std::random_device random;
  CommitMark name = 0;
  while (name == 0 || name == (before & 0xffff)) name = random() & 0xffff;
  return before << 16 | name;
}

}  // namespace tevra::detail
