#include "inventory/ObjectSave.h"

#include "inventory/ObjectLists.h"
#include "platform/system/Clock.h"
#include "platform/text/Numbers.h"
#include "platform/text/Strings.h"
#include "session/Module1.h"
#include "session/Session.h"

namespace tevra {

namespace {

using namespace object;

struct TextField {
  const char* name;
  Text box;
  bool trimmed = false;
};

constexpr TextField kPersonField{"PERS", kPerson, true};

// In the order in which they are written; the person follows the dates.
constexpr TextField kTextFields[] = {{"COD", kCode},
                                     {"DENUMIRE", kName, true},
                                     {"COD_CC", kCentre},
                                     {"COD_LOC", kLocation},
                                     {"DOCUMENT", kDocument, true},
                                     {"COD_FURNIZOR", kSupplier},
                                     {"COD_TVA_CUMP", kVat},
                                     {"CONT", kAccount},
                                     {"OBS1", kRemarks}};

constexpr const char* kNumberFields[] = {"VAL_CUMP", "CURS", "VAL_CUMP_VAL"};
constexpr const char* kDateFields[] = {"DATA_ACH", "DATA_PF", "DATA_IESIRE"};

void AddText(FieldValues& fields, const ObjectCard& card, const TextField& field) {
  const std::string& typed = card.text[field.box];
  const std::string text = field.trimmed ? Trim(typed) : typed;
  if (!text.empty()) fields.emplace_back(field.name, text);
}

// The number and date fields are those of the boxes, in their order; an exit is written apart.
void LoadBoxes(ObjectCard& card, const Recordset& rows, const DateTime& today) {
  for (const TextField& field : kTextFields) {
    card.text[field.box] = rows.Get(field.name).TextOrEmpty();
  }
  card.text[kPerson] = rows.Get(kPersonField.name).TextOrEmpty();
  for (std::size_t i = 0; i < kNumbers; ++i) card.number[i] = rows.Get(kNumberFields[i]);
  for (std::size_t i = 0; i < kDates; ++i) {
    const Value date = rows.Get(kDateFields[i]);
    card.date[i] = date.IsNull() ? today : date.AsDateTime();
  }
}

void WriteRow(Recordset& rows, const FieldValues& fields) {
  for (const auto& [field, value] : fields) rows.Set(field, value);
  rows.Update();
}

}  // namespace

FieldValues NewObjectFields(const ObjectCard& card, const std::string& user) {
  FieldValues fields;
  for (const TextField& field : kTextFields) AddText(fields, card, field);
  fields.emplace_back("UTILIZATOR", user);
  fields.emplace_back("VAL_CUMP", Round0(NumberOrZero(card, kValue)));
  fields.emplace_back("CURS", NumberOrZero(card, kRate));
  fields.emplace_back("VAL_CUMP_VAL", RoundTo(NumberOrZero(card, kForeignValue), 3));
  fields.emplace_back("DATA_ACH", card.date[kBought].Midnight());
  fields.emplace_back("DATA_PF", card.date[kInService].Midnight());
  AddText(fields, card, kPersonField);
  return fields;
}

FieldValues ChangedObjectFields(const ObjectCard& card, const std::string& user) {
  FieldValues fields = NewObjectFields(card, user);
  if (!card.scrapped) return fields;
  fields.emplace_back("IESIRE", Value::YesNo(true));
  fields.emplace_back("TIP_IESIRE", "C");
  fields.emplace_back("DATA_IESIRE", card.date[kLeft].Midnight());
  return fields;
}

std::int32_t pAdaugaObiect(const ObjectCard& card) {
  const FieldValues fields = NewObjectFields(card, CurrentSession().userName);
  Connection connection(CurrentSession().connectionString);
  Transaction transaction(connection);
  Recordset rows = connection.OpenRecordset("Select * from I_INV where 1 = 0");
  rows.AddNew();
  WriteRow(rows, fields);
  const std::int32_t id = connection.QueryValue("Select Max(NRCRT) from I_INV").AsLong();
  transaction.Commit();
  return id;
}

void pModificaObiect(const ObjectCard& card, std::int32_t id) {
  const FieldValues fields = ChangedObjectFields(card, CurrentSession().userName);
  Connection connection(CurrentSession().connectionString);
  Transaction transaction(connection);
  Recordset rows = connection.OpenRecordset("Select * from I_INV where NRCRT = ?", {id});
  WriteRow(rows, fields);
  transaction.Commit();
}

StoredObject ObjectOf(const Recordset& rows, const DateTime& today) {
  StoredObject object;
  LoadBoxes(object.card, rows, today);
  const std::string& vat = object.card.text[kVat];
  if (!vat.empty()) object.card.vat = GetTextDataCombo(ListOf(kVat).text, {vat});
  object.writtenOff = Nz(rows.Get("Blocata"), Value::YesNo(false)).AsBool();
  object.left = object.card.scrapped = Nz(rows.Get("IESIRE"), Value::YesNo(false)).AsBool();
  return object;
}

std::optional<StoredObject> ReadObject(Connection& connection, std::int32_t id) {
  const Recordset rows = connection.OpenRecordset("Select * from I_INV Where NRCRT = ?", {id});
  if (rows.Eof()) return std::nullopt;
  return ObjectOf(rows, clock::Today());
}

}  // namespace tevra
