#include "bench/PostingFloor.h"

#include <stdexcept>
#include <string>

#include <sqlite3.h>

#include "accounting/ChargePostings.h"
#include "bench/BareRows.h"
#include "platform/text/Numbers.h"

namespace tevra::bench {

namespace {

constexpr const char* kSelect =
    "SELECT S.COD_CC, CASE WHEN S.BLOCATA = -1 THEN S.VAL_BLOCATA * S.COTAL_LUNARA ELSE "
    "(S.VAL_CUMP "
    "- S.VALCHELEI) * S.COTAL_LUNARA END, I.CONT_AMO, I.CONT_CHELT, S.NRCRT FROM I_IMO S INNER "
    "JOIN "
    "I_CONTURIIM I ON S.CONT = I.CONT ORDER BY S.NRCRT";
constexpr const char* kInsert =
    "INSERT INTO Kv_Linii (NDI, NRLINIE, CONT, DEBIT, CREDIT, CODBUG, JURNAL, DATAINR, DOC, MARCA, "
    "DATASCAD, UTILIZATOR, TIMP, LITM, COD, CURS, DEVDEBIT, DEVCREDIT, CANTIT, TERT, TVA_LINREF, "
    "CODOPER, COTATVA, PROV, CODCC, CodIE, CodSucursala, ID_Formula, DocExplicatie, EXPL, "
    "CODTREZO) "
    "VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11, ?12, ?13, ?14, ?15, ?16, ?17, ?18, ?19, "
    "?20, ?21, ?22, ?23, ?24, ?25, ?26, ?27, ?28, ?29, ?30, ?31)";

void Check(int code) {
  if (code != SQLITE_OK) throw std::runtime_error(sqlite3_errstr(code));
}

class Floor {
 public:
  Floor(const std::filesystem::path& file, const DateTime& date)
      : db_(OpenBare(file)),
        document_(ChargeDocument(date)),
        day_(date.Iso()),
        due_(date.AddMonths(1).Iso()) {
    Run("PRAGMA journal_mode=WAL; PRAGMA synchronous=FULL; BEGIN IMMEDIATE");
    Run("DELETE FROM Kv_Linii WHERE DOC='" + document_ + "'");
    Check(sqlite3_prepare_v2(db_, kSelect, -1, &row_, nullptr));
    Check(sqlite3_prepare_v2(db_, kInsert, -1, &insert_, nullptr));
  }
  ~Floor() {
    sqlite3_finalize(row_);
    sqlite3_finalize(insert_);
    sqlite3_close(db_);
  }
  Floor(const Floor&) = delete;
  Floor& operator=(const Floor&) = delete;

  int Post() {
    int note = GreatestNote();
    int lines = 0;
    while (sqlite3_step(row_) == SQLITE_ROW) {
      const double charge = RoundTo(sqlite3_column_double(row_, 1), 2);
      if (charge == 0) continue;
      ++note;
      Write(note, 1, 2, 0, charge);
      Write(note, 2, 3, charge, 0);
      lines += 2;
    }
    Run("COMMIT");
    return lines;
  }

 private:
  void Run(const std::string& sql) {
    Check(sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, nullptr));
  }

  int GreatestNote() {
    sqlite3_stmt* greatest = nullptr;
    Check(sqlite3_prepare_v2(db_, "SELECT max(NDI) FROM Kv_Linii", -1, &greatest, nullptr));
    sqlite3_step(greatest);
    const int note = sqlite3_column_int(greatest, 0);
    sqlite3_finalize(greatest);
    return note;
  }

  void Text(int column, const std::string& text) {
    sqlite3_bind_text(insert_, column, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
  }

  void CopyText(int column, int from) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(row_, from));
    sqlite3_bind_text(insert_, column, text ? text : "", -1, SQLITE_TRANSIENT);
  }

  void Write(int note, int line, int account, double debit, double credit) {
    sqlite3_bind_int(insert_, 1, note);
    sqlite3_bind_int(insert_, 2, line);
    CopyText(3, account);
    sqlite3_bind_double(insert_, 4, debit);
    sqlite3_bind_double(insert_, 5, credit);
    CopyText(6, 0);
    int column = 7;
    for (const std::string* text :
         {&journal_, &day_, &document_, &document_, &due_, &user_, &now_, &empty_, &currency_}) {
      Text(column++, *text);
    }
    for (const double amount : {0.0, 0.0, 0.0, 1.0}) {
      sqlite3_bind_double(insert_, column++, amount);
    }
    sqlite3_bind_null(insert_, column++);
    for (int number = 0; number < 3; ++number) sqlite3_bind_int(insert_, column++, 0);
    for (const std::string* text : {&origin_, &empty_, &empty_, &branch_}) Text(column++, *text);
    sqlite3_bind_int(insert_, column++, 0);
    for (int text = 0; text < 3; ++text) Text(column++, empty_);
    if (sqlite3_step(insert_) != SQLITE_DONE) throw std::runtime_error(sqlite3_errmsg(db_));
    sqlite3_reset(insert_);
  }

  sqlite3* db_ = nullptr;
  sqlite3_stmt* row_ = nullptr;
  sqlite3_stmt* insert_ = nullptr;
  const std::string document_;
  const std::string day_;
  const std::string due_;
  const std::string journal_ = "OD";
  const std::string user_ = "admin";
  const std::string now_ = "2026-11-23 10:00:00";
  const std::string currency_ = "LEI";
  const std::string origin_ = "I";
  const std::string branch_ = "01";
  const std::string empty_;
};

}  // namespace

int RunPostingFloor(const std::filesystem::path& file, const DateTime& date) {
  return Floor(file, date).Post();
}

}  // namespace tevra::bench
