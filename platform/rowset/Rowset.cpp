#include "platform/rowset/Rowset.h"

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <limits>
#include <vector>

#include "platform/rowset/RowsetReader.h"
#include "platform/rowset/RowsetWriter.h"
#include "platform/system/Paths.h"
#include "platform/text/FailureText.h"
#include "platform/text/Invariant.h"
#include "platform/text/Strings.h"

namespace tevra {

namespace {

// The narrowest type for all values of a column that belongs to no table.
class TypeFinder {
 public:
  void See(const Value& value) {
    switch (value.GetKind()) {
      case Value::Kind::Null:
        return;
      case Value::Kind::Whole:
        using Limits = std::numeric_limits<std::int32_t>;
        Widen(value.Whole() >= Limits::min() && value.Whole() <= Limits::max() ? FieldType::Long
                                                                               : FieldType::Double);
        break;
      case Value::Kind::Double:
        Widen(FieldType::Double);
        break;
      case Value::Kind::DateTime:
        Widen(FieldType::DateTime);
        break;
      case Value::Kind::YesNo:
        Widen(FieldType::YesNo);
        break;
      case Value::Kind::Text:
        Widen(FieldType::Text);
        break;
    }
    longest_ = std::max(longest_, Len(value.AsText()));
  }

  void Describe(FieldDef& field) const {
    field.type = seen_ ? type_ : FieldType::Text;
    field.size = field.type == FieldType::Text ? std::max(field.size, static_cast<int>(longest_))
                                               : SizeOf(field.type);
  }

 private:
  void Widen(FieldType type) {
    const auto isNumber = [](FieldType t) {
      return t == FieldType::Long || t == FieldType::Double;
    };
    if (!seen_ || type_ == type) {
      type_ = type;
    } else {
      type_ = isNumber(type_) && isNumber(type) ? FieldType::Double : FieldType::Text;
    }
    seen_ = true;
  }

  bool seen_ = false;
  FieldType type_ = FieldType::Text;
  std::size_t longest_ = 0;
};

std::vector<FieldInfo> DescribedFields(Recordset& rows) {
  std::vector<FieldInfo> fields;
  for (std::size_t i = 0; i < rows.FieldCount(); ++i) {
    fields.push_back(rows.Field(i));
    if (fields[i].typed) continue;
    TypeFinder finder;
    for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext()) finder.See(rows.Get(i));
    finder.Describe(fields[i].def);
  }
  return fields;
}

}  // namespace

void SaveRowset(const Recordset& recordset, std::ostream& out) {
  Recordset rows = recordset.Clone();
  RowsetWriter writer(out);
  writer.Begin(DescribedFields(rows));
  Values values(rows.FieldCount());
  std::int64_t written = 0;
  for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext(), ++written) {
    for (std::size_t i = 0; i < values.size(); ++i) values[i] = rows.Get(i);
    writer.Row(values);
  }
  writer.End();
  InvariantEqual(written, static_cast<std::int64_t>(rows.RecordCount()), "randuri scrise");
}

void SaveRowset(const Recordset& recordset, const std::filesystem::path& file) {
  paths::ReplaceFile(file, [&](const std::filesystem::path& temporary) {
    std::ofstream out(temporary, std::ios::binary);
    if (!out) throw FileFailure(kPermissionDenied, file.string());
    try {
      SaveRowset(recordset, out);
    } catch (const Failure& failure) {
      if (failure.Number() != kDiskFull) throw;
      throw FileFailure(kDiskFull, file.string());  // adds the name, unknown to the stream
    }
    out.close();
    if (!out) throw FileFailure(kDiskFull, file.string());
  });
}

Recordset LoadRowset(const std::filesystem::path& file) {
  if (!std::filesystem::is_regular_file(file)) throw FileFailure(kFileNotFound, file.string());
  std::ifstream in(file, std::ios::binary);
  if (!in) throw FileFailure(kPermissionDenied, file.string());
  return LoadRowset(in, file.string());
}

Recordset LoadRowset(std::istream& in, const std::string& name) {
  RowsetReader reader(in, name);
  Recordset recordset = Recordset::Create(reader.Fields());
  Values values;
  while (reader.Next(values)) {
    InvariantEqual(static_cast<std::int64_t>(values.size()),
                   static_cast<std::int64_t>(reader.Fields().size()), "valorile unui rand citit");
    recordset.AddNew();
    for (std::size_t i = 0; i < values.size(); ++i) {
      if (!values[i].IsNull()) recordset.Set(i, values[i]);
    }
    recordset.Update();
  }
  recordset.MoveFirst();
  return recordset;
}

}  // namespace tevra
