#include "platform/text/Invariant.h"

#include <string>

namespace tevra::detail {

namespace {

// The file's name alone: the rest of its path belongs to the machine that built the program.
std::string PlaceText(const std::source_location& place) {
  const std::string file = place.file_name();
  return file.substr(file.find_last_of("/\\") + 1) + ":" + std::to_string(place.line());
}

}  // namespace

void ThrowBrokenInvariant(const char* what, const std::source_location& place) {
  throw Failure(kBrokenInvariant,
                std::string("Eroare interna, operatia a fost anulata: ") + what + " [" +
                    PlaceText(place) + "]",
                place.function_name());
}

void ThrowUnequal(const char* what, std::int64_t actual, std::int64_t expected,
                  const std::source_location& place) {
  const std::string numbers = std::to_string(actual) + " in loc de " + std::to_string(expected);
  ThrowBrokenInvariant((std::string(what) + ": " + numbers).c_str(), place);
}

}  // namespace tevra::detail
