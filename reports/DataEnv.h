// The data environment: the named commands of the reports and their rows.
#pragma once

#include <string>
#include <variant>
#include <vector>

#include "platform/data/Recordset.h"
#include "platform/shape/ShapedRecordset.h"

namespace tevra {

/// Commands are found by name, without case. Each has one recordset, closed until it is run. All
/// routines throw Failure 3265 for an unknown name.
class DataEnv {
 public:
  DataEnv();

  std::vector<std::string> CommandNames() const;
  const std::string& CommandText(const std::string& command) const;

  /// Runs a command on the company (GetShapeConnection) and replaces its previous rows; when it
  /// fails, the previous rows remain. `params`: for a command with dates, the first and the last
  /// day of the period. Throws Failure with the command's text as its source.
  void Run(const std::string& command, const Values& params = {});

  /// Runs an open command again with the same parameters. Throws Failure 424 when it is
  /// closed.
  void Requery(const std::string& command);

  bool IsOpen(const std::string& command) const;
  void Close(const std::string& command);  ///< has no effect when it is closed

  /// To be called before work that needs the company file alone: plain commands keep it open.
  void CloseAll();

  /// The rows of a grouped command ("rs" and its name), as they were when it was run. The returned
  /// rows remain valid when it is closed or run again. Throws Failure 424 for a plain command.
  ShapedRecordset Rs(const std::string& command) const;

  /// The same for a plain command. It keeps the company file open.
  Recordset PlainRs(const std::string& command) const;

 private:
  struct Command {
    std::string name;
    std::string text;
    std::variant<Recordset, ShapedRecordset> rs;
    Values params;
  };
  Command& Find(const std::string& name);
  const Command& Find(const std::string& name) const;

  std::vector<Command> commands_;
};

/// The program's data environment.
DataEnv& CurrentDataEnv();

}  // namespace tevra
