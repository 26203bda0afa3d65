#include "session/DbfTable.h"

#include <cstdint>
#include <cstdio>
#include <fstream>
#include <string_view>

#include <iconv.h>
#include <shapefil.h>

#include "platform/system/Paths.h"
#include "platform/text/FailureText.h"
#include "platform/text/Strings.h"

namespace fs = std::filesystem;

namespace tevra {

namespace {

// The library opens ".dbf" and ".DBF" only; a file may be spelled differently.
SAFile OpenNoCase(const char* name, const char* access) {
  return reinterpret_cast<SAFile>(std::fopen(paths::Resolve(name).c_str(), access));
}

SAHooks QuietHooks() {
  SAHooks hooks;
  SASetupDefaultHooks(&hooks);
  hooks.FOpen = OpenNoCase;
  hooks.Error = [](const char*) {};
  return hooks;
}

// The code pages of Romanian tables. A table that names none, or only "DOS", uses that of DOS; one
// that says only "Windows" uses the Romanian one.
const char* CodePage(int languageDriver) {
  constexpr int kWindows = 0x03;
  constexpr int kWindowsAnsi = 0x57;
  constexpr int kWindowsEasternEurope = 0xC8;
  switch (languageDriver) {
    case kWindows:
    case kWindowsAnsi:
    case kWindowsEasternEurope:
      return "CP1250";
    default:
      return "CP852";
  }
}

class ToUtf8 {
 public:
  explicit ToUtf8(const char* codePage) : handle_(iconv_open("UTF-8", codePage)) {}
  ~ToUtf8() {
    if (IsOpen()) iconv_close(handle_);
  }
  ToUtf8(const ToUtf8&) = delete;
  ToUtf8& operator=(const ToUtf8&) = delete;

  /// Empty for a byte that the code page does not have.
  std::string Character(char byte) const {
    if (!IsOpen()) return {};
    char utf8[8];
    char* in = &byte;
    char* out = utf8;
    std::size_t inLeft = 1;
    std::size_t outLeft = sizeof utf8;
    if (iconv(handle_, &in, &inLeft, &out, &outLeft) == static_cast<std::size_t>(-1)) return {};
    return {utf8, out};
  }

 private:
  bool IsOpen() const { return handle_ != reinterpret_cast<iconv_t>(-1); }
  iconv_t handle_;
};

std::string Decoded(std::string_view bytes, const char* codePage) {
  std::string text;
  const ToUtf8 decode(codePage);
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    const bool control = byte < ' ' || byte == 127;
    const std::string character = control      ? std::string()
                                  : byte < 127 ? std::string(1, c)
                                               : decode.Character(c);
    text += character.empty() ? "?" : character;
  }
  return Trim(text);
}

}  // namespace

struct DbfTable::Table {
  explicit Table(const fs::path& file) {
    SAHooks hooks = QuietHooks();
    handle = DBFOpenLL(file.c_str(), "rb", &hooks);
  }
  ~Table() {
    if (handle) DBFClose(handle);
  }
  Table(const Table&) = delete;
  Table& operator=(const Table&) = delete;

  DBFHandle handle;
};

DbfTable::DbfTable(const fs::path& file) : file_(file) {
  if (!std::ifstream(file)) throw FileFailure(kPermissionDenied, file.string());
  table_ = std::make_shared<Table>(file);
  if (!table_->handle) Damaged("nu este o tabela dBase");
  CheckMeasures();
}

void DbfTable::Damaged(const std::string& reason) const {
  throw Failure(kDatabaseNotOpened, file_.filename().string() + ": " + reason, file_.string());
}

// The library does not check the lengths in the header.
void DbfTable::CheckMeasures() const {
  const DBFInfo& info = *table_->handle;
  const std::string reason = "tabela este deteriorata";
  if (info.nRecords < 0 || info.nRecordLength < 1) Damaged(reason);
  for (int i = 0; i < info.nFields; ++i) {
    const int start = info.panFieldOffset[i];
    const int size = info.panFieldSize[i];
    if (start < 1 || size < 0 || start + size > info.nRecordLength) Damaged(reason);
  }
  std::error_code error;
  const std::uintmax_t length = fs::file_size(file_, error);
  const auto records = static_cast<std::uintmax_t>(info.nRecords);
  const auto needed = static_cast<std::uintmax_t>(info.nHeaderLength) +
                      records * static_cast<std::uintmax_t>(info.nRecordLength);
  if (error || length < needed) Damaged(reason);
}

int DbfTable::RecordCount() const {
  return DBFGetRecordCount(table_->handle);
}

bool DbfTable::IsDeleted(int record) const {
  return DBFIsRecordDeleted(table_->handle, record) != 0;
}

int DbfTable::FieldIndex(const std::string& name) const {
  const int index = DBFGetFieldIndex(table_->handle, name.c_str());
  if (index < 0) Damaged("lipseste campul " + name);
  return index;
}

int DbfTable::FieldWidth(int field) const {
  return table_->handle->panFieldSize[field];
}

std::string DbfTable::Text(int record, int field) const {
  const char* bytes = DBFReadStringAttribute(table_->handle, record, field);
  if (!bytes) Damaged("tabela este deteriorata");
  return Decoded(bytes, CodePage(table_->handle->iLanguageDriver));
}

}  // namespace tevra
