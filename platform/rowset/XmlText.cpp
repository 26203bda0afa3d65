#include "platform/rowset/XmlText.h"

#include <algorithm>
#include <array>

#include "platform/text/Failure.h"
#include "platform/text/Strings.h"

namespace tevra {

namespace {

enum class Treatment : unsigned char { AsIs, Reference, Forbidden };

constexpr std::array<Treatment, 256> MakeTreatments() {
  std::array<Treatment, 256> table{};
  for (std::size_t c = 0; c < 0x20; ++c) table[c] = Treatment::Forbidden;
  for (const unsigned char c : {'\t', '\n', '\r', '&', '<', '>', '\'', '"'}) {
    table[c] = Treatment::Reference;
  }
  return table;
}

constexpr auto kTreatments = MakeTreatments();

Treatment TreatmentOf(char c) {
  return kTreatments[static_cast<unsigned char>(c)];
}

// A reader turns plain line breaks and tabs of an attribute into blanks, but keeps references.
const char* ReferenceOf(char c) {
  switch (c) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '\'':
      return "&apos;";
    case '"':
      return "&quot;";
    case '\t':
      return "&#9;";
    case '\n':
      return "&#10;";
    default:
      return "&#13;";
  }
}

bool IsPlainAscii(char c) {
  return static_cast<unsigned char>(c) < 0x80;
}

[[noreturn]] void ThrowForbidden(const char* what) {
  throw Failure(kValueNotAccepted, std::string("Valoare neacceptata: ") + what);
}

void CheckBeyondAscii(std::string_view text) {
  if (!IsValidUtf8(text)) ThrowForbidden("not a text");
  // U+FFFE and U+FFFF are well-formed UTF-8, but not characters.
  if (text.find("\xEF\xBF\xBE") != text.npos || text.find("\xEF\xBF\xBF") != text.npos) {
    ThrowForbidden("a character that no XML file can hold");
  }
}

}  // namespace

void AppendXmlText(std::string& out, std::string_view text) {
  if (!std::all_of(text.begin(), text.end(), IsPlainAscii)) CheckBeyondAscii(text);
  std::size_t from = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const Treatment treatment = TreatmentOf(text[i]);
    if (treatment == Treatment::AsIs) continue;
    if (treatment == Treatment::Forbidden) ThrowForbidden("a control character");
    out.append(text.substr(from, i - from)).append(ReferenceOf(text[i]));
    from = i + 1;
  }
  out.append(text.substr(from));
}

}  // namespace tevra
