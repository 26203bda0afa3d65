// Reads the description of the company file's structure (schema.txt).
#pragma once

#include <istream>
#include <map>
#include <string>
#include <vector>

#include "platform/data/Catalogue.h"

namespace tevra {

/// A table with the columns of another one.
struct CopyDef {
  std::string name;
  std::string original;
};

struct Schema {
  std::vector<TableDef> tables;  ///< in the order of the description, the copies included
  std::vector<QueryDef> queries;
  std::vector<CopyDef> copies;
  /// The comments behind fields and queries, by "table.field" and by the query's name.
  std::map<std::string, std::string> meanings;
};

/// Reads a description; README.md of this folder describes its form. Throws Failure 13 naming the
/// line.
Schema ReadSchema(std::istream& in);

}  // namespace tevra
