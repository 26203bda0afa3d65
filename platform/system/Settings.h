// The settings that the program keeps for a user.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>

namespace tevra {

/// Settings by name. Values are texts that do not depend on the locale: a number with a decimal
/// point, a folder as the user chose it.
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;

  /// The value; nothing when it was never set.
  virtual std::optional<std::string> Get(const std::string& key) const = 0;

  /// Stores the value before it returns. Throws Failure 70 when it cannot be stored.
  virtual void Set(const std::string& key, const std::string& value) = 0;

  /// Removes the value; an unknown name is no failure. Throws Failure 70 like Set.
  virtual void Remove(const std::string& key) = 0;
};

/// Settings that last as long as the object.
class MemorySettings : public SettingsStore {
 public:
  std::optional<std::string> Get(const std::string& key) const override;
  void Set(const std::string& key, const std::string& value) override;
  void Remove(const std::string& key) override;

 private:
  std::map<std::string, std::string> values_;
};

/// The name of the setting with the databases' folder, which ends with one separator.
inline constexpr char kDatabasesPath[] = "DatabasesPath";

/// The program's settings: those of SetSettings, otherwise settings in memory, so that only a
/// program that calls SetSettings uses the user's own.
SettingsStore& Settings();

/// Sets the program's settings and returns the previous ones, if any; without a store, empty
/// settings in memory are used.
std::unique_ptr<SettingsStore> SetSettings(std::unique_ptr<SettingsStore> store);

}  // namespace tevra
