// Writes an XML document as a stream, without holding it in memory.
#pragma once

#include <memory>
#include <ostream>
#include <string>
#include <string_view>

namespace tevra {

/// Writes elements in UTF-8, without an XML declaration and with attributes in single quotes. Every
/// routine throws Failure 61 when the stream accepts no more. The caller writes line breaks.
class XmlWriter {
 public:
  explicit XmlWriter(std::ostream& out);
  ~XmlWriter();
  XmlWriter(const XmlWriter&) = delete;
  XmlWriter& operator=(const XmlWriter&) = delete;

  void StartElement(const std::string& name);
  /// Adds an attribute to the element just started. Throws Failure -2147217887, see AppendXmlText.
  void Attribute(const std::string& name, std::string_view value);
  void Text(std::string_view text);
  /// Writes markup unchanged.
  void Raw(std::string_view markup);
  void EndElement();

  /// Flushes everything to the stream; without it the end of the document may be missing.
  void Flush();

 private:
  struct Output;
  std::unique_ptr<Output> output_;
};

}  // namespace tevra
