// Texts as they stand inside an XML document.
#pragma once

#include <string>
#include <string_view>

namespace tevra {

/// Appends `text` to `out` so that it is read back exactly as it is, from an attribute in single or
/// double quotes or from an element: line breaks and tabs too. Throws Failure -2147217887 for what
/// no XML document can hold: control characters other than those, and bytes that are no UTF-8.
void AppendXmlText(std::string& out, std::string_view text);

}  // namespace tevra
