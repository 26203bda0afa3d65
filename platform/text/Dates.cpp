#include "platform/text/Dates.h"

#include <optional>

#include "platform/text/FailureText.h"
#include "platform/text/Strings.h"

namespace tevra {
namespace {

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

/// Reads the parts of a written date from the front of a text.
class Reader {
 public:
  explicit Reader(std::string_view text) : rest_(text) {}

  bool AtEnd() const { return rest_.empty(); }

  /// Reads at most `longest` digits from the front; Width() is their number.
  int Number(std::size_t longest) {
    int number = 0;
    for (width_ = 0; width_ < longest && !rest_.empty() && IsDigit(rest_.front()); ++width_) {
      number = number * 10 + (rest_.front() - '0');
      rest_.remove_prefix(1);
    }
    return number;
  }

  std::size_t Width() const { return width_; }

  /// The character at the front when it is one of `wanted`, else NUL.
  char OneOf(std::string_view wanted) {
    if (rest_.empty() || wanted.find(rest_.front()) == std::string_view::npos) return '\0';
    const char taken = rest_.front();
    rest_.remove_prefix(1);
    return taken;
  }

  bool Blanks() {
    bool any = false;
    while (OneOf(" ") != '\0') any = true;
    return any;
  }

 private:
  std::string_view rest_;
  std::size_t width_ = 0;
};

struct Parts {
  int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
};

int FullYear(int ofTwoDigits) {
  return ofTwoDigits + (ofTwoDigits < 30 ? 2000 : 1900);
}

bool ReadDay(Reader& reader, Parts& parts) {
  const int first = reader.Number(4);
  const std::size_t firstWidth = reader.Width();
  const bool yearFirst = firstWidth == 4;
  if (!yearFirst && firstWidth != 1 && firstWidth != 2) return false;
  const char separator = reader.OneOf(yearFirst ? "-/" : "./-");
  if (separator == '\0') return false;
  parts.month = reader.Number(2);
  if (reader.Width() == 0 || reader.OneOf(std::string_view(&separator, 1)) == '\0') return false;
  const int last = reader.Number(yearFirst ? 2 : 4);
  const std::size_t lastWidth = reader.Width();
  if (yearFirst) {
    parts.year = first;
    parts.day = last;
    return lastWidth > 0;
  }
  parts.day = first;
  parts.year = lastWidth == 2 ? FullYear(last) : last;
  return lastWidth == 2 || lastWidth == 4;
}

bool ReadTime(Reader& reader, Parts& parts) {
  parts.hour = reader.Number(2);
  if (reader.Width() == 0 || reader.OneOf(":") == '\0') return false;
  parts.minute = reader.Number(2);
  if (reader.Width() != 2) return false;
  if (reader.OneOf(":") == '\0') return true;
  parts.second = reader.Number(2);
  return reader.Width() == 2;
}

std::optional<DateTime> Parse(std::string_view text) {
  Reader reader(text);
  Parts parts;
  reader.Blanks();
  if (!ReadDay(reader, parts)) return std::nullopt;
  if (reader.Blanks() && !reader.AtEnd() && !ReadTime(reader, parts)) return std::nullopt;
  reader.Blanks();
  if (!reader.AtEnd()) return std::nullopt;
  try {
    return DateTime(parts.year, parts.month, parts.day, parts.hour, parts.minute, parts.second);
  } catch (const Failure&) {
    return std::nullopt;  // well formed, but the calendar has no such day
  }
}

std::string Padded(int number, std::size_t width) {
  std::string text = std::to_string(number);
  if (text.size() < width) text.insert(0, width - text.size(), '0');
  return text;
}

char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

/// How many characters of the mask from `at` on are one field: the same letter, at most `longest`.
std::size_t Run(std::string_view mask, std::size_t at, std::size_t longest) {
  std::size_t count = 1;
  while (count < longest && at + count < mask.size() && Lower(mask[at + count]) == Lower(mask[at]))
    ++count;
  return count;
}

int FieldValue(const DateTime& date, char letter, std::size_t width) {
  switch (letter) {
    case 'd':
      return date.Day();
    case 'm':
      return date.Month();
    case 'y':
      return width == 2 ? date.Year() % 100 : date.Year();
    case 'h':
      return date.Hour();
    case 'n':
      return date.Minute();
    default:
      return date.Second();
  }
}

std::string FormatByMask(const DateTime& date, std::string_view mask) {
  std::string text;
  bool hourBefore = false;  // the last field was the hour, with nothing but ":" since
  for (std::size_t at = 0; at < mask.size();) {
    char letter = Lower(mask[at]);
    const std::size_t width =
        letter == 'y' ? (Run(mask, at, 4) == 4 ? 4 : Run(mask, at, 2)) : Run(mask, at, 2);
    const bool isField =
        letter == 'y' ? width > 1 : std::string_view("dmhns").find(letter) != std::string::npos;
    if (!isField) {
      hourBefore = hourBefore && letter == ':';
      text += letter == '/' ? '.' : mask[at];
      ++at;
      continue;
    }
    if (letter == 'm' && hourBefore) letter = 'n';
    text += Padded(FieldValue(date, letter, width), width);
    hourBefore = letter == 'h';
    at += width;
  }
  return text;
}

}  // namespace

bool IsDate(std::string_view text) {
  return Parse(text).has_value();
}

DateTime CDate(std::string_view text) {
  const auto date = Parse(text);
  if (!date) throw ValueFailure(kTypeMismatch, text);
  return *date;
}

std::optional<DateTime> WholeDate(std::string_view text) {
  constexpr std::string_view kDayFirst = "99.99.9999";
  const std::string_view start = text.substr(0, kDayFirst.size());
  const bool dayFirst =
      std::equal(start.begin(), start.end(), kDayFirst.begin(), kDayFirst.end(),
                 [](char c, char p) { return p == '9' ? c >= '0' && c <= '9' : c == p; });
  if (!dayFirst) return DateTime::FromIso(text);
  const std::string day(text.substr(0, 2));
  const std::string month(text.substr(3, 2));
  return DateTime::FromIso(std::string(text.substr(6, 4)) + '-' + month + '-' + day +
                           std::string(text.substr(kDayFirst.size())));
}

std::string ShortDate(const DateTime& date) {
  return FormatByMask(date, "dd.mm.yyyy");
}

std::string CStr(const DateTime& date) {
  return date == date.Midnight() ? ShortDate(date) : FormatByMask(date, "dd.mm.yyyy hh:nn:ss");
}

std::string Format(const DateTime& date, std::string_view format) {
  return EqualNoCase(format, "Short Date") ? ShortDate(date) : FormatByMask(date, format);
}

}  // namespace tevra
