// The files that belong to the program and not to a company's directory, and the directory in which
// the program keeps companies when the user has chosen none.
#pragma once

#include <filesystem>

namespace tevra {

/// The directory of the running program.
std::filesystem::path ProgramDirectory();

/// From now on the program is taken to lie there, for tests; the empty path takes that back.
void SetProgramDirectory(const std::filesystem::path& directory);

/// The template company file that came with the program: beside it, or where an installation shares
/// it. Throws Failure 53 when there is none.
std::filesystem::path TemplatePath();

/// The program's own directory when the template lies there and it can be written, so that all of
/// it can be carried about; else the folder "tevra" among the user's data, which need not exist
/// yet.
std::filesystem::path ApplicationDirectory();

/// The template of a directory of companies. A directory that has none gets the program's; one
/// whose template is of an older structure gets it too, or a new company would lack what this
/// build's has. Throws Failure 53 when there is none at all, else as CopyCompanyFile and
/// Connection::Open.
std::filesystem::path TemplateIn(const std::filesystem::path& directory);

}  // namespace tevra
