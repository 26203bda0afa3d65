// Sets of conditions that a user saved under names.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/where/Conditions.h"

namespace tevra {

/// The saved sets of one list, kept in one setting. Each call reads it, because the list may be
/// open several times. A setting that cannot be read has no sets.
class SavedConditions {
 public:
  explicit SavedConditions(std::string settingsKey) : key_(std::move(settingsKey)) {}

  /// In the order of their names, without case.
  std::vector<std::string> Names() const;
  /// The conditions saved under a name, found without case; nothing for an unknown name.
  std::vector<Condition> Of(const std::string& name) const;
  bool Has(const std::string& name) const { return !Of(name).empty(); }

  /// Saves the conditions, of which there must be some, in place of those of the same name. Throws
  /// Failure 70 like SettingsStore and then keeps the previous ones.
  void Save(const std::string& name, const std::vector<Condition>& conditions);
  /// Throws Failure 70 likewise.
  void Remove(const std::string& name);

 private:
  struct NoCase {
    bool operator()(const std::string& a, const std::string& b) const;
  };
  using Sets = std::map<std::string, std::vector<Condition>, NoCase>;
  Sets Read() const;
  void Store(const Sets& sets) const;

  std::string key_;
};

}  // namespace tevra
