// Texts that nobody's name or code is, and that a statement must take as data all the same.
#pragma once

#include <string>
#include <vector>

namespace tevra::test {

inline std::vector<std::string> HostileTexts() {
  return {"'",
          "\"",
          "x' OR '1'='1",
          "admin' --",
          "admin'; DELETE FROM UTILIZATORI; --",
          "?",
          "%",
          "*",
          "[",
          std::string("admin\0", 6),
          std::string("\0admin", 6),
          "admin\xff",
          "\xc3",
          "ăâîșțĂÂÎȘȚ",
          std::string(10000, 'a')};
}

}  // namespace tevra::test
