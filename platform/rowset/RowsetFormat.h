// Shared by the writer and the reader of rowset XML: names, types and the text of values.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/data/FieldType.h"
#include "platform/data/Recordset.h"

namespace tevra::rowset {

inline constexpr std::string_view kSchemaSpace = "uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882";
inline constexpr std::string_view kTypeSpace = "uuid:C2F41010-65B3-11d1-A29F-00AA00C14882";
inline constexpr std::string_view kRowsetSpace = "urn:schemas-microsoft-com:rowset";
inline constexpr std::string_view kRowSpace = "#RowsetSchema";

/// The length of a text field whose schema gives no length.
inline constexpr int kUnboundedText = 1073741823;

/// An attribute of s:datatype.
struct TypeAttribute {
  const char* name;
  const char* value;
};

/// The attributes that describe a type, in their order, without the length of a text, which comes
/// last.
const std::vector<TypeAttribute>& TypeAttributes(FieldType type);

/// The type for dt:type and rs:dbtype. Whole numbers too large for our fields become Double, an
/// unknown type becomes Text, so that the value is kept unchanged.
FieldType TypeOf(std::string_view dtType, std::string_view dbType);

/// The attribute names of a row's fields: the field's own name where XML allows it, otherwise a
/// generated name that no other field has.
std::vector<std::string> AttributeNames(const std::vector<FieldInfo>& fields);

/// Appends a value that is not Null in the form of a row's attribute. Throws a Failure with the
/// field's name for a value that the field cannot store, like ConvertToField.
void AppendValue(std::string& out, const Value& value, const FieldDef& field);

/// The value of a field from the text of a row's attribute. Throws Failure 13.
Value ParseValue(std::string_view text, const FieldDef& field);

}  // namespace tevra::rowset
