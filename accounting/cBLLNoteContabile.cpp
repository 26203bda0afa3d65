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

using Property = Value (*)(const NoteLine&);

// By the column's name in capitals.
const std::map<std::string, Property>& Properties() {
  static const std::map<std::string, Property> kProperties{
      {"NDI", [](const NoteLine& n) { return Value(n.NDI); }},
      {"NRLINIE", [](const NoteLine& n) { return Value(n.NrLinie); }},
      {"JURNAL", [](const NoteLine& n) { return Value(n.Jurnal); }},
      {"DATAINR", [](const NoteLine& n) { return Value(n.DataInr); }},
      {"CONT", [](const NoteLine& n) { return Value(n.Cont); }},
      {"EXPL", [](const NoteLine& n) { return Value(n.Expl); }},
      {"DEBIT", [](const NoteLine& n) { return Value(n.Debit); }},
      {"CREDIT", [](const NoteLine& n) { return Value(n.Credit()); }},
      {"DOC", [](const NoteLine& n) { return Value(n.Doc); }},
      {"MARCA", [](const NoteLine& n) { return Value(n.Marca); }},
      {"LITM", [](const NoteLine& n) { return Value(n.LitM); }},
      {"CODBUG", [](const NoteLine& n) { return Value(n.CodBUG); }},
      {"CODTREZO", [](const NoteLine& n) { return Value(n.CodTREZO); }},
      {"COD", [](const NoteLine& n) { return Value(n.cod.empty() ? "LEI" : n.cod); }},
      {"CURS", [](const NoteLine& n) { return Value(n.Curs); }},
      {"DEVDEBIT", [](const NoteLine& n) { return Value(n.DevDebit); }},
      {"DEVCREDIT", [](const NoteLine& n) { return Value(n.DevCredit); }},
      {"CANTIT", [](const NoteLine& n) { return Value(n.Cantit); }},
      {"TERT", [](const NoteLine& n) { return n.Tert; }},
      {"TVA_LINREF", [](const NoteLine& n) { return Value(n.TVA_LinRef); }},
      {"CODOPER", [](const NoteLine& n) { return Value(n.CodOper); }},
      {"COTATVA", [](const NoteLine& n) { return Value(n.CotaTVA); }},
      {"PROV", [](const NoteLine& n) { return Value(n.Prov); }},
      {"CODCC", [](const NoteLine& n) { return Value(n.CodCC); }},
      {"DATASCAD", [](const NoteLine& n) { return n.DataScad; }},
      {"UTILIZATOR", [](const NoteLine& n) { return Value(n.Utilizator); }},
      {"TIMP", [](const NoteLine& n) { return Value(n.Timp); }},
      {"CODIE", [](const NoteLine& n) { return Value(n.CodIE); }},
      {"CODSUCURSALA", [](const NoteLine& n) { return Value(n.CodSucursala); }},
      {"ID_FORMULA", [](const NoteLine& n) { return Value(n.ID_Formula); }},
      {"DOCEXPLICATIE", [](const NoteLine& n) { return Value(n.DocExplicatie); }},
      {"TIPDOC", [](const NoteLine& n) { return Value(n.TipDoc); }},
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

  void Write(const NoteLine& note) {
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

bool cBLLNoteContabile::EsteNotaValida(std::string& errorText) const {
  errorText.clear();
  const auto missing = [&errorText](const char* what) {
    if (!errorText.empty()) errorText += ", ";
    errorText += what;
  };
  if (Cont.empty()) missing("Cont");
  if (Debit == 0 && CreditAmount() == 0) missing(" Credit sau Debit");
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

std::int32_t cBLLNoteContabile::AddNote(const Connection& connection, const Note& note,
                                        NoteChecker& checker) {
  bool opened = false;
  for (const NoteLine& line : note) {
    const std::int32_t number = NDI;
    NoteLine::operator=(line);
    NDI = number;
    AddNota(connection, opened);
    checker.Add(NDI, NrLinie, Debit, CreditAmount());
    opened = true;
  }
  return opened ? NDI : 0;
}

// On the caller's connection, so that the notes of its own transaction count.
void cBLLNoteContabile::GetNDI(Writer& writer) {
  NDI = CLng(Nz(writer.greatestNote.QueryValue()).AsDouble() + 1);
}

void cBLLNoteContabile::GetNrLinie(Writer& writer) {
  NrLinie = CLng(Nz(writer.greatestLine.QueryValue({NDI})).AsDouble() + 1);
}

}  // namespace tevra
