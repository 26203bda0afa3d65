// What the writer and the reader of rowset XML must agree on: names, types and the text of values.
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

/// The longest text of a field whose schema names no length.
inline constexpr int kUnboundedText = 1073741823;

/// An attribute of s:datatype.
struct TypeAttribute {
  const char* name;
  const char* value;
};

/// The attributes that describe a type, in their order; of a text without its length, which comes
/// last.
const std::vector<TypeAttribute>& TypeAttributes(FieldType type);

/// The type that dt:type and rs:dbtype name. Whole numbers that no field of ours holds become
/// Double, what is unknown becomes Text, so that its value is kept as it stands.
FieldType TypeOf(std::string_view dtType, std::string_view dbType);

/// The attribute names under which a row holds its fields: the field's own name where it can be
/// one, else one made up that no other field has.
std::vector<std::string> AttributeNames(const std::vector<FieldInfo>& fields);

/// Appends a value that is not Null as a row's attribute holds it. Throws a Failure with the
/// field's name for a value that the field cannot hold, as ConvertToField does.
void AppendValue(std::string& out, const Value& value, const FieldDef& field);

/// The value of a field from the text of a row's attribute. Throws Failure 13.
Value ParseValue(std::string_view text, const FieldDef& field);

}  // namespace tevra::rowset
