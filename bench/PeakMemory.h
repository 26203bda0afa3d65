// The most memory in use at once.
#pragma once

#include <fstream>
#include <functional>
#include <string>

namespace tevra::bench {

/// The most memory that the process has in use at once while `work` runs, in KiB, counted anew from
/// its start.
inline long PeakOf(const std::function<void()>& work) {
  std::ofstream("/proc/self/clear_refs") << "5";
  work();
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    if (word == "VmHWM:") break;
  }
  long kilobytes = 0;
  status >> kilobytes;
  return kilobytes;
}

}  // namespace tevra::bench
