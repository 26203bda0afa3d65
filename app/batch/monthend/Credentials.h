// The users and passwords with which the end of the month logs into the companies.
#pragma once

#include <filesystem>
#include <istream>
#include <string>
#include <vector>

namespace tevra::batch {

struct Credential {
  std::string company;  ///< its code
  std::string user;
  std::string password;
  int line = 0;  ///< of the file
};

/// One line for each company: code, user and password with ";" between them. The password is the
/// rest of the line, with its blanks and further ";". Blanks around the code do not count. Empty
/// lines and those that begin with "#" are skipped.
class Credentials {
 public:
  /// Reads a file that belongs to this user and that nobody else may read or write. `written`: as
  /// the user wrote it. Throws Refusal for any other file, and for a bad line with its number; no
  /// message repeats a part of a line.
  static Credentials Load(const std::string& written);

  /// The lines alone. Throws Refusal with the number of the first bad one and the name `file`.
  static Credentials Read(std::istream& lines, const std::string& file);

  /// The line of a company, by its code without case; null when there is none.
  const Credential* Find(const std::string& company) const;

 private:
  std::vector<Credential> all_;
};

}  // namespace tevra::batch
