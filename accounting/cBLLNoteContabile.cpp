#include "accounting/cBLLNoteContabile.h"

#include <map>
#include <optional>
#include <vector>

#include "platform/data/Catalogue.h"
#include "platform/data/Command.h"
#include "platform/system/Clock.h"
#include "platform/text/Numbers.h"
#include "platform/text/Strings.h"
#include "session/Module1.h"

namespace tevra {

namespace {

constexpr const char* kTable = "Kv_Linii";
constexpr long kNoSuchMember = 438;

using Note = cBLLNoteContabile;
using Property = Value (*)(const Note&);

// By the column's name in capitals.
const std::map<std::string, Property>& Properties() {
  static const std::map<std::string, Property> kProperties{
      {"NDI", [](const Note& n) { return Value(n.NDI); }},
      {"NRLINIE", [](const Note& n) { return Value(n.NrLinie); }},
      {"JURNAL", [](const Note& n) { return Value(n.Jurnal); }},
      {"DATAINR", [](const Note& n) { return Value(n.DataInr); }},
      {"CONT", [](const Note& n) { return Value(n.Cont); }},
      {"EXPL", [](const Note& n) { return Value(n.Expl); }},
      {"DEBIT", [](const Note& n) { return Value(n.Debit); }},
      {"CREDIT", [](const Note& n) { return Value(n.Credit()); }},
      {"DOC", [](const Note& n) { return Value(n.Doc); }},
      {"MARCA", [](const Note& n) { return Value(n.Marca); }},
      {"LITM", [](const Note& n) { return Value(n.LitM); }},
      {"CODBUG", [](const Note& n) { return Value(n.CodBUG); }},
      {"CODTREZO", [](const Note& n) { return Value(n.CodTREZO); }},
      {"COD", [](const Note& n) { return Value(n.cod.empty() ? "LEI" : n.cod); }},
      {"CURS", [](const Note& n) { return Value(n.Curs); }},
      {"DEVDEBIT", [](const Note& n) { return Value(n.DevDebit); }},
      {"DEVCREDIT", [](const Note& n) { return Value(n.DevCredit); }},
      {"CANTIT", [](const Note& n) { return Value(n.Cantit); }},
      {"TERT", [](const Note& n) { return n.Tert; }},
      {"TVA_LINREF", [](const Note& n) { return Value(n.TVA_LinRef); }},
      {"CODOPER", [](const Note& n) { return Value(n.CodOper); }},
      {"COTATVA", [](const Note& n) { return Value(n.CotaTVA); }},
      {"PROV", [](const Note& n) { return Value(n.Prov); }},
      {"CODCC", [](const Note& n) { return Value(n.CodCC); }},
      {"DATASCAD", [](const Note& n) { return n.DataScad; }},
      {"UTILIZATOR", [](const Note& n) { return Value(n.Utilizator); }},
      {"TIMP", [](const Note& n) { return Value(n.Timp); }},
      {"CODIE", [](const Note& n) { return Value(n.CodIE); }},
      {"CODSUCURSALA", [](const Note& n) { return Value(n.CodSucursala); }},
      {"ID_FORMULA", [](const Note& n) { return Value(n.ID_Formula); }},
      {"DOCEXPLICATIE", [](const Note& n) { return Value(n.DocExplicatie); }},
      {"TIPDOC", [](const Note& n) { return Value(n.TipDoc); }},
  };
  return kProperties;
}

}  // namespace

/// The statements of one connection, and which property goes into which column.
class cBLLNoteContabile::Writer {
 public:
  explicit Writer(const Connection& connection)
      : connection_(connection),
        greatestNote(connection, "select MAX(NDI) from Kv_Linii"),
        greatestLine(connection, "select MAX(NrLinie) from Kv_Linii WHERE NDI=?") {
    std::string names;
    std::string marks;
    for (const FieldDef& field : Catalogue(connection).Table(kTable).fields) {
      const auto property = Properties().find(UCase(field.name));
      if (property == Properties().end()) {
        throw Failure(kNoSuchMember,
                      "Object doesn't support this property or method: " + field.name, kTable);
      }
      columns_.push_back({field, property->second});
      names += (names.empty() ? "" : ", ") + ("[" + field.name + "]");
      marks += marks.empty() ? "?" : ", ?";
    }
    insert_.emplace(connection, std::string("INSERT INTO ") + kTable + " (" + names + ") VALUES (" +
                                    marks + ")");
    values_.resize(columns_.size());
  }

  bool IsFor(const Connection& connection) const { return connection_ == connection; }

  void Write(const cBLLNoteContabile& note) {
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      values_[i] = ConvertToField(columns_[i].property(note), columns_[i].field);
    }
    insert_->Execute(values_);
  }

 private:
  struct Column {
    FieldDef field;
    Property property;
  };

  Connection connection_;
  std::vector<Column> columns_;
  std::optional<Command> insert_;
  Values values_;

 public:
  Command greatestNote;
  Command greatestLine;
};

cBLLNoteContabile::cBLLNoteContabile() = default;
cBLLNoteContabile::~cBLLNoteContabile() = default;

std::string cBLLNoteContabile::Credit() const {
  return CStr(credit_);
}

void cBLLNoteContabile::SetCredit(const std::string& text) {
  credit_ = Value(text).AsDouble();
}

bool cBLLNoteContabile::EsteNotaValida(std::string& errorText) const {
  errorText.clear();
  const auto missing = [&errorText](const char* what) {
    if (!errorText.empty()) errorText += ", ";
    errorText += what;
  };
  if (Cont.empty()) missing("Cont");
  if (Debit == 0 && credit_ == 0) missing(" Credit sau Debit");
  if (Doc.empty()) missing(" Document");
  if (Jurnal.empty()) missing(" Jurnal");
  return errorText.empty();
}

void cBLLNoteContabile::AddNota(const Connection& connection, bool sameNote) {
  std::string missing;
  if (!EsteNotaValida(missing)) {
    throw Failure(kRefusedNote, "Trebuie sa precizati: " + missing, "Add Nota");
  }
  if (!writer_ || !writer_->IsFor(connection)) writer_ = std::make_unique<Writer>(connection);
  if (!sameNote) GetNDI(*writer_);
  GetNrLinie(*writer_);
  Timp = clock::Now();
  DataScad = DataInr.AddMonths(1);
  writer_->Write(*this);
}

// On the caller's connection, so that the notes of its own transaction count.
void cBLLNoteContabile::GetNDI(Writer& writer) {
  NDI = CLng(Nz(writer.greatestNote.QueryValue()).AsDouble() + 1);
}

void cBLLNoteContabile::GetNrLinie(Writer& writer) {
  NrLinie = CLng(Nz(writer.greatestLine.QueryValue({NDI})).AsDouble() + 1);
}

}  // namespace tevra
