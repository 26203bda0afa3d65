#include "platform/system/QtSettings.h"

#include <QSettings>
#include <QString>

#include "platform/text/FailureText.h"

namespace tevra {
namespace {

class IniFile {
 public:
  IniFile() : settings_(QSettings::IniFormat, QSettings::UserScope, "KELNAR", "Setari_IMO") {
    settings_.setFallbacksEnabled(false);
  }

  QSettings& operator*() { return settings_; }
  QSettings* operator->() { return &settings_; }

  void Write() {
    settings_.sync();
    if (settings_.status() == QSettings::AccessError) {
      throw FileFailure(kPermissionDenied, settings_.fileName().toStdString());
    }
  }

 private:
  QSettings settings_;
};

}  // namespace

std::optional<std::string> QtSettings::Get(const std::string& key) const {
  IniFile file;
  const QVariant value = file->value(QString::fromStdString(key));
  if (!value.isValid()) return std::nullopt;
  return value.toString().toStdString();
}

void QtSettings::Set(const std::string& key, const std::string& value) {
  IniFile file;
  file->setValue(QString::fromStdString(key), QString::fromStdString(value));
  file.Write();
}

void QtSettings::Remove(const std::string& key) {
  IniFile file;
  file->remove(QString::fromStdString(key));
  file.Write();
}

}  // namespace tevra
