// tevra-documents [--check] SOURCE: writes the generated tables into the documents under SOURCE.
// With --check it changes nothing and fails when a document is out of date.
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>

#include "docs/generate/CompanyFileTables.h"
#include "docs/generate/RightsTable.h"
#include "platform/text/Failure.h"

namespace tevra {

namespace {

namespace fs = std::filesystem;

std::string ReadFile(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) throw Failure(kFileNotFound, "File not found: " + file.string());
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

Blocks TablesOf(const fs::path& description) {
  std::istringstream in(ReadFile(description));
  return CompanyFileTables(ReadSchema(in));
}

bool BringUpToDate(const fs::path& document, const Blocks& blocks, bool check) {
  const std::string before = ReadFile(document);
  const std::string after = WithBlocks(before, blocks);
  if (after == before) return true;
  if (check) {
    std::cerr << document.string() << " is out of date: run tools/documents\n";
    return false;
  }
  std::ofstream(document, std::ios::binary) << after;
  return true;
}

bool Run(const fs::path& source, bool check) {
  const bool tables = BringUpToDate(source / "docs/company-file.md",
                                    TablesOf(source / "template/schema.txt"), check);
  const bool rights = BringUpToDate(source / "docs/ghid/utilizatori.html",
                                    {{"drepturi", RightsTable(MenuTable())}}, check);
  return tables && rights;
}

}  // namespace

}  // namespace tevra

int main(int argc, char** argv) {
  const bool check = argc == 3 && std::string(argv[1]) == "--check";
  if (argc != 2 && !check) {
    std::cerr << "usage: tevra-documents [--check] SOURCE\n";
    return 2;
  }
  try {
    return tevra::Run(argv[argc - 1], check) ? 0 : 1;
  } catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
  }
}
