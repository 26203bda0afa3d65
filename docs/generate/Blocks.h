// The generated parts of a document.
#pragma once

#include <map>
#include <string>

namespace tevra {

/// Text by block name. A block stands in a document between the lines "<!-- begin NAME -->" and
/// "<!-- end NAME -->"; everything outside these lines is written by hand.
using Blocks = std::map<std::string, std::string>;

/// The document with the text of each block replaced. Throws Failure naming the block when the
/// document has a block that is not given, lacks one that is, or repeats one.
std::string WithBlocks(const std::string& document, Blocks blocks);

}  // namespace tevra
