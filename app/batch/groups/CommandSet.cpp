#include "app/batch/groups/CommandSet.h"

#include <CLI/CLI.hpp>

namespace tevra::batch {

CLI::App& CommandSet::Add(const CommandDescription& description) {
  CLI::App* command = program_.add_subcommand(description.name, description.description);
  command->group("Comenzi");
  command->footer("Optiunile programului: tevra-batch --help");
  AddHelp(*command);
  for (const Argument& argument : description.arguments) {
    command->add_option(argument.name, *argument.value, argument.description)
        ->type_name("")
        ->required();
  }
  commands_.push_back({command, description.needs, description.run});
  return *command;
}

void CommandSet::Check(const CLI::App& command, std::function<void()> check) {
  checks_.emplace_back(&command, std::move(check));
}

void CommandSet::Choose() {
  const Added* chosen = nullptr;
  for (const Added& added : commands_) {
    if (added.app->parsed()) chosen = &added;
  }
  if (const auto unknown = program_.remaining(true); !unknown.empty()) {
    const bool command = !chosen && unknown.front().rfind('-', 0) != 0;
    throw UsageError((command ? "Comanda necunoscuta: " : "Argument necunoscut: ") +
                     unknown.front() + " !");
  }
  if (!chosen) throw UsageError("Lipseste comanda !");
  line_.commandName = chosen->app->get_name();
  line_.needs = chosen->needs;
  line_.run = chosen->run;
  for (const auto& [app, check] : checks_) {
    if (app == chosen->app) check();
  }
}

void AddCsvFlag(CLI::App& command, CommandLine& line) {
  command.add_flag("--csv", line.csv, "Scrie rezultatul ca fisier CSV");
}

void AddDryRunFlag(CLI::App& command, CommandLine& line, const char* description) {
  command.add_flag("--dry-run", line.dryRun, description);
}

void AddHelp(CLI::App& app) {
  app.set_help_flag("-h,--help", "Arata acest ajutor");
}

}  // namespace tevra::batch
