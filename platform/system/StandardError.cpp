#include "platform/system/StandardError.h"

#include <new>

#include "platform/system/Log.h"
#include "platform/system/MessageBox.h"

namespace tevra {

std::string StandardErrorText(const Failure& failure, const Procedure& procedure) {
  return "Eroare " + std::to_string(failure.Number()) + " - " + failure.Description() +
         " in procedura " + procedure.name + " din " + procedure.kind + " " + procedure.module +
         " Linia: " + std::to_string(procedure.line);
}

std::string ShortErrorText(const Failure& failure) {
  return std::to_string(failure.Number()) + " - " + failure.Description();
}

namespace {

Failure AsFailure() {
  try {
    throw;
  } catch (const Failure& failure) {
    return failure;
  } catch (const std::bad_alloc&) {
    return {kOutOfMemory, "Out of memory"};
  } catch (const std::exception& error) {
    return {kInternalError, std::string("Internal error: ") + error.what()};
  }
}

}  // namespace

Failure CaughtFailure() {
  const Failure failure = AsFailure();
  log::NoteFailure(failure);
  return failure;
}

Failure CaughtFailure(const Procedure& procedure) {
  const Failure failure = AsFailure();
  log::NoteFailure(failure, procedure.kind + " " + procedure.module + ", " + procedure.name +
                                ", line " + std::to_string(procedure.line));
  return failure;
}

void LogCaughtFailure(const Procedure& procedure) {
  CaughtFailure(procedure);
}

void ShowStandardError(const Failure& failure, const Procedure& procedure) {
  ShowMessage({StandardErrorText(failure, procedure), kCritical, {}, {}});
}

void ShowShortError(const Failure& failure, const Procedure& procedure) {
  ShowMessage({ShortErrorText(failure), kCritical, " " + procedure.name + " ", {}});
}

}  // namespace tevra
