// The shared road to the company database and to the user. Every routine opens what it needs and
// lets it go; nothing stays open between calls.
#pragma once

#include <array>
#include <string>

#include "platform/data/Connection.h"
#include "platform/data/Recordset.h"

namespace tevra {

/// The connection string of a company file in a directory, with the program's file password.
std::string CompanyConnectionString(const std::string& databasesPath, const std::string& database);

/// The file password of company databases.
inline constexpr const char* kFilePassword = "QXT2746";

/// The path behind "Data Source=", in capitals; empty when the string has none.
std::string getDataSource(const std::string& connectionString);

/// The company code of the open database: what stands between "Kelnar" and the extension of its
/// name.
std::string GetCodSocietate();

/// The company string made fit for grouped report commands.
std::string GetShapeConnection();

/// An open recordset on a connection of its own, which lives as long as the recordset. "?" in the
/// statement are `params`. Throws Failure.
Recordset OpenRecordset(const std::string& sql, const Values& params = {});

/// Runs a statement that returns no rows on a connection of its own; returns the rows affected.
/// Throws Failure.
std::int64_t ExecuteSQL(const std::string& sql, const Values& params = {});

/// A recordset cut from its connection. A failure shows the standard message and returns a closed
/// one.
Recordset getDisconectedRecordset(const std::string& sql, bool shape = false,
                                  const Values& params = {});

/// Opens the company on a connection that is not open. Throws Failure as Connection::Open.
void OpenConnection(Connection& connection);
void CloseConnection(Connection& connection);
void CloseRecordset(Recordset& recordset);

/// The number of rows of a table. Throws Failure.
long GetRecordCount(const std::string& table);

/// 0 for Null without a default, the default for Null with one, 0 for the empty text in any case,
/// else the value.
Value Nz(const Value& value);
Value Nz(const Value& value, const Value& byDefault);

/// The first field of the first row as text; the empty text when nothing is found or it is Null.
/// Throws Failure.
std::string GetTextDataCombo(const std::string& sql, const Values& params = {});

/// The next free number of a table: the greatest one plus 1, or 1. Not reserved in any way. The
/// table name is compared with case. Throws Failure.
long GetNextNumber(const std::string& table);

/// True when the table that the key stands for has the value. A key that nobody knows is told
/// ("EROARE") and gives false. Throws Failure.
bool ExistaInTabela(const std::string& value, const std::string& key);

/// The type of a user; 2, the least rights, for one without a type and a name that is not there.
/// Throws Failure when it cannot be read: 0 would open every right.
int TipUtilizator(const std::string& user);
int TipUtilizator(Connection& company, const std::string& user);

/// Reads kv_par into the session; dates that are Null become today. Throws Failure.
void LoadParametri();
void LoadParametri(Connection& company);

double Max(double a, double b);

/// Every message of the program goes through here. `buttons`: the buttons word of the box; an empty
/// title becomes the application's; `helpContext` is not used; `captions` replace those of the
/// buttons in order. Returns the code of the pressed button.
long MsgBoxEx(const std::string& prompt, long buttons = 0, const std::string& title = {},
              long helpContext = 0, const std::array<std::string, 4>& captions = {});

}  // namespace tevra
