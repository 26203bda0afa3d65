// The types of the company file's fields, and the rules that a value must meet to be stored in one.
#pragma once

#include <string>

#include "platform/data/Value.h"

namespace tevra {

/// The numbers are stored type codes, which the structure upgrade compares.
enum class FieldType {
  YesNo = 1,     ///< -1 or 0
  Byte = 2,      ///< 0 to 255
  Integer = 3,   ///< 16-bit signed
  Long = 4,      ///< 32-bit signed
  Double = 7,    ///< IEEE 64-bit
  DateTime = 8,  ///< date and time
  Text = 10,     ///< with a maximum length in characters
};

/// One field of a table: the seven properties that the catalogue knows.
struct FieldDef {
  std::string name;
  FieldType type = FieldType::Text;
  int size = 255;               ///< Text: characters; else bytes (1, 2, 4, 8)
  bool required = false;        ///< Null is refused
  bool allowZeroLength = true;  ///< Text: the empty text is accepted
  bool autoNumber = false;      ///< Attributes: the table numbers the row itself
  std::string defaultValue;     ///< as in the schema ("0", "'LEI'"); empty for none
  bool foreign = false;         ///< read from a file where its declared type is none of ours

  bool operator==(const FieldDef&) const = default;
};

/// The size in bytes of a type other than Text.
int SizeOf(FieldType type);

/// The declared type as in the schema: "TEXT(20)", "INTEGER", "SMALLINT", "TINYINT", "DOUBLE",
/// "DATETIME", "YESNO".
std::string DeclaredType(const FieldDef& field);

/// Reads a declared type back into `field`'s type and size. False when it is none of ours.
bool ParseDeclaredType(const std::string& declared, FieldDef& field);

/// Converts a value to the field's type: text in Romanian number and date form, a number to a date
/// and back. Null stays Null. Throws Failure 13 for a text that cannot be converted,
/// 6 outside the type's range, -2147217887 for a text longer than the field, each with the field's
/// name.
Value ConvertToField(const Value& value, const FieldDef& field);

}  // namespace tevra
