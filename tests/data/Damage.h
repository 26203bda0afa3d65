// Damages a company file in one place.
#pragma once

#include <filesystem>
#include <fstream>
#include <string>

#include "platform/data/Connection.h"

namespace tevra {

/// Overwrites the first page of a table. The rest of the file can be read and written as before.
/// Nobody else may have the file open.
inline void DamageTable(const std::string& connectionString, const std::string& table) {
  Connection company(connectionString);
  const auto number = [&](const std::string& sql) { return company.QueryValue(sql).AsLong(); };
  const auto page = number("SELECT rootpage FROM sqlite_master WHERE name = '" + table + "'");
  const auto size = number("PRAGMA page_size");
  const std::string path = company.Path();
  company.Close();
  std::fstream file(path, std::ios::binary | std::ios::in | std::ios::out);
  file.seekp(static_cast<std::streamoff>(page - 1) * size);
  file << std::string(static_cast<std::size_t>(size), 'x');
}

}  // namespace tevra
