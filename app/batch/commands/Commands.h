// The program's commands. Those that work on a company need the session of a login.
#pragma once

#include <filesystem>
#include <ostream>
#include <string>

#include "app/batch/CommandLine.h"
#include "app/batch/Job.h"
#include "app/batch/Streams.h"
#include "platform/data/Connection.h"
#include "platform/text/DateTime.h"
#include "session/Companies.h"

namespace tevra::batch {

/// Writes code, name and file of the companies in a directory.
void ListCompanies(const std::string& directory, std::ostream& out);

/// Makes a company from the template, or takes over the database that is there, and enters it in
/// the registry, which is written when there is none. A file in the way is not touched unless
/// `existing` says so, and when a step fails what was made goes again. Throws Refusal for a code or
/// name that is empty, not allowed or taken, Failure of the files.
void CreateCompany(const std::string& directory, const std::string& code, const std::string& name,
                   ExistingFile existing, std::ostream& out);

/// Enters the company files of a directory that its registry lacks; a damaged registry is kept
/// aside and made anew.
void RebuildList(const std::string& directory, std::ostream& out);

/// Loads the rows of a CSV file ("-": of the standard input) into a table of the open company, all
/// or none. Prints each refused row with its line on the error output and then throws Refusal. Also
/// throws Refusal for a table that the user may not change.
void LoadFile(const std::string& file, const std::string& table, const Streams& streams);

/// Reads 31.12.2006 or 2006-12-31; throws Refusal for anything else.
DateTime ParseDate(const std::string& text);

/// Reads 12.2006 as the first day of that month; throws Refusal for anything else.
DateTime ParseMonth(const std::string& text);

/// The monthly run over all assets and, with `post`, its postings after a successful run. Asks
/// first when posting would delete other notes than the month's. Throws Refusal with the reason
/// when one of them failed.
void Calculate(const DateTime& date, bool post, std::ostream& out);

/// Asks, moves the small assets to the inventory objects at the end of a month and prints the
/// copies and the notes. `dryRun`: prints them without asking and writes nothing. Throws Refusal
/// with the reason when there is nothing to move, the last calculation was of another month, or it
/// failed.
void Transfer(Connection& company, const DateTime& month, bool dryRun, std::ostream& out);

/// Calculates one asset for a date, like a disposal, and prints the result. Throws Refusal when no
/// asset has the COD or it cannot be calculated.
void CalculateOneAsset(Connection& company, const std::string& cod, const DateTime& date, bool csv,
                       std::ostream& out);

/// Takes the asset with the line's COD, or with its NRCRT where there is no COD, out of the
/// register on that date, as its window does, and prints the notes of a sale. Asks before notes of
/// something else under the document are deleted. Throws Refusal for an unknown asset, a COD of
/// several assets, what the window refuses and codes that its lists do not have; the asset is
/// calculated to the date before the company's own data are checked. Throws Failure when the
/// asset's row cannot be written.
void DisposeOfAsset(Connection& company, const CommandLine& line, const DateTime& date,
                    std::ostream& out);

/// Makes the plan of an asset by its NRCRT and prints it. Throws Refusal for an unknown asset or
/// one without a plan, Failure when the plan cannot be made; the previous plan is then kept.
void WritePlan(const std::string& nrcrt, bool csv, std::ostream& out);

/// Writes all assets by number and the six totals of their list.
void ListAssets(bool csv, std::ostream& out);

/// Writes all inventory objects, the newest first, and the totals of their list.
void ListObjects(bool csv, std::ostream& out);

/// Adds an inventory object with its purchase note, as its card does, and prints the note. Asks
/// before notes under its document are deleted. Throws Refusal for what the card refuses and for a
/// code that its lists do not have, Failure when the object cannot be written.
void AddObject(Connection& company, const ObjectOptions& options, std::ostream& out);

/// Writes off the inventory object with that NRCRT as it is stored and prints the note. Throws
/// Refusal for what the card refuses, Failure when nothing could be written.
void WriteOffObject(Connection& company, const std::string& nrcrt, std::ostream& out);

/// Takes the rates of a file of the National Bank and prints how many were new, changed, unchanged
/// and skipped. Throws Refusal for a file that cannot be read; nothing has changed then.
void TakeRates(Connection& company, const std::string& file, std::ostream& out);

/// Prints the rate of a currency on a day, or on the last day before it that has one, with that
/// day. Throws Refusal when there is none.
void PrintRate(Connection& company, const std::string& currency, const DateTime& day,
               std::ostream& out);

/// Writes the data of a period for the centre and prints the file's name and its numbers of rows.
/// Asks before lines that were exported are exported again, unless `again`.
void ExportPeriod(Connection& company, const DateTime& from, const DateTime& to, bool again,
                  std::ostream& out);

/// Takes in the file of a branch after a backup and prints what it changed. `dryRun`: what it would
/// change. Throws Refusal, with the file and the place, for a file that cannot be taken in; nothing
/// has changed then.
void ImportBranch(Connection& company, const std::string& file, bool dryRun, std::ostream& out);

/// Ends the month in the companies of the line, one after another, and prints what was done in
/// each. A company that fails does not stop the others. Throws Refusal at once for a wrong date,
/// folder or file of passwords, and at the end when a company failed.
void EndMonths(const Job& job);

/// Throws Refusal unless the user of the session has the rights of the menu "Intretinere".
void RequireMaintenance();

/// Looks for damage in the file of the session's company, which only reads it, and prints what was
/// found. Throws Refusal with the newest sound backup when it is damaged.
void CheckCompany(bool full, std::ostream& out);

/// Back up, restore and compact the session's company, whose file must not be open here; only for
/// users with the rights of the menu "Intretinere". They print what was done. Restoring a backup
/// of another company asks first. Throw Refusal with the reason.
void BackUpCompany(const BackupOptions& options, std::ostream& out);
void RestoreCompany(const std::string& file, std::ostream& out);
void CompactCompany(std::ostream& out);

/// Upgrades the structure of the session's company, whose file must not be open here, and prints
/// what was changed and what could not be. `dryRun`: prints it and changes nothing. Throws Refusal
/// with the reason.
void UpgradeCompany(bool dryRun, std::ostream& out);

/// Asks and converts the open company to new lei, after a backup, and prints both. Throws Refusal
/// when it was converted before, and with the reason of a failure.
void RedenominateCompany(Connection& company, std::ostream& out);

/// The works on the classification of 2005, in their order.
enum class Reclassification { kCodes, kDurations, kRestart };

/// Does one of them on the open company after a backup, and prints both. Throws Refusal with the
/// asset that stopped the restart and the number of those before it, which stay restarted, and with
/// the reason of a failure.
void ReclassifyCompany(Connection& company, Reclassification work, std::ostream& out);

/// The path of the backup to restore. Throws Refusal when there is no such file.
std::filesystem::path BackupToRestore(const std::string& written);

/// Prints the month's charge of every asset after the last run, in groups with their sums.
void ListCharges(Grouping grouping, bool csv, std::ostream& out);

}  // namespace tevra::batch
