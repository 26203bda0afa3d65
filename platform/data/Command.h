// A statement that is prepared once and run many times with different parameters.
#pragma once

#include <memory>
#include <string>

#include "platform/data/Connection.h"

namespace tevra {

/// For work on many rows, where preparing the statement each time would cost more than running it.
/// Keeps the file open, but no read or write between two runs.
class Command {
 public:
  /// A statement of the program's dialect. Throws Failure -2147217900.
  Command(const Connection& connection, const std::string& sql);
  ~Command();

  /// Runs a statement that returns no rows. Throws Failure like Connection::Execute.
  void Execute(const Values& params = {});

  /// The first field of the first row; Null when there is no row.
  [[nodiscard]] Value QueryValue(const Values& params = {});

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace tevra
