#include "platform/text/Invariant.h"

#include <string>

namespace tevra::detail {

namespace {

// The file's name alone: the rest of its path belongs to the machine that built the program.
std::string PlaceText(const SourcePlace& place) {
  const std::string file = place.file;
  return file.substr(file.find_last_of("/\\") + 1) + ":" + std::to_string(place.line);
}

}  // namespace

void ThrowBrokenInvariant(const char* what, const SourcePlace& place) {
  throw Failure(kBrokenInvariant,
                std::string("Eroare interna, operatia a fost anulata: ") + what + " [" +
                    PlaceText(place) + "]",
                place.function);
}

void ThrowUnequal(const char* what, std::int64_t actual, std::int64_t expected,
                  const SourcePlace& place) {
  const std::string numbers = std::to_string(actual) + " in loc de " + std::to_string(expected);
  ThrowBrokenInvariant((std::string(what) + ": " + numbers).c_str(), place);
}

}  // namespace tevra::detail
