// An XML document read forwards, piece by piece: what stands before the current piece is forgotten.
#pragma once

#include <istream>
#include <memory>
#include <string>
#include <string_view>

namespace tevra {

/// The number of every failure that says that a document is damaged or is not what was expected.
inline constexpr long kNotReadable = -2147467259;

/// An attribute; the texts live until the reader moves.
struct XmlAttribute {
  std::string_view space;  ///< the namespace, empty for none
  std::string_view name;   ///< without prefix
  std::string_view value;
};

/// Walks the elements of a document. A document type is refused, so entities can neither be
/// declared nor fetched. Every failure names the file and the line.
class XmlReader {
 public:
  /// `name` is the file as failures name it. The reader moves to the root element. Throws Failure
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

  /// Moves on to the next child element of the element at `parentDepth`, which is the current one
  /// or holds it; what is left of an earlier child is passed over. False at the parent's end.
  bool NextChild(int parentDepth);

  /// Moves to the next attribute of the current element, from the first on; false behind the last.
  bool NextAttribute(XmlAttribute& attribute);

  /// The text of the current element, without what stands in its child elements; moves to its end.
  std::string Text();

  /// Reads on to the document's end, so that damage behind the last element of interest is found.
  void Finish();

  /// The line on which the start tag of the current element ends, from 1; where none is kept
  /// (beyond line 65,534, outside the elements) that to which the file has been read, a few lines
  /// further.
  int Line() const;

  /// Throws a Failure with `text` behind the file's bare name and the line; its source is the name.
  [[noreturn]] void Fail(long number, const std::string& text) const;

 private:
  struct Parser;
  bool Read();
  std::unique_ptr<Parser> parser_;
};

}  // namespace tevra
