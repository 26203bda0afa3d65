// The commands of the program while the command line is read.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "app/batch/Job.h"

namespace CLI {
class App;
}

namespace tevra::batch {

struct Argument {
  const char* name;
  std::string* value;
  const char* description;
};

struct CommandDescription {
  const char* name;
  const char* description;
  std::vector<Argument> arguments;  ///< all required, in their order
  Needs needs;
  std::function<void(const Job&)> run;
};

/// Every group adds its commands to it; see Groups.h.
class CommandSet {
 public:
  CommandSet(CLI::App& program, CommandLine& line) : program_(program), line_(line) {}

  /// What the commands fill in.
  CommandLine& Line() { return line_; }

  /// Adds a command; further options are added to what it returns.
  CLI::App& Add(const CommandDescription& description);

  /// Runs `check` when `command` was written and all its arguments are read. It may throw
  /// UsageError, and it may own what the command's options write to.
  void Check(const CLI::App& command, std::function<void()> check);

  /// Puts the command that was written into the line, and runs its checks. Throws UsageError
  /// when there is none.
  void Choose();

 private:
  struct Added {
    CLI::App* app;
    Needs needs;
    std::function<void(const Job&)> run;
  };

  CLI::App& program_;
  CommandLine& line_;
  std::vector<Added> commands_;
  std::vector<std::pair<const CLI::App*, std::function<void()>>> checks_;
};

/// Adds the switch for a result in CSV.
void AddCsvFlag(CLI::App& command, CommandLine& line);

/// Adds the switch for a look at what would be done.
void AddDryRunFlag(CLI::App& command, CommandLine& line, const char* description);

/// The help of an app in the program's form.
void AddHelp(CLI::App& app);

}  // namespace tevra::batch
