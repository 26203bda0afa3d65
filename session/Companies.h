// Making and deleting a company's database in the directory of a registry.
#pragma once

#include <functional>
#include <optional>
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

/// What becomes of a file that stands where a new company's database would.
enum class ExistingFile {
  kRefuse,    ///< it stays, and the company is not added
  kTakeOver,  ///< it becomes the company's database as it is
  kReplace    ///< a new database takes its place, and it is kept in "Salv_Tevra"
};

/// True when something, be it a damaged file, stands where the database of a new company would.
/// Throws Failure 76 for the empty directory.
bool DatabaseStands(const std::string& directory, const std::string& code);

/// Asks the user what becomes of a file that stands where the new company's database would. Nothing
/// when nothing is to be done; kRefuse where no file stands.
std::optional<ExistingFile> AskAboutExistingFile(const std::string& directory,
                                                 const std::string& code);

/// Makes the company's database with its name in it, or takes over the one that is there, adds the
/// row to the registry and writes the registry, with what other programs entered there meanwhile.
/// An empty name is that in the file which is taken over. When a step fails the ones before are
/// taken back. Throws Failure 58 when another company has that database or a file stands there that
/// is neither to be taken over nor replaced, -2147467259 for one that cannot be taken over, else as
/// CreateDatabase and CompanyRegistry.
void AdaugaSocietate(CompanyRegistry& registry, const std::string& directory,
                     const std::string& code, const std::string& name,
                     ExistingFile existing = ExistingFile::kRefuse);

/// The same in the registry of a directory; where there is none the companies whose files lie there
/// are entered first. Returns the company as it was entered.
Company AdaugaSocietate(const std::string& directory, const std::string& code,
                        const std::string& name, ExistingFile existing = ExistingFile::kRefuse);

/// Brings the registry of a directory in line with the company files there: those that it does not
/// list are entered, by the name in the file, and a company 01 without a name gets that of its file. A registry that cannot be read is kept in
/// "Salv_Tevra" and made anew. Returns the number of companies entered. All or nothing; throws
/// Failure 53 when there is no company at all, else as CompanyRegistry::Save and KeptFile.
int RebuildRegistry(const std::string& directory);

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
