// Where a command reads and writes: the terminal, or a test's strings.
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

/// Opens a file that the user named; its name is found without case. Throws Refusal naming it when
/// it is not there or cannot be read.
std::ifstream OpenInput(const std::string& file);

}  // namespace tevra::batch
