// Escapes texts for an XML document.
#pragma once

#include <string>
#include <string_view>

namespace tevra {

/// Appends `text` to `out` so that a reader gets back exactly the same text, line breaks and tabs
/// included, from an attribute in single or double quotes or from an element. Throws Failure
/// -2147217887 for other control characters and for invalid UTF-8, which XML cannot represent.
void AppendXmlText(std::string& out, std::string_view text);

}  // namespace tevra
