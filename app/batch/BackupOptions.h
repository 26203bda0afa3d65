// The options of a backup on the command line.
#pragma once

#include <string>

namespace CLI {
class App;
}

namespace tevra::batch {

/// As written; empty where not given.
struct BackupOptions {
  std::string folder;
  std::string keep;

  int kept = 0;  ///< `keep` as a number; 0 keeps all
};

/// Lets `command` fill `options`.
void AddBackupOptions(CLI::App& command, BackupOptions& options);

/// Reads the number of backups to keep. Throws UsageError unless it is 1 or more.
void CheckBackupOptions(BackupOptions& options);

}  // namespace tevra::batch
