#include "reports/DataEnv.h"

#include <algorithm>
#include <utility>

#include "platform/text/Strings.h"
#include "reports/GroupedCommands.h"
#include "session/Module1.h"

namespace tevra {

DataEnv::DataEnv() {
  const auto plain = [&](const char* name, const char* text) {
    commands_.push_back({name, text, Recordset(), {}});
  };
  plain("IMO", "select * from I_IMO");
  plain("Furnizori", "select * from KV_TER");
  plain("CentreCost", "select * from KV_CC");
  plain("PC", "select * from KV_PC");
  plain("TVA", "select * from KV_COTE");
  plain("PLANAMO",
        "SELECT ID, AN, VALAMO, VALAMO_VAL, VALAMOCUM, VALAMOCUM_VAL, VALRAMASA, VALRAMASA_VAL "
        "FROM I_PLANAMO ");
  for (const GroupedCommand& grouped : GroupedCommands()) {
    commands_.push_back({grouped.name, grouped.text, ShapedRecordset(), {}});
  }
}

const DataEnv::Command& DataEnv::Find(const std::string& name) const {
  const auto found = std::find_if(commands_.begin(), commands_.end(), [&](const Command& command) {
    return EqualNoCase(command.name, name);
  });
  if (found == commands_.end()) throw Failure(kItemNotFound, "Item not found: " + name);
  return *found;
}

DataEnv::Command& DataEnv::Find(const std::string& name) {
  return const_cast<Command&>(std::as_const(*this).Find(name));
}

std::vector<std::string> DataEnv::CommandNames() const {
  std::vector<std::string> names;
  for (const Command& command : commands_) names.push_back(command.name);
  return names;
}

const std::string& DataEnv::CommandText(const std::string& command) const {
  return Find(command).text;
}

void DataEnv::Run(const std::string& name, const Values& params) {
  Command& command = Find(name);
  Connection connection(GetShapeConnection());
  if (std::holds_alternative<ShapedRecordset>(command.rs)) {
    command.rs = ShapedRecordset(connection, command.text, params);
  } else {
    command.rs = connection.OpenRecordset(command.text, params);
  }
  command.params = params;
}

void DataEnv::Requery(const std::string& name) {
  if (!IsOpen(name)) throw Failure(kObjectRequired, "Object required: rs" + Find(name).name);
  const Values params = Find(name).params;
  Run(name, params);
}

bool DataEnv::IsOpen(const std::string& name) const {
  return std::visit([](const auto& rs) { return rs.IsOpen(); }, Find(name).rs);
}

void DataEnv::Close(const std::string& name) {
  std::visit([](auto& rs) { rs.Close(); }, Find(name).rs);
}

void DataEnv::CloseAll() {
  for (const Command& command : commands_) Close(command.name);
}

ShapedRecordset DataEnv::Rs(const std::string& name) const {
  const Command& command = Find(name);
  if (const auto* rs = std::get_if<ShapedRecordset>(&command.rs)) return *rs;
  throw Failure(kObjectRequired, "Object required: rs" + command.name + " has no groups");
}

Recordset DataEnv::PlainRs(const std::string& name) const {
  const Command& command = Find(name);
  if (const auto* rs = std::get_if<Recordset>(&command.rs)) return *rs;
  throw Failure(kObjectRequired, "Object required: rs" + command.name + " has groups");
}

DataEnv& CurrentDataEnv() {
  static DataEnv environment;
  return environment;
}

}  // namespace tevra
