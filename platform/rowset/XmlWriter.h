// An XML document written forwards, without ever being in memory as a whole.
#pragma once

#include <memory>
#include <ostream>
#include <string>
#include <string_view>

namespace tevra {

/// Writes elements as they come, in UTF-8 and without an XML declaration; attributes stand in
/// single quotes. Every routine throws Failure 61 when the stream takes no more. Line breaks are
/// the caller's.
class XmlWriter {
 public:
  explicit XmlWriter(std::ostream& out);
  ~XmlWriter();
  XmlWriter(const XmlWriter&) = delete;
  XmlWriter& operator=(const XmlWriter&) = delete;

  void StartElement(const std::string& name);
  /// To the element just started. Throws Failure -2147217887, see AppendXmlText.
  void Attribute(const std::string& name, std::string_view value);
  void Text(std::string_view text);
  /// Markup that is written as it stands.
  void Raw(std::string_view markup);
  void EndElement();

  /// Hands everything to the stream. Without it a document that failed half-way may lack its end.
  void Flush();

 private:
  struct Output;
  std::unique_ptr<Output> output_;
};

}  // namespace tevra
