// Shared routines for access to the company database and for messages. Each routine opens its own
// connection and closes it; nothing stays open between calls.
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

/// The path after "Data Source=", in capitals; empty when the string has none.
std::string getDataSource(const std::string& connectionString);

/// The company code of the open database: the part of its name between "Kelnar" and the
/// extension.
std::string GetCodSocietate();

/// The company's connection string in the form for grouped report commands.
std::string GetShapeConnection();

/// An open recordset on its own connection, which lives as long as the recordset. `params` are the
/// values of the statement's "?". Throws Failure.
Recordset OpenRecordset(const std::string& sql, const Values& params = {});

/// Runs a statement that returns no rows on a connection of its own; returns the rows affected.
/// Throws Failure.
std::int64_t ExecuteSQL(const std::string& sql, const Values& params = {});

/// A recordset without a connection. A failure shows the standard message and returns a closed
/// recordset.
Recordset getDisconectedRecordset(const std::string& sql, bool shape = false,
                                  const Values& params = {});

/// Opens the company on a closed connection. Throws Failure like Connection::Open.
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

/// True when the table that belongs to the key has the value. An unknown key shows a message
/// ("EROARE") and returns false. Throws Failure.
bool ExistaInTabela(const std::string& value, const std::string& key);

/// The type of a user; 2, the fewest rights, for a user without a type and for an unknown name.
/// Throws Failure when it cannot be read, because 0 would grant all rights.
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
