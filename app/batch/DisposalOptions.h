// The data of a disposal on the command line.
#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace tevra::batch {

struct CommandLine;

/// As written; empty where not given.
struct DisposalOptions {
  bool scrap = false;
  bool sell = false;
  std::string price;
  std::string client;
  std::string document;
  std::string expense;
  std::string customer;
  std::string revenue;
  std::string vat;

  /// All texts, for leaving out of the log what the user typed.
  std::vector<const std::string*> All() const;
};

/// Lets `command` fill `line`: the asset, the date and the options.
void AddDisposalOptions(CLI::App& command, CommandLine& line);

/// Puts the arguments where they belong, because with --nrcrt the only one is the date. Throws
/// UsageError for arguments that are missing or too many. Also throws UsageError unless exactly one
/// kind of exit was chosen, and for an option of a sale with a scrapping. What a sale lacks is
/// refused later, in the words of the window.
void CheckDisposalOptions(const CLI::App& command, CommandLine& line);

}  // namespace tevra::batch
