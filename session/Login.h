// What a login checks and does, without its window.
#pragma once

#include <optional>
#include <string>

#include "platform/data/Connection.h"
#include "platform/text/Failure.h"
#include "session/CompanyRegistry.h"

namespace tevra {

/// The directory of the databases that the user chose last, with one separator at its end; empty at
/// the first start.
std::string GetDatabasesPath();
/// Keeps it, and makes it the session's. Throws Failure 70.
void SaveDatabasesPath(const std::string& directory);

/// The first start: the application's directory becomes that of the databases and gets its company
/// 01. False, and nothing done, when no template is there. Throws Failure.
bool PrepareFirstStart();

/// The registry of a directory as the login lists it. Steps that fail are skipped; the first
/// failure is told with the statement at which it came.
struct LoadedCompanies {
  std::optional<CompanyRegistry> registry;
  std::optional<Failure> failure;
  int line = 0;
  /// The registry is damaged, has no company, or was not there, and company files lie in the
  /// directory that it does not list: RebuildRegistry would enter them.
  bool rebuildable = false;
};

/// Lists the companies of a directory: writes the registry where there is none (from the older
/// Societat.DBF, else the default one), brings databases of the older naming to today's, makes
/// company 01 where its database is missing.
LoadedCompanies LoadSocietati(const std::string& directory);

// What a login asks, of the session's company or of one that is open already.

/// True when the company has a user of that name, without case. Throws Failure.
bool ExistaUtilizator(const std::string& user);
bool ExistaUtilizator(Connection& company, const std::string& user);
/// True when name and password, both as typed, belong to a user; without case. Throws Failure.
bool ParolaValida(const std::string& user, const std::string& password);
bool ParolaValida(Connection& company, const std::string& user, const std::string& password);

/// True when the structure of the company is another than this build's. Throws Failure.
bool StructuraDiferita();
bool StructuraDiferita(Connection& company);

/// Writes this build's structure version into a database of the directory of the databases. Throws
/// Failure.
void SetVersiune(const std::string& database);
/// The same in an open company.
void SetVersiune(Connection& company);

}  // namespace tevra
