// Settings of the open company that kv_par has no column for: the table kv_setari, one row each.
#pragma once

#include <string>

#include "platform/data/Connection.h"

namespace tevra {

/// Yes/no settings. A company without the table or the row has all of them off.
enum class CompanySetting {
  kDocumentWithYear,  ///< the document of a month's charges contains the year: "IMO07/2026"
};

/// Settings that hold a text.
enum class CompanyText {
  kPendingExport,  ///< the file of an export whose temporary file is finished but not yet renamed
  kCheckedOn,      ///< the last day on which the file was read for damage, as DateTime::Iso
};

/// Throws Failure when it cannot be read.
bool IsOn(Connection& company, CompanySetting setting);

/// Stores a setting within the caller's transaction, if there is one. Company files are made
/// without the table; it is created when the first setting is switched on. Throws Failure.
void SetOn(Connection& company, CompanySetting setting, bool on);

/// The text of a setting; empty when it was never stored. Throws Failure.
std::string TextOf(Connection& company, CompanyText setting);

/// Stores a text like SetOn; the empty one removes the setting. Throws Failure.
void SetText(Connection& company, CompanyText setting, const std::string& text);

}  // namespace tevra
