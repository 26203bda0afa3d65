// A value of a field: Null, a whole number, a double, text, a date-time or yes/no.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "platform/text/DateTime.h"
#include "platform/text/Failure.h"

namespace tevra {

/// Converts by the rules of the statements' dialect; see the single routines. == compares type and
/// content (texts with case); CompareValues orders like the company file.
class Value {
 public:
  enum class Kind { Null, Whole, Double, Text, DateTime, YesNo };

  Value() = default;  // Null
  Value(int whole) : v_(std::int64_t{whole}) {}
  Value(bool) = delete;  // write Value::YesNo or a number
  Value(std::int64_t whole) : v_(whole) {}
  Value(double number) : v_(number) {}
  Value(const char* text) : v_(std::string(text)) {}
  Value(std::string text) : v_(std::move(text)) {}
  Value(const DateTime& date) : v_(date) {}
  static Value YesNo(bool yes) { return Value(Storage(yes)); }

  Kind GetKind() const { return static_cast<Kind>(v_.index()); }
  bool IsNull() const { return v_.index() == 0; }
  bool IsText() const { return GetKind() == Kind::Text; }

  /// As a number; yes is -1, a date its serial number, a text read in Romanian form. Throws Failure
  /// 94 for Null, 13 for text that is not numeric.
  double AsDouble() const;

  /// Like AsDouble, rounded to even to a 32-bit whole number; throws Failure 6 outside its range.
  std::int32_t AsLong() const;

  /// As a date; a text by CDate, a number as a serial day. Throws Failure 94, 13 or 6.
  DateTime AsDateTime() const;

  /// True unless 0 or no; a text "True", "Da", "False", "Nu" or a number. Throws Failure 94 or 13.
  bool AsBool() const;

  /// As text for the user: numbers by CStr, short dates, yes/no as "True" and "False". Throws
  /// Failure 94 for Null.
  std::string AsText() const;

  /// AsText, but the empty text for Null.
  std::string TextOrEmpty() const { return IsNull() ? std::string() : AsText(); }

  /// The stored text without a copy; only for Kind::Text.
  const std::string& Text() const { return std::get<std::string>(v_); }

  /// The stored whole number with 64 bits; only for Kind::Whole.
  std::int64_t Whole() const { return std::get<std::int64_t>(v_); }

  bool operator==(const Value& other) const = default;

 private:
  using Storage =
      std::variant<std::monostate, std::int64_t, double, std::string, tevra::DateTime, bool>;
  explicit Value(Storage v) : v_(std::move(v)) {}
  Storage v_;
};

using Values = std::vector<Value>;

/// Compares two values in the company file's order: Null first, then by number, date or text
/// without case. Returns a negative number, 0 or a positive number.
int CompareValues(const Value& a, const Value& b);

}  // namespace tevra
