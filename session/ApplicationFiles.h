// The program's own files, and the default directory of companies.
#pragma once

#include <filesystem>

namespace tevra {

/// The directory of the running program.
std::filesystem::path ProgramDirectory();

/// For tests: sets the program's directory; the empty path restores the real one.
void SetProgramDirectory(const std::filesystem::path& directory);

/// The program's template company file: beside the program or in the installation's shared folder.
/// Throws Failure 53 when there is none.
std::filesystem::path TemplatePath();

/// The program's own directory if it contains the template and is writable, so that program and
/// data can be moved together; otherwise the folder "tevra" in the user's data directory, which
/// need not exist yet.
std::filesystem::path ApplicationDirectory();

/// The template with the current structure for a directory of companies: the directory's own one,
/// or the program's when that is missing or older. Throws Failure as TemplateIn.
std::filesystem::path TemplateFor(const std::filesystem::path& directory);

/// The template of a directory of companies. When it is missing or has an older structure, it is
/// replaced by the program's template, so that a new company gets the current structure. Throws
/// Failure 53 when there is no template at all, otherwise like CopyCompanyFile and
/// Connection::Open.
std::filesystem::path TemplateIn(const std::filesystem::path& directory);

}  // namespace tevra
