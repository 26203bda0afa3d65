// Creates and deletes a company's database in the directory of a registry.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "session/CompanyRegistry.h"

namespace tevra {

/// The database's file name for a company code: "Kelnar", the code in capitals, ".mdb".
std::string DatabaseOf(const std::string& code);

/// Copies the template of the directory to the company's database, over a file that is left there,
/// with this build's structure version. A directory that has no template, or one of an older
/// structure, gets the program's first. `prepare` may change the copy before it gets its name. All
/// or nothing; throws Failure as CopyCompanyFile, 53 without a template. The caller holds the
/// FolderLock where others may work in the directory.
void CreateDatabase(const std::string& directory, const std::string& database,
                    const std::function<void(const std::string& connectionString)>& prepare = {});

/// What to do with a file that already has the name of a new company's database.
enum class ExistingFile {
  kRefuse,    ///< keep it, and do not add the company
  kTakeOver,  ///< use it as the company's database, unchanged
  kReplace    ///< keep a copy in "Salv_Tevra" and make a new database
};

/// True when a file, a folder or a link already has the name of the database of this company code.
/// Throws Failure 76 for the empty directory.
bool DatabaseStands(const std::string& directory, const std::string& code);

/// Asks the user what to do with a file that has the name of the new company's database. Returns
/// kRefuse without a question when there is no such file, nothing when the user gives up.
std::optional<ExistingFile> AskAboutExistingFile(const std::string& directory,
                                                 const std::string& code);

/// Makes the company's database and writes the company's name into it, or takes over the existing
/// one. Adds the row to the registry and writes the registry, after reading what other programs
/// changed in it. When the name is empty, the one in the file that is taken over is used. A failed
/// step undoes the steps before it. Throws Failure 58 when another company uses that database or
/// `existing` is kRefuse and the file exists, -2147467259 for a file that cannot be taken over,
/// else as CreateDatabase and CompanyRegistry.
void AdaugaSocietate(CompanyRegistry& registry, const std::string& directory,
                     const std::string& code, const std::string& name,
                     ExistingFile existing = ExistingFile::kRefuse);

/// The same in the registry of a directory. When the directory has no registry, all its company
/// files are added first. Returns the company as added.
Company AdaugaSocietate(const std::string& directory, const std::string& code,
                        const std::string& name, ExistingFile existing = ExistingFile::kRefuse);

/// Adds the company files of a directory that its registry does not list, each with the name that
/// its file contains. A company 01 with the default name gets the name in its file. A registry that
/// cannot be read is copied to "Salv_Tevra" and made anew. Returns the number of companies added.
/// All or nothing; throws Failure 53 when there is no company at all, else as CompanyRegistry::Save
/// and KeptFile.
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
