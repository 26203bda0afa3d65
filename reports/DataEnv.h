// The data environment: the named commands of the reports and the rows they gave.
#pragma once

#include <string>
#include <variant>
#include <vector>

#include "platform/data/Recordset.h"
#include "platform/shape/ShapedRecordset.h"

namespace tevra {

/// Commands by name, without case. Each has one recordset, closed until it is run. All routines
/// throw Failure 3265 for a name that is no command's.
class DataEnv {
 public:
  DataEnv();

  std::vector<std::string> CommandNames() const;
  const std::string& CommandText(const std::string& command) const;

  /// Runs a command over the company (GetShapeConnection) as it is now and keeps its rows in the
  /// place of those of before; when it fails those stay. `params`: for a command with dates the
  /// first and the last of the period. Throws Failure with the command's text as its source.
  void Run(const std::string& command, const Values& params = {});

  /// Runs an open command again with the same parameters. Throws Failure 424 for one that is
  /// closed.
  void Requery(const std::string& command);

  bool IsOpen(const std::string& command) const;
  void Close(const std::string& command);  ///< nothing when it is closed

  /// For what needs the company file alone: the rows of plain commands hold it.
  void CloseAll();

  /// The rows of a grouped command ("rs" and its name), as they were when it was run. They stay
  /// when the command is closed or run again. Throws Failure 424 for a plain command.
  ShapedRecordset Rs(const std::string& command) const;

  /// The same of a plain command. It holds the company file.
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

/// The one data environment of the program.
DataEnv& CurrentDataEnv();

}  // namespace tevra
