// The files that belong to the program and not to a company's directory.
#pragma once

#include <filesystem>

namespace tevra {

/// The directory of the running program.
std::filesystem::path ProgramDirectory();

/// The template company file that came with the program: beside it, or where an installation shares
/// it. Throws Failure 53 when there is none.
std::filesystem::path TemplatePath();

}  // namespace tevra
