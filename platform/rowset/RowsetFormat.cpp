#include "platform/rowset/RowsetFormat.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <set>

#include <libxml/tree.h>

#include "platform/rowset/XmlText.h"
#include "platform/text/FailureText.h"
#include "platform/text/Strings.h"

namespace tevra::rowset {

namespace {

struct Range {
  std::int64_t least;
  std::int64_t greatest;
};

Range RangeOf(FieldType type) {
  switch (type) {
    case FieldType::Byte:
      return {0, std::numeric_limits<std::uint8_t>::max()};
    case FieldType::Integer:
      return {std::numeric_limits<std::int16_t>::min(), std::numeric_limits<std::int16_t>::max()};
    default:
      return {std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()};
  }
}

bool IsIn(std::int64_t number, const Range& range) {
  return number >= range.least && number <= range.greatest;
}

// A text has at least as many bytes as characters, so most texts need not be counted.
bool IsWithin(std::string_view text, int characters) {
  const auto limit = static_cast<std::size_t>(characters);
  return text.size() <= limit || Len(text) <= limit;
}

// True when the field stores the value without a conversion.
bool IsStored(const Value& value, const FieldDef& field) {
  switch (field.type) {
    case FieldType::Text:
      return value.IsText() && IsWithin(value.Text(), field.size);
    case FieldType::YesNo:
      return value.GetKind() == Value::Kind::YesNo;
    case FieldType::DateTime:
      return value.GetKind() == Value::Kind::DateTime;
    case FieldType::Double:
      return value.GetKind() == Value::Kind::Double && std::isfinite(value.AsDouble());
    default:
      return value.GetKind() == Value::Kind::Whole && IsIn(value.Whole(), RangeOf(field.type));
  }
}

template <typename Number>
void AppendNumber(std::string& out, Number number) {
  char text[32];
  out.append(text, std::to_chars(text, text + sizeof text, number).ptr);
}

void AppendDate(std::string& out, const DateTime& date) {
  char text[20];
  date.IsoTo(text);
  text[10] = 'T';
  out += text;
}

void AppendStored(std::string& out, const Value& value, const FieldDef& field) {
  switch (field.type) {
    case FieldType::Text:
      try {
        return AppendXmlText(out, value.Text());
      } catch (const Failure& failure) {
        throw Failure(failure.Number(), field.name + ": " + failure.Description());
      }
    case FieldType::YesNo:
      out += value.AsBool() ? "True" : "False";
      return;
    case FieldType::DateTime:
      return AppendDate(out, value.AsDateTime());
    case FieldType::Double:
      return AppendNumber(out, value.AsDouble());
    default:
      return AppendNumber(out, value.Whole());
  }
}

[[noreturn]] void ThrowNoValue(std::string_view text, const FieldDef& field) {
  throw Failure(kTypeMismatch, field.name + ": " + ValueFailure(kTypeMismatch, text).Description());
}

// The whole text as a number with a decimal point; "+" and blanks around it are accepted.
template <typename Number>
bool ParseNumber(std::string_view text, Number& number) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  if (text.size() > 1 && text[0] == '+' && text[1] != '-') text.remove_prefix(1);
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size();
}

// Other writers may omit the time of day or add a fraction of a second, which is dropped.
std::optional<DateTime> ParseDate(std::string_view text) {
  constexpr std::size_t kDayOnly = 10;
  constexpr std::size_t kToTheSecond = 19;
  if (text.size() == kDayOnly) return DateTime::FromIso(text);
  const std::string_view fraction = text.substr(std::min(text.size(), kToTheSecond));
  const bool isFraction = fraction.size() > 1 && fraction[0] == '.' &&
                          fraction.find_first_not_of("0123456789", 1) == fraction.npos;
  if (!fraction.empty() && !isFraction) return std::nullopt;
  return DateTime::FromIso(text.substr(0, kToTheSecond));
}

std::optional<bool> ParseYesNo(std::string_view text) {
  for (const char* yes : {"True", "1", "-1"}) {
    if (EqualNoCase(text, yes)) return true;
  }
  for (const char* no : {"False", "0"}) {
    if (EqualNoCase(text, no)) return false;
  }
  return std::nullopt;
}

// "xmlns" would declare a namespace; all names that begin with "xml" are reserved.
bool CanBeAttribute(const std::string& name) {
  return xmlValidateNCName(reinterpret_cast<const xmlChar*>(name.c_str()), 0) == 0 &&
         !EqualNoCase(Left(name, 3), "xml") && IsValidUtf8(name);
}

}  // namespace

const std::vector<TypeAttribute>& TypeAttributes(FieldType type) {
  using List = std::vector<TypeAttribute>;
  static const List kYesNo{
      {"dt:type", "boolean"}, {"dt:maxLength", "2"}, {"rs:fixedlength", "true"}};
  static const List kByte{
      {"dt:type", "ui1"}, {"dt:maxLength", "1"}, {"rs:precision", "3"}, {"rs:fixedlength", "true"}};
  static const List kInteger{
      {"dt:type", "i2"}, {"dt:maxLength", "2"}, {"rs:precision", "5"}, {"rs:fixedlength", "true"}};
  static const List kLong{{"dt:type", "int"},
                          {"dt:maxLength", "4"},
                          {"rs:precision", "10"},
                          {"rs:fixedlength", "true"}};
  static const List kDouble{{"dt:type", "float"},
                            {"dt:maxLength", "8"},
                            {"rs:precision", "15"},
                            {"rs:fixedlength", "true"}};
  static const List kDateTime{{"dt:type", "dateTime"},
                              {"rs:dbtype", "variantdate"},
                              {"dt:maxLength", "16"},
                              {"rs:fixedlength", "true"}};
  static const List kText{{"dt:type", "string"}, {"rs:dbtype", "str"}};
  switch (type) {
    case FieldType::YesNo:
      return kYesNo;
    case FieldType::Byte:
      return kByte;
    case FieldType::Integer:
      return kInteger;
    case FieldType::Long:
      return kLong;
    case FieldType::Double:
      return kDouble;
    case FieldType::DateTime:
      return kDateTime;
    default:
      return kText;
  }
}

FieldType TypeOf(std::string_view dtType, std::string_view dbType) {
  struct Name {
    const char* name;
    FieldType type;
  };
  static constexpr Name kNames[] = {
      {"boolean", FieldType::YesNo},     {"ui1", FieldType::Byte},
      {"i1", FieldType::Integer},        {"i2", FieldType::Integer},
      {"ui2", FieldType::Long},          {"i4", FieldType::Long},
      {"int", FieldType::Long},          {"ui4", FieldType::Double},
      {"i8", FieldType::Double},         {"ui8", FieldType::Double},
      {"r4", FieldType::Double},         {"r8", FieldType::Double},
      {"float", FieldType::Double},      {"number", FieldType::Double},
      {"fixed.14.4", FieldType::Double}, {"date", FieldType::DateTime},
      {"dateTime", FieldType::DateTime},
  };
  if (dbType == "variantdate") return FieldType::DateTime;
  for (const auto& known : kNames) {
    if (dtType == known.name) return known.type;
  }
  return FieldType::Text;
}

std::vector<std::string> AttributeNames(const std::vector<FieldInfo>& fields) {
  std::set<std::string> taken;
  std::vector<std::string> names(fields.size());
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const std::string& name = fields[i].def.name;
    if (CanBeAttribute(name) && taken.insert(name).second) names[i] = name;
  }
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (!names[i].empty()) continue;
    names[i] = "c" + std::to_string(i);
    while (!taken.insert(names[i]).second) names[i] += '_';
  }
  return names;
}

void AppendValue(std::string& out, const Value& value, const FieldDef& field) {
  if (IsStored(value, field)) return AppendStored(out, value, field);
  AppendStored(out, ConvertToField(value, field), field);
}

Value ParseValue(std::string_view text, const FieldDef& field) {
  switch (field.type) {
    case FieldType::Text:
      if (IsWithin(text, field.size)) return std::string(text);
      break;
    case FieldType::YesNo:
      if (const auto yes = ParseYesNo(text)) return Value::YesNo(*yes);
      break;
    case FieldType::DateTime:
      if (const auto date = ParseDate(text)) return *date;
      break;
    case FieldType::Double: {
      double number = 0;
      if (ParseNumber(text, number) && std::isfinite(number)) return number;
      break;
    }
    default: {
      std::int64_t number = 0;
      if (ParseNumber(text, number) && IsIn(number, RangeOf(field.type))) return number;
      break;
    }
  }
  ThrowNoValue(text, field);
}

}  // namespace tevra::rowset
