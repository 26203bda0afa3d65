#include "docs/generate/Blocks.h"

#include <utility>

#include "platform/text/Failure.h"

namespace tevra {

namespace {

constexpr std::string_view kBegin = "<!-- begin ";
constexpr std::string_view kEnd = "<!-- end ";
constexpr std::string_view kClose = " -->\n";

[[noreturn]] void Fail(const std::string& why, std::string_view block) {
  throw Failure(kItemNotFound, why + " \"" + std::string(block) + "\"");
}

}  // namespace

std::string WithBlocks(const std::string& document, Blocks blocks) {
  std::string result;
  std::size_t done = 0;
  for (std::size_t begin; (begin = document.find(kBegin, done)) != std::string::npos;) {
    const std::size_t name = begin + kBegin.size();
    const std::size_t close = document.find(kClose, name);
    if (close == std::string::npos) Fail("a marker is not closed:", document.substr(name, 20));
    const std::string block = document.substr(name, close - name);
    const std::size_t text = close + kClose.size();
    const std::size_t end = document.find(std::string(kEnd) + block + std::string(kClose), text);
    if (end == std::string::npos) Fail("no end of the block", block);
    const auto found = blocks.extract(block);
    if (found.empty()) Fail("an unknown or repeated block", block);
    result.append(document, done, text - done).append(found.mapped());
    done = end;
  }
  if (!blocks.empty()) Fail("the document lacks the block", blocks.begin()->first);
  return result.append(document, done);
}

}  // namespace tevra
