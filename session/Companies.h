// Making and deleting a company's database in the directory of a registry.
#pragma once

#include <functional>
#include <string>

#include "session/CompanyRegistry.h"

namespace tevra {

/// The database's file name of a company code: "Kelnar", the code in capitals, ".mdb".
std::string DatabaseOf(const std::string& code);

/// Copies the template of the directory to the company's database, over a file that is left there,
/// with this build's structure version. A directory that has no template, or one of an older
/// structure, gets the program's first. `prepare` may change the copy before it gets its name. All
/// or nothing; throws Failure as CopyCompanyFile, 53 without a template. The caller holds the
/// FolderLock where others may work in the directory.
void CreateDatabase(const std::string& directory, const std::string& database,
                    const std::function<void(const std::string& connectionString)>& prepare = {});

/// Makes the company's database, adds the row to the registry and writes the registry, with what
/// other programs entered there meanwhile. When a step fails the ones before are taken back. Throws
/// Failure 58 when another company has that database, else as CreateDatabase and CompanyRegistry.
void AdaugaSocietate(CompanyRegistry& registry, const std::string& directory,
                     const std::string& code, const std::string& name);

/// Deletes the company's database and its row, and writes the registry, as AdaugaSocietate does. A
/// database that is in use is kept with its row: throws Failure 70 with its name. A database that
/// is not there, or no database any more, does not hinder; one that another company names stays,
/// and so does every file when the row's code is none. Throws Failure 3265 for a row that is not
/// there, else as CompanyRegistry::Save.
void StergeSocietate(CompanyRegistry& registry, const std::string& directory,
                     const Company& company);

/// Writes the rows as they were changed here, with what other programs entered meanwhile. Throws
/// Failure as CompanyRegistry::Refresh and Save.
void SaveRegistry(CompanyRegistry& registry, const std::string& directory);

}  // namespace tevra
