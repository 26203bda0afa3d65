// An export's file between its writing and its final name.
//
// An export writes a temporary file in the company's export folder. The transaction that marks the
// exported lines also records the file's name in the company. After its commit the file gets its
// final name and the record is removed. Whatever point a crash comes at, the next opening of the
// company finishes the work: it renames a recorded file, and removes one that is not recorded.
#pragma once

#include <filesystem>
#include <string>

#include "platform/data/Connection.h"
#include "platform/text/DateTime.h"

namespace tevra {

/// "Export" in the directory of the companies.
std::filesystem::path ExportRoot();

/// The folder of the open company's exports within it.
std::filesystem::path ExportFolder();

/// "Export31.12.2006 - 14.05.09.xml".
std::string ExportFileName(const DateTime& moment);

/// The temporary file of an export with that final name.
std::filesystem::path TemporaryExport(const std::string& name);

/// Renames the recorded file and removes those that are not recorded. Throws Failure, 70 or 76 when
/// the file cannot be renamed; it stays recorded then.
void SettleExport(Connection& company);

/// The same when a company is opened. Opens the company only when a temporary file is there. A
/// failure is logged and repeated by the next export, where the user sees it.
void SettleExportAtOpening() noexcept;

}  // namespace tevra
