#include "platform/text/Strings.h"

#include <algorithm>

#include "platform/text/FailureText.h"

namespace tevra {
namespace {

unsigned char Byte(std::string_view text, std::size_t at) {
  return static_cast<unsigned char>(text[at]);
}

bool IsTail(std::string_view text, std::size_t at) {
  return at < text.size() && (Byte(text, at) & 0xC0) == 0x80;
}

/// The length in bytes of the well-formed character at `at`; 0 when there is none.
std::size_t WellFormedLength(std::string_view text, std::size_t at) {
  const unsigned char lead = Byte(text, at);
  if (lead < 0x80) return 1;
  if (lead < 0xC2 || !IsTail(text, at + 1)) return 0;
  if (lead < 0xE0) return 2;
  const unsigned char second = Byte(text, at + 1);
  if (!IsTail(text, at + 2)) return 0;
  if (lead < 0xF0) {
    const bool tooLong = lead == 0xE0 && second < 0xA0;
    const bool surrogate = lead == 0xED && second >= 0xA0;
    return tooLong || surrogate ? 0 : 3;
  }
  if (lead > 0xF4 || !IsTail(text, at + 3)) return 0;
  const bool tooLong = lead == 0xF0 && second < 0x90;
  const bool tooLarge = lead == 0xF4 && second >= 0x90;
  return tooLong || tooLarge ? 0 : 4;
}

std::size_t Next(std::string_view text, std::size_t at) {
  return at + std::max<std::size_t>(WellFormedLength(text, at), 1);
}

/// The byte at which a character begins; characters are counted from 0.
std::size_t ByteOf(std::string_view text, std::size_t character) {
  std::size_t at = 0;
  while (character > 0 && at < text.size()) {
    at = Next(text, at);
    --character;
  }
  return at;
}

char FoldAscii(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

bool IsWithin(unsigned letter, unsigned first, unsigned last) {
  return letter >= first && letter <= last;
}

/// Whether in this range capitals have even code points and are followed by their small letters.
bool IsPairFromEven(unsigned letter) {
  return IsWithin(letter, 0x100, 0x12F) || IsWithin(letter, 0x132, 0x137) ||
         IsWithin(letter, 0x14A, 0x177) || IsWithin(letter, 0x218, 0x21B);
}

bool IsPairFromOdd(unsigned letter) {
  return IsWithin(letter, 0x139, 0x148) || IsWithin(letter, 0x179, 0x17E);
}

unsigned UpperOf(unsigned letter) {
  if (IsWithin(letter, 'a', 'z')) return letter - 0x20;
  if (IsWithin(letter, 0xE0, 0xFE) && letter != 0xF7) return letter - 0x20;
  if (letter == 0xFF) return 0x178;
  if (letter == 0x131) return 'I';
  if (letter == 0x17F) return 'S';
  if (IsPairFromEven(letter)) return letter & ~1U;
  if (IsPairFromOdd(letter)) return letter - (letter % 2 == 0 ? 1 : 0);
  return letter;
}

unsigned LowerOf(unsigned letter) {
  if (IsWithin(letter, 'A', 'Z')) return letter + 0x20;
  if (IsWithin(letter, 0xC0, 0xDE) && letter != 0xD7) return letter + 0x20;
  if (letter == 0x178) return 0xFF;
  if (letter == 0x130) return 'i';
  if (IsPairFromEven(letter)) return letter | 1U;
  if (IsPairFromOdd(letter)) return letter + (letter % 2);
  return letter;
}

/// All letters converted here have one or two bytes.
template <typename Change>
std::string Changed(std::string_view text, Change change) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t at = 0, next = 0; at < text.size(); at = next) {
    next = Next(text, at);
    const bool one = next - at == 1 && Byte(text, at) < 0x80;
    if (!one && next - at != 2) {
      result.append(text.substr(at, next - at));
      continue;
    }
    const unsigned letter =
        change(one ? Byte(text, at) : (Byte(text, at) & 0x1FU) << 6 | (Byte(text, at + 1) & 0x3FU));
    if (letter >= 0x80) {
      result += static_cast<char>(0xC0 | letter >> 6);
      result += static_cast<char>(0x80 | (letter & 0x3F));
    } else {
      result += static_cast<char>(letter);
    }
  }
  return result;
}

}  // namespace

std::string UCase(std::string_view text) {
  return Changed(text, UpperOf);
}
std::string LCase(std::string_view text) {
  return Changed(text, LowerOf);
}

std::size_t Len(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t at = 0; at < text.size(); at = Next(text, at)) ++count;
  return count;
}

std::string Left(std::string_view text, std::size_t count) {
  return std::string(text.substr(0, ByteOf(text, count)));
}

std::string Right(std::string_view text, std::size_t count) {
  const std::size_t length = Len(text);
  return std::string(text.substr(ByteOf(text, length - std::min(length, count))));
}

std::string Mid(std::string_view text, std::size_t start, std::size_t count) {
  if (start == 0) throw ValueFailure(kInvalidArgument, "0");
  const std::string_view rest = text.substr(ByteOf(text, start - 1));
  return std::string(rest.substr(0, ByteOf(rest, count)));
}

std::string Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

bool EqualNoCase(std::string_view a, std::string_view b) {
  return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
           return FoldAscii(x) == FoldAscii(y);
         });
}

int CompareNoCase(std::string_view a, std::string_view b) {
  const std::size_t common = std::min(a.size(), b.size());
  for (std::size_t at = 0; at < common; ++at) {
    const auto x = static_cast<unsigned char>(FoldAscii(a[at]));
    const auto y = static_cast<unsigned char>(FoldAscii(b[at]));
    if (x != y) return x < y ? -1 : 1;
  }
  if (a.size() == b.size()) return 0;
  return a.size() < b.size() ? -1 : 1;
}

bool IsValidUtf8(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = WellFormedLength(text, at);
    if (length == 0 || text[at] == '\0') return false;
    at += length;
  }
  return true;
}

bool LikeNoCase(std::string_view text, std::string_view pattern) {
  const auto isRun = [&](std::size_t p) {
    return p < pattern.size() && (pattern[p] == '*' || pattern[p] == '%');
  };
  // On a mismatch the last "*" takes one character more; earlier ones need not be tried again.
  std::size_t t = 0, p = 0, textAfterRun = 0, patternAfterRun = std::string_view::npos;
  while (t < text.size()) {
    if (isRun(p)) {
      patternAfterRun = ++p;
      textAfterRun = t;
    } else if (p < pattern.size() && (pattern[p] == '?' || pattern[p] == '_')) {
      t = Next(text, t);
      ++p;
    } else if (p < pattern.size() && FoldAscii(pattern[p]) == FoldAscii(text[t])) {
      ++t;
      ++p;
    } else if (patternAfterRun != std::string_view::npos) {
      textAfterRun = Next(text, textAfterRun);
      t = textAfterRun;
      p = patternAfterRun;
    } else {
      return false;
    }
  }
  while (isRun(p)) ++p;
  return p == pattern.size();
}

}  // namespace tevra
