// The streams of a command: the terminal, or strings in tests.
#pragma once

#include <fstream>
#include <iosfwd>
#include <string>

namespace tevra::batch {

struct Streams {
  std::istream& in;
  std::ostream& out;  ///< results only
  std::ostream& err;  ///< messages and questions
};

/// Opens a file given by the user; its name is found without case. Throws Refusal with its name
/// when it does not exist or cannot be read.
std::ifstream OpenInput(const std::string& file);

}  // namespace tevra::batch
