// The fields of a new inventory object on the command line.
#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace tevra::batch {

/// As written; empty where not given.
struct ObjectOptions {
  std::string code;
  std::string name;
  std::string centre;
  std::string location;
  std::string document;
  std::string supplier;
  std::string vat;
  std::string account;
  std::string notes;
  std::string person;
  std::string value;
  std::string rate;
  std::string currencyValue;
  std::string bought;
  std::string inService;

  /// All of them, for leaving out of the log what the user typed.
  std::vector<const std::string*> All() const;
};

/// Lets `command` fill `options`.
void AddObjectOptions(CLI::App& command, ObjectOptions& options);

}  // namespace tevra::batch
