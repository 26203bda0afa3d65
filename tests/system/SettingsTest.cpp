#include <QSettings>

#include "platform/system/QtSettings.h"
#include "platform/system/Settings.h"
#include "tests/system/Folder.h"
#include "tests/text/Expect.h"

namespace tevra {
namespace {

const std::string kAwkward[] = {
    "C:\\Firme\\", "/home/ana/firme/", "a, b; c=\"d\" %20 @x", "", " x ", "12345", "Țară\nrând"};

void KeepsValues(SettingsStore& store) {
  EXPECT_FALSE(store.Get(kDatabasesPath));
  for (const std::string& value : kAwkward) {
    store.Set(kDatabasesPath, value);
    EXPECT_EQ(value, store.Get(kDatabasesPath));
  }
  store.Remove(kDatabasesPath);
  store.Remove("MainLeft");
  EXPECT_FALSE(store.Get(kDatabasesPath));
}

class SettingsStores : public FolderTest {
 protected:
  SettingsStores() {
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope,
                       QString::fromStdString(folder_.string()));
  }
};

TEST_F(SettingsStores, KeepValues) {
  MemorySettings memory;
  KeepsValues(memory);
  QtSettings user;
  KeepsValues(user);
  user.Set("MainLeft", "-150");
  EXPECT_NE(std::string::npos,
            Content(folder_ / "KELNAR" / "Setari_IMO.ini").find("MainLeft=-150"));
}

TEST_F(SettingsStores, WhatCannotBeKeptIsAFailure) {
  Make("KELNAR");  // a file where the folder should be
  EXPECT_EQ(70, FailureOf([] { QtSettings().Set("MainLeft", "1"); }));
}

}  // namespace
}  // namespace tevra
