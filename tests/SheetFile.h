// What an .xlsx file holds, read back.
#pragma once

#include <filesystem>
#include <map>
#include <string>

namespace tevra::test {

/// The cells of its sheet: reference -> what stands there, "f:" before a formula.
std::map<std::string, std::string> CellsOf(const std::filesystem::path& sheet);

}  // namespace tevra::test
