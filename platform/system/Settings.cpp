#include "platform/system/Settings.h"

#include <utility>

namespace tevra {
namespace {

std::unique_ptr<SettingsStore>& CurrentStore() {
  static std::unique_ptr<SettingsStore> store;
  return store;
}

}  // namespace

std::optional<std::string> MemorySettings::Get(const std::string& key) const {
  const auto entry = values_.find(key);
  if (entry == values_.end()) return std::nullopt;
  return entry->second;
}

void MemorySettings::Set(const std::string& key, const std::string& value) {
  values_[key] = value;
}

void MemorySettings::Remove(const std::string& key) {
  values_.erase(key);
}

SettingsStore& Settings() {
  if (!CurrentStore()) CurrentStore() = std::make_unique<MemorySettings>();
  return *CurrentStore();
}

std::unique_ptr<SettingsStore> SetSettings(std::unique_ptr<SettingsStore> store) {
  return std::exchange(CurrentStore(), std::move(store));
}

}  // namespace tevra
