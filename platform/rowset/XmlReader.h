// Reads an XML document forwards, piece by piece; pieces before the current one are discarded.
#pragma once

#include <istream>
#include <memory>
#include <string>
#include <string_view>

namespace tevra {

/// The error number for a document that is damaged or not what was expected.
inline constexpr long kNotReadable = -2147467259;

/// An attribute; its texts are valid until the reader moves.
struct XmlAttribute {
  std::string_view space;  ///< the namespace, empty for none
  std::string_view name;   ///< without prefix
  std::string_view value;
};

/// Reads the elements of a document in order. A document type is refused, so entities can be
/// neither declared nor fetched. Every failure names the file and the line.
class XmlReader {
 public:
  /// `name` is the file's name in failures. The reader moves to the root element. Throws Failure
  /// -2147467259 when there is none.
  XmlReader(std::istream& in, std::string name);
  ~XmlReader();
  XmlReader(const XmlReader&) = delete;
  XmlReader& operator=(const XmlReader&) = delete;

  // The current element.
  std::string_view Name() const;   ///< without prefix
  std::string_view Space() const;  ///< its namespace, empty for none
  bool Is(std::string_view space, std::string_view name) const;
  int Depth() const;  ///< 0 for the root
  bool HasContent() const;

  /// Moves to the next child of the element at `parentDepth`, which is the current element or
  /// contains it; the rest of an earlier child is skipped. False at the parent's end.
  bool NextChild(int parentDepth);

  /// Moves to the next attribute of the current element, first to the first; false after the last.
  bool NextAttribute(XmlAttribute& attribute);

  /// The text of the current element without that of its child elements; moves to its end.
  std::string Text();

  /// Reads to the document's end, so that damage after the last element of interest is found.
  void Finish();

  /// The line on which the start tag of the current element ends, from 1. Where it is unknown
  /// (above line 65,534, outside elements), the line up to which the file has been read, which is
  /// a few lines further.
  int Line() const;

  /// Throws a Failure with the file's name, the line and `text`; its source is the file's name.
  [[noreturn]] void Fail(long number, const std::string& text) const;

 private:
  struct Parser;
  bool Read();
  std::unique_ptr<Parser> parser_;
};

}  // namespace tevra
