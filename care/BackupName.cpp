#include "care/BackupName.h"

#include <algorithm>

#include "platform/text/Dates.h"
#include "platform/text/Failure.h"
#include "platform/text/Strings.h"

namespace tevra {

namespace {

constexpr const char* kMinuteForm = "dd.mm.yyyy_hh.nn";
constexpr const char* kSecondForm = "dd.mm.yyyy_hh.nn.ss";
constexpr const char* kExtension = ".mdb";

// A backup may go to a medium of another system, which allows less in a name.
bool IsAllowed(char c) {
  constexpr std::string_view kForbidden = "/\\:*?\"<>|";
  return static_cast<unsigned char>(c) >= ' ' && kForbidden.find(c) == std::string_view::npos;
}

std::string Beginning(const std::string& companyName, const std::string& database) {
  constexpr std::size_t kPrefix = 10;
  std::string prefix = Left(companyName, kPrefix);
  std::replace_if(
      prefix.begin(), prefix.end(), [](char c) { return !IsAllowed(c); }, '_');
  return prefix + "_" + BareDatabase(database) + "_";
}

std::string WithoutExtension(const std::string& name) {
  const std::size_t length = std::char_traits<char>::length(kExtension);
  const bool has =
      name.size() > length && EqualNoCase(name.substr(name.size() - length), kExtension);
  return has ? name.substr(0, name.size() - length) : std::string();
}

// Without the "_2" that tells apart backups made within one second.
std::string WithoutNumber(const std::string& bare) {
  constexpr const char* kDigits = "0123456789";
  const std::size_t last = bare.find_last_not_of(kDigits);
  const bool numbered = last != std::string::npos && last + 1 < bare.size() && bare[last] == '_';
  return numbered ? bare.substr(0, last) : bare;
}

// Read strictly: what Format gives for the moment must be the text itself.
std::optional<DateTime> Moment(const std::string& text, const char* form) {
  const auto part = [&](std::size_t at, std::size_t length) {
    int number = 0;
    for (const char c : text.substr(at, length)) number = number * 10 + (c - '0');
    return number;
  };
  const auto fits = [](char c) { return (c >= '0' && c <= '9') || c == '.' || c == '_'; };
  if (text.size() != std::char_traits<char>::length(form) ||
      !std::all_of(text.begin(), text.end(), fits)) {
    return std::nullopt;
  }
  try {
    constexpr std::size_t kUpToMinute = 16;
    const int second = text.size() > kUpToMinute ? part(17, 2) : 0;
    const DateTime moment(part(6, 4), part(3, 2), part(0, 2), part(11, 2), part(14, 2), second);
    return Format(moment, form) == text ? std::optional(moment) : std::nullopt;
  } catch (const Failure&) {
    return std::nullopt;
  }
}

}  // namespace

std::string BareDatabase(const std::string& database) {
  return Left(database, Len(database) - std::min<std::size_t>(Len(database), 4));
}

std::string BackupName(const std::string& companyName, const std::string& database,
                       const DateTime& moment) {
  return Beginning(companyName, database) + Format(moment, kMinuteForm) + kExtension;
}

std::optional<DateTime> MomentOfBackup(const std::string& name, const std::string& companyName,
                                       const std::string& database) {
  const std::string begin = Beginning(companyName, database);
  const std::string bare = WithoutExtension(name);
  if (!bare.starts_with(begin)) return std::nullopt;
  return Moment(bare.substr(begin.size()), kMinuteForm);
}

std::optional<DateTime> MomentInName(const std::string& name) {
  const std::string bare = WithoutNumber(WithoutExtension(name));
  for (const char* form : {kSecondForm, kMinuteForm}) {
    const std::size_t length = std::char_traits<char>::length(form);
    if (bare.size() < length) continue;
    if (const auto moment = Moment(bare.substr(bare.size() - length), form)) return moment;
  }
  return std::nullopt;
}

}  // namespace tevra
