// A small company in memory, asked in the statements' dialect as a connection asks it.
#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include <sqlite3.h>

#include "platform/dialect/Rewriter.h"
#include "platform/text/Failure.h"

namespace tevra::dialect {

using Parameter = std::variant<int, double, std::string>;
using Parameters = std::vector<Parameter>;
using Lines = std::vector<std::string>;

class Company {
 public:
  /// With the tables and rows of company.sql.
  Company();
  ~Company();
  Company(const Company&) = delete;
  Company& operator=(const Company&) = delete;

  /// The rows, their values between "|"; Null as "NULL", a real number always with its point.
  Lines Rows(const std::string& sql, const Parameters& parameters = {}, Options options = {});

  /// The names of the result's columns between "|".
  std::string Columns(const std::string& sql, Options options = {});

  /// Runs a statement and gives the number of rows that it changed.
  int Run(const std::string& sql, const Parameters& parameters = {});

  /// Runs statements in the engine's own words.
  void Engine(const std::string& sql);

 private:
  sqlite3_stmt* Prepare(const std::string& sql, Options options);
  std::vector<std::string> ColumnsOf(const std::string& select);
  [[noreturn]] void Fail();

  sqlite3* db_ = nullptr;
  std::optional<Failure> pending_;
};

/// The number of the failure that the statement ends with; 0 when it runs.
long FailureOf(Company& company, const std::string& sql);

}  // namespace tevra::dialect
