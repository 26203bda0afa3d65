// Reads the readable description of the company file's structure.
#pragma once

#include <istream>
#include <string>
#include <vector>

#include "platform/data/Catalogue.h"

namespace tevra {

struct Schema {
  std::vector<TableDef> tables;  ///< in the order of the description
  std::vector<QueryDef> queries;
};

/// Reads a description; README.md of this folder tells its form. Throws Failure 13 naming the line.
Schema ReadSchema(std::istream& in);

}  // namespace tevra
