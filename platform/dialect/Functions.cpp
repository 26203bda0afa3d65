#include "platform/dialect/Functions.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <new>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include <sqlite3.h>

#include "platform/text/DateTime.h"
#include "platform/text/Dates.h"
#include "platform/text/FailureText.h"
#include "platform/text/Numbers.h"
#include "platform/text/Strings.h"

namespace tevra::dialect {

namespace {

struct Null {};
// Used for results too. A text in the stored form of a date is a date.
using Argument = std::variant<Null, std::int64_t, double, std::string, DateTime>;
using Arguments = std::vector<Argument>;

constexpr std::size_t kStoredDateLength = 19;

template <typename T>
bool Holds(const Argument& argument) {
  return std::holds_alternative<T>(argument);
}

bool IsNull(const Argument& argument) {
  return Holds<Null>(argument);
}

bool IsNumber(const Argument& argument) {
  return Holds<std::int64_t>(argument) || Holds<double>(argument);
}

Argument Read(sqlite3_value* value) {
  switch (sqlite3_value_type(value)) {
    case SQLITE_NULL:
      return Null();
    case SQLITE_INTEGER:
      return std::int64_t{sqlite3_value_int64(value)};
    case SQLITE_FLOAT:
      return sqlite3_value_double(value);
    default:
      break;
  }
  const auto* bytes = static_cast<const char*>(sqlite3_value_blob(value));
  const auto size = static_cast<std::size_t>(sqlite3_value_bytes(value));
  const std::string_view text = bytes ? std::string_view(bytes, size) : std::string_view();
  if (size == kStoredDateLength && text[10] == ' ') {
    if (const auto date = DateTime::FromIso(text)) return *date;
  }
  return std::string(text);
}

void GiveBack(sqlite3_context* context, const Argument& result) {
  if (const auto* whole = std::get_if<std::int64_t>(&result)) {
    sqlite3_result_int64(context, *whole);
  } else if (const auto* number = std::get_if<double>(&result)) {
    sqlite3_result_double(context, *number);
  } else if (IsNull(result)) {
    sqlite3_result_null(context);
  } else {
    const auto* date = std::get_if<DateTime>(&result);
    const std::string text = date ? date->Iso() : std::get<std::string>(result);
    sqlite3_result_text64(context, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
  }
}

// --- Conversions of one argument that is not Null

double ToDouble(const Argument& argument) {
  if (const auto* whole = std::get_if<std::int64_t>(&argument)) return static_cast<double>(*whole);
  if (const auto* number = std::get_if<double>(&argument)) return *number;
  if (const auto* date = std::get_if<DateTime>(&argument)) return date->Serial();
  return tevra::CDbl(std::get<std::string>(argument));
}

std::string ToText(const Argument& argument) {
  if (const auto* whole = std::get_if<std::int64_t>(&argument)) return tevra::CStr(*whole);
  if (const auto* number = std::get_if<double>(&argument)) return tevra::CStr(*number);
  if (const auto* date = std::get_if<DateTime>(&argument)) return tevra::CStr(*date);
  return std::get<std::string>(argument);
}

DateTime ToDate(const Argument& argument) {
  if (const auto* date = std::get_if<DateTime>(&argument)) return *date;
  if (const auto* text = std::get_if<std::string>(&argument)) return tevra::CDate(*text);
  return DateTime::FromSerial(ToDouble(argument));
}

// A count of characters or decimals.
std::size_t ToCount(const Argument& argument) {
  const std::int32_t count = tevra::CLng(ToDouble(argument));
  if (count < 0) throw ValueFailure(5, std::to_string(count));
  return static_cast<std::size_t>(count);
}

// --- The functions; they are never called with Null

Argument CDateOf(const Arguments& a) {
  return ToDate(a[0]);
}
Argument CDblOf(const Arguments& a) {
  return ToDouble(a[0]);
}
Argument CIntOf(const Arguments& a) {
  return std::int64_t{tevra::CInt(ToDouble(a[0]))};
}
Argument CLngOf(const Arguments& a) {
  return std::int64_t{tevra::CLng(ToDouble(a[0]))};
}
Argument CStrOf(const Arguments& a) {
  return ToText(a[0]);
}
Argument UCaseOf(const Arguments& a) {
  return tevra::UCase(ToText(a[0]));
}
Argument LCaseOf(const Arguments& a) {
  return tevra::LCase(ToText(a[0]));
}
Argument LenOf(const Arguments& a) {
  return static_cast<std::int64_t>(tevra::Len(ToText(a[0])));
}
Argument LeftOf(const Arguments& a) {
  return tevra::Left(ToText(a[0]), ToCount(a[1]));
}
Argument RightOf(const Arguments& a) {
  return tevra::Right(ToText(a[0]), ToCount(a[1]));
}
Argument TrimOf(const Arguments& a) {
  return tevra::Trim(ToText(a[0]));
}
Argument ValOf(const Arguments& a) {
  return tevra::Val(ToText(a[0]));
}
Argument YearOf(const Arguments& a) {
  return std::int64_t{ToDate(a[0]).Year()};
}
Argument MonthOf(const Arguments& a) {
  return std::int64_t{ToDate(a[0]).Month()};
}
Argument DayOf(const Arguments& a) {
  return std::int64_t{ToDate(a[0]).Day()};
}

Argument MidOf(const Arguments& a) {
  const std::size_t count = a.size() > 2 ? ToCount(a[2]) : std::string::npos;
  return tevra::Mid(ToText(a[0]), ToCount(a[1]), count);
}

Argument RoundOf(const Arguments& a) {
  const std::size_t decimals = a.size() > 1 ? ToCount(a[1]) : 0;
  if (decimals > 15) throw ValueFailure(5, std::to_string(decimals));
  return RoundTo(ToDouble(a[0]), static_cast<int>(decimals));
}

Argument IntOf(const Arguments& a) {
  if (Holds<std::int64_t>(a[0])) return a[0];
  return std::floor(ToDouble(a[0]));
}

Argument FixOf(const Arguments& a) {
  if (Holds<std::int64_t>(a[0])) return a[0];
  return std::trunc(ToDouble(a[0]));
}

// --- The rewriting's own helpers

// Null for a text that is not a number.
Argument NumberOf(const Argument& argument) {
  if (IsNull(argument) || IsNumber(argument)) return argument;
  if (const auto* text = std::get_if<std::string>(&argument); text && !IsNumeric(*text))
    return Null();
  return ToDouble(argument);
}

Argument NumberOfFirst(const Arguments& a) {
  return NumberOf(a[0]);
}

Argument JoinText(const Arguments& a) {
  std::string joined;
  for (const Argument& argument : a) {
    if (!IsNull(argument)) joined += ToText(argument);
  }
  return joined;
}

// Whole numbers stay whole while they fit.
Argument SumOf(const Argument& left, const Argument& right, int sign) {
  const auto* a = std::get_if<std::int64_t>(&left);
  const auto* b = std::get_if<std::int64_t>(&right);
  std::int64_t sum = 0;
  if (a && b &&
      !(sign > 0 ? __builtin_add_overflow(*a, *b, &sum) : __builtin_sub_overflow(*a, *b, &sum))) {
    return sum;
  }
  return ToDouble(left) + sign * ToDouble(right);
}

Argument Add(const Argument& left, const Argument& right) {
  if (IsNull(left) || IsNull(right)) return Null();
  if (Holds<std::string>(left) && Holds<std::string>(right)) {
    return std::get<std::string>(left) + std::get<std::string>(right);
  }
  const Argument a = NumberOf(left);
  const Argument b = NumberOf(right);
  if (IsNull(a) || IsNull(b)) return Null();
  const bool date = Holds<DateTime>(left) || Holds<DateTime>(right);
  if (date) return DateTime::FromSerial(ToDouble(a) + ToDouble(b));
  return SumOf(a, b, 1);
}

// The days between two dates, the date some days before a date, or the difference of two numbers.
Argument Subtract(const Argument& left, const Argument& right) {
  const Argument a = NumberOf(left);
  const Argument b = NumberOf(right);
  if (IsNull(a) || IsNull(b)) return Null();
  const bool date = Holds<DateTime>(left) && !Holds<DateTime>(right);
  if (date) return DateTime::FromSerial(ToDouble(a) - ToDouble(b));
  return SumOf(a, b, -1);
}

Argument Divide(const Argument& left, const Argument& right) {
  const Argument a = NumberOf(left);
  const Argument b = NumberOf(right);
  if (IsNull(a) || IsNull(b)) return Null();
  if (ToDouble(b) == 0) throw ValueFailure(kDivisionByZero);
  return ToDouble(a) / ToDouble(b);
}

template <Argument (*Operation)(const Argument&, const Argument&)>
Argument FromTheLeft(const Arguments& a) {
  Argument result = a[0];
  for (std::size_t i = 1; i < a.size(); ++i) result = Operation(result, a[i]);
  return result;
}

// --- Their registration

struct Function {
  const char* name;
  int fewest;
  int most;
  bool seesNull;
  Argument (*call)(const Arguments&);
};

constexpr int kMany = -1;

constexpr Function kFunctions[] = {
    {"CDate", 1, 1, false, CDateOf},
    {"CDbl", 1, 1, false, CDblOf},
    {"CInt", 1, 1, false, CIntOf},
    {"CLng", 1, 1, false, CLngOf},
    {"CStr", 1, 1, false, CStrOf},
    {"Day", 1, 1, false, DayOf},
    {"Fix", 1, 1, false, FixOf},
    {"Int", 1, 1, false, IntOf},
    {"LCase", 1, 1, false, LCaseOf},
    {"Left", 2, 2, false, LeftOf},
    {"Len", 1, 1, false, LenOf},
    {"Mid", 2, 3, false, MidOf},
    {"Month", 1, 1, false, MonthOf},
    {"Right", 2, 2, false, RightOf},
    {"Round", 1, 2, false, RoundOf},
    {"Trim", 1, 1, false, TrimOf},
    {"UCase", 1, 1, false, UCaseOf},
    {"Val", 1, 1, false, ValOf},
    {"Year", 1, 1, false, YearOf},
    {"join_text", 1, kMany, true, JoinText},
    {"minus", 2, kMany, true, FromTheLeft<Subtract>},
    {"number_of", 1, 1, true, NumberOfFirst},
    {"plus", 2, kMany, true, FromTheLeft<Add>},
    {"ratio", 2, kMany, true, FromTheLeft<Divide>},
};

// The data passed to every call; the database frees it when it is closed.
struct Registration {
  const Function* function;
  std::optional<Failure>* pending;
};

void Call(sqlite3_context* context, int count, sqlite3_value** values) {
  const auto* registration = static_cast<const Registration*>(sqlite3_user_data(context));
  const Function& function = *registration->function;
  if (count < function.fewest) {
    const std::string reason =
        std::string("wrong number of arguments to function ") + function.name;
    sqlite3_result_error(context, reason.c_str(), -1);
    return;
  }
  try {
    Arguments arguments;
    arguments.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) arguments.push_back(Read(values[i]));
    const bool null = std::any_of(arguments.begin(), arguments.end(), IsNull);
    GiveBack(context, null && !function.seesNull ? Argument() : function.call(arguments));
  } catch (const Failure& failure) {
    if (registration->pending) *registration->pending = failure;
    sqlite3_result_error(context, failure.what(), -1);
  } catch (const std::bad_alloc&) {
    sqlite3_result_error_nomem(context);
  }
}

void Forget(void* registration) {
  delete static_cast<Registration*>(registration);
}

void Register(sqlite3* db, const Function& function, int arguments,
              std::optional<Failure>* pending) {
  const int flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
  const int code = sqlite3_create_function_v2(db, function.name, arguments, flags,
                                              new Registration{&function, pending}, Call, nullptr,
                                              nullptr, Forget);
  if (code != SQLITE_OK) throw Failure(kStatementError, sqlite3_errmsg(db), function.name);
}

}  // namespace

void RegisterFunctions(sqlite3* db, std::optional<Failure>* pending) {
  for (const Function& function : kFunctions) {
    if (function.most == kMany) {
      Register(db, function, -1, pending);
      continue;
    }
    for (int count = function.fewest; count <= function.most; ++count) {
      Register(db, function, count, pending);
    }
  }
}

}  // namespace tevra::dialect
