// The login's checks and steps, without its window.
#pragma once

#include <optional>
#include <string>

#include "platform/data/Connection.h"
#include "platform/text/Failure.h"
#include "session/CompanyRegistry.h"

namespace tevra {

/// The databases' directory that the user chose last, with one separator at its end; empty at the
/// first start.
std::string GetDatabasesPath();
/// Stores it and sets it in the session. Throws Failure 70.
void SaveDatabasesPath(const std::string& directory);

/// The first start: the application's directory becomes the databases' directory and gets the
/// company 01. Returns false and does nothing when there is no template. Throws Failure.
bool PrepareFirstStart();

/// The registry of a directory, as the login lists it. A failed step is skipped; the first failure
/// is reported with its line number.
struct LoadedCompanies {
  std::optional<CompanyRegistry> registry;
  std::optional<Failure> failure;
  int line = 0;
  /// The registry is damaged, has no company, or was not there, and company files lie in the
  /// directory that it does not list: RebuildRegistry would enter them.
  bool rebuildable = false;
};

/// Lists the companies of a directory. Creates the registry if there is none (from the older
/// Societat.DBF, otherwise the default one), converts databases with older names, and creates
/// company 01 if its database is missing.
LoadedCompanies LoadSocietati(const std::string& directory);

// What a login asks, of the session's company or of one that is open already.

/// True when the company has a user of that name, without case. Throws Failure.
bool ExistaUtilizator(const std::string& user);
bool ExistaUtilizator(Connection& company, const std::string& user);
/// True when a user has this name and password, both untrimmed, without case. Throws Failure.
bool ParolaValida(const std::string& user, const std::string& password);
bool ParolaValida(Connection& company, const std::string& user, const std::string& password);

/// True when the structure of the company is another than this build's. Throws Failure.
bool StructuraDiferita();
bool StructuraDiferita(Connection& company);

/// Writes this build's structure version into a database in the databases' directory. Throws
/// Failure.
void SetVersiune(const std::string& database);
/// The same in an open company.
void SetVersiune(Connection& company);

}  // namespace tevra
