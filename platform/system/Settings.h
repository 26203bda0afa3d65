// What the program remembers for a user from one start to the next.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>

namespace tevra {

/// Settings by name. Values are texts in a form that no locale changes: a number with a decimal
/// point, a folder as the user chose it.
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;

  /// The value, nothing when it was never set.
  virtual std::optional<std::string> Get(const std::string& key) const = 0;

  /// Keeps the value before it returns. Throws Failure 70 when it cannot be kept.
  virtual void Set(const std::string& key, const std::string& value) = 0;

  /// Forgets the value; a name that was never set is no failure. Throws Failure 70 as Set does.
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

/// The name under which the databases' folder is kept, with one separator at its end.
inline constexpr char kDatabasesPath[] = "DatabasesPath";

/// The program's settings: what SetSettings was given, else settings in memory, so that a program
/// which does not ask for the user's own never touches them.
SettingsStore& Settings();

/// Sets the program's settings and returns those before, if any; without a store the ones in memory
/// begin anew.
std::unique_ptr<SettingsStore> SetSettings(std::unique_ptr<SettingsStore> store);

}  // namespace tevra
