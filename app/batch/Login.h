// Opens a company like the login window.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "app/batch/Streams.h"
#include "platform/data/Connection.h"

namespace tevra::batch {

struct LoginRequest {
  std::string directory;
  std::string company;  ///< its code
  std::string user;
  std::optional<std::string> passwordFile;
  bool anyStructure = false;  ///< the structure's version does not matter
  /// When the company's file is missing or damaged, this company file says who the users are.
  std::filesystem::path insteadOfDamaged = {};
  std::optional<std::string> password = {};  ///< instead of a file or the keyboard
};

/// Finds the company, checks user, password and the structure's version, and fills
/// CurrentSession(). Returns the open company: while it lives, others of this process open it
/// faster. The password is the first line of its file; without one it is asked for.
/// Throws Refusal in the login's words, Failure when the company cannot be opened.
[[nodiscard]] Connection Login(const LoginRequest& request, const Streams& streams);

}  // namespace tevra::batch
