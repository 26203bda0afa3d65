#include "platform/where/ValueBox.h"

#include "platform/forms/Boxes.h"
#include "platform/forms/DataCombo.h"
#include "platform/forms/DateBox.h"
#include "platform/text/Dates.h"

namespace tevra {

namespace {

constexpr const char* kValue = "VALOARE";
constexpr const char* kText = "TEXT";

// Parts and ranges of codes are typed, because the list need not have them.
bool UsesList(const WhereField& field, WhereOperator op) {
  return !field.list.empty() && (op == WhereOperator::kEqual || op == WhereOperator::kNotEqual);
}

QString Nothing() {
  return {};
}

ValueBox MakeText(const WhereField& field, const char* name, QWidget* parent) {
  auto* box = new TextBox(name, parent, field.size);
  return {box, [box] { return box->Text(); },
          [box](const std::string& text) { box->SetText(text); }, Nothing};
}

ValueBox MakeNumber(const char* name, QWidget* parent) {
  auto* box = new NumberBox(name, "", parent);
  return {box, [box] { return box->Text(); },
          [box](const std::string& text) { box->SetText(text); }, Nothing};
}

ValueBox MakeDate(const char* name, QWidget* parent) {
  auto* box = new DateBox(name, parent);
  box->SetDate(std::nullopt);
  return {box,
          [box] {
            box->SettleTyping();
            const auto date = box->Date();
            return date ? ShortDate(*date) : std::string();
          },
          [box](const std::string& text) {
            box->SetDate(IsDate(text) ? std::optional(CDate(text)) : std::nullopt);
          },
          [box] { return box->Refused(); }};
}

ValueBox MakeList(const WhereField& field, const char* name, ValueLists& lists, QWidget* parent) {
  Adodc& rows = lists.Of(field);
  auto* box = new DataCombo(name, parent);
  box->SetListField(kText);
  box->SetBoundColumn(kValue);
  box->SetRowSource(&rows);
  box->SetText("");
  return {box,
          [box] {
            box->SettleTyping();
            return box->BoundText();
          },
          [box](const std::string& text) { box->SetBoundText(text, text); },
          [box] { return box->Refused(); }};
}

}  // namespace

void ValueLists::SetConnectionString(std::string connectionString) {
  connectionString_ = std::move(connectionString);
}

Adodc& ValueLists::Of(const WhereField& field) {
  Adodc*& list = lists_[field.list];
  if (list) return *list;
  Connection connection(connectionString_);
  Recordset stored = connection.OpenRecordset(field.list);
  FieldInfo value;
  value.def.name = kValue;
  FieldInfo text;
  text.def.name = kText;
  Recordset rows = Recordset::Create({value, text});
  for (; !stored.Eof(); stored.MoveNext()) {
    const std::string code = stored.Get(std::size_t{0}).TextOrEmpty();
    const std::string title = stored.Get(std::size_t{1}).TextOrEmpty();
    rows.AddNew();
    rows.Set(kValue, code);
    rows.Set(kText, title.empty() ? code : code + " - " + title);
    rows.Update();
  }
  auto made = std::make_unique<Adodc>("datLista", owner_);
  made->SetRecordset(rows);
  list = made.release();
  return *list;
}

std::string ValueLists::TitleOf(const WhereField& field, const std::string& value) {
  const Recordset& rows = Of(field).Recordset();
  for (std::size_t row = 0; row < rows.RecordCount(); ++row) {
    if (rows.ValueAt(row, 0).TextOrEmpty() != value) continue;
    const std::string text = rows.ValueAt(row, 1).TextOrEmpty();
    return text == value ? std::string() : text.substr(value.size() + 3);
  }
  return {};
}

ValueBox MakeValueBox(const WhereField& field, WhereOperator op, const char* name,
                      ValueLists& lists, QWidget* parent) {
  if (UsesList(field, op)) return MakeList(field, name, lists, parent);
  if (field.type == FieldType::Text) return MakeText(field, name, parent);
  return field.type == FieldType::DateTime ? MakeDate(name, parent) : MakeNumber(name, parent);
}

bool SameBox(const WhereField& field, WhereOperator a, WhereOperator b) {
  return UsesList(field, a) == UsesList(field, b);
}

}  // namespace tevra
