#include "app/batch/BackupOptions.h"

#include <CLI/CLI.hpp>

#include "app/batch/CommandLine.h"
#include "app/batch/WholeNumber.h"

namespace tevra::batch {

void AddBackupOptions(CLI::App& command, BackupOptions& options) {
  command
      .add_option("--to", options.folder,
                  "Directorul salvarii, care exista (implicit Salv_Tevra din directorul "
                  "societatilor)")
      ->type_name("DIR");
  command
      .add_option("--keep", options.keep,
                  "Pastreaza ultimele N salvari ale societatii din acel director si le sterge pe "
                  "celelalte")
      ->type_name("N");
}

void CheckBackupOptions(BackupOptions& options) {
  if (options.keep.empty()) return;
  options.kept = WholeNumber(options.keep).value_or(0);
  if (options.kept < 1) {
    throw UsageError("Optiunea --keep cere un numar de la 1 in sus: " + options.keep + " !");
  }
}

}  // namespace tevra::batch
