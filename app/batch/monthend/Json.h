// Writes a JSON document.
#pragma once

#include <ostream>
#include <string>
#include <string_view>

namespace tevra::batch {

/// Objects and arrays with commas, line ends and indents. The caller opens and closes them in
/// order. Texts are escaped; bytes that are not UTF-8 become the replacement character.
class JsonWriter {
 public:
  explicit JsonWriter(std::ostream& out) : out_(out) {}

  /// Before the value of an object's member.
  JsonWriter& Key(std::string_view name);

  void Open(char bracket);   ///< "{" or "["
  void Close(char bracket);  ///< "}" or "]"
  void Text(std::string_view text);
  void TextOrNull(std::string_view text);  ///< null when it is empty
  void Number(double value);               ///< null when it is not finite
  void Bool(bool value);
  void Null();

 private:
  void Begin();

  std::ostream& out_;
  int depth_ = 0;
  bool first_ = true;
  bool afterKey_ = false;
};

}  // namespace tevra::batch
