#include "platform/data/PackedRow.h"

#include <cstring>

#include <sqlite3.h>

#include "platform/data/Database.h"
#include "platform/text/Invariant.h"

namespace tevra::detail {

namespace {

// Values in SQLite's storage form; their fields determine the types.
enum class Packed : char { Null, Whole, Double, Text };

void RequireBytes(std::string_view bytes, std::size_t count) {
  Invariant(bytes.size() >= count, "un rand impachetat este trunchiat");
}

template <typename Number>
void PutNumber(Packed kind, Number number, std::string& bytes) {
  char packed[1 + sizeof number];
  packed[0] = static_cast<char>(kind);
  std::memcpy(packed + 1, &number, sizeof number);
  bytes.append(packed, sizeof packed);
}

void PutText(std::string_view text, std::string& bytes) {
  PutNumber(Packed::Text, text.size(), bytes);
  bytes.append(text);
}

template <typename Number>
Number TakeNumber(std::string_view& bytes) {
  RequireBytes(bytes, sizeof(Number));
  Number number;
  std::memcpy(&number, bytes.data(), sizeof number);
  bytes.remove_prefix(sizeof number);
  return number;
}

Value TakeValue(const FieldDef* field, std::string_view& bytes) {
  RequireBytes(bytes, 1);
  const auto kind = static_cast<Packed>(bytes.front());
  bytes.remove_prefix(1);
  switch (kind) {
    case Packed::Null:
      return {};
    case Packed::Whole:
      return WholeValue(TakeNumber<std::int64_t>(bytes), field);
    case Packed::Double:
      return TakeNumber<double>(bytes);
    default: {
      const auto size = TakeNumber<std::size_t>(bytes);
      RequireBytes(bytes, size);
      const std::string_view text = bytes.substr(0, size);
      bytes.remove_prefix(size);
      return TextValue(text, field);
    }
  }
}

}  // namespace

void PackRow(sqlite3_stmt* row, std::string& bytes) {
  const int width = sqlite3_column_count(row);
  for (int i = 0; i < width; ++i) {
    sqlite3_value* value = sqlite3_column_value(row, i);
    switch (sqlite3_value_type(value)) {
      case SQLITE_NULL:
        bytes += static_cast<char>(Packed::Null);
        break;
      case SQLITE_INTEGER:
        PutNumber(Packed::Whole, std::int64_t{sqlite3_value_int64(value)}, bytes);
        break;
      case SQLITE_FLOAT:
        PutNumber(Packed::Double, sqlite3_value_double(value), bytes);
        break;
      default: {
        const auto* text = static_cast<const char*>(sqlite3_value_blob(value));
        const auto size = static_cast<std::size_t>(sqlite3_value_bytes(value));
        PutText(text ? std::string_view(text, size) : std::string_view(), bytes);
      }
    }
  }
}

void PackRow(const Values& values, std::string& bytes) {
  for (const Value& value : values) {
    switch (value.GetKind()) {
      case Value::Kind::Null:
        bytes += static_cast<char>(Packed::Null);
        break;
      case Value::Kind::Whole:
        PutNumber(Packed::Whole, value.Whole(), bytes);
        break;
      case Value::Kind::YesNo:
        PutNumber(Packed::Whole, std::int64_t{value.AsBool() ? -1 : 0}, bytes);
        break;
      case Value::Kind::Double:
        PutNumber(Packed::Double, value.AsDouble(), bytes);
        break;
      case Value::Kind::Text:
        PutText(value.Text(), bytes);
        break;
      case Value::Kind::DateTime:
        PutText(value.AsDateTime().Iso(), bytes);
        break;
    }
  }
}

Values UnpackRow(const std::vector<FieldInfo>& fields, std::string_view& bytes) {
  Values values;
  values.reserve(fields.size());
  for (const FieldInfo& field : fields) {
    values.push_back(TakeValue(field.typed ? &field.def : nullptr, bytes));
  }
  return values;
}

}  // namespace tevra::detail
