// The user's settings in the file Setari_IMO.ini of the user's configuration
// folder.
#pragma once

#include "platform/system/Settings.h"

namespace tevra {

/// Every call reads or writes the file, so that several programs of one user see each other's
/// values.
class QtSettings : public SettingsStore {
 public:
  std::optional<std::string> Get(const std::string& key) const override;
  void Set(const std::string& key, const std::string& value) override;
  void Remove(const std::string& key) override;
};

}  // namespace tevra
