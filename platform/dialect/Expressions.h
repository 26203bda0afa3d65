// The dialect's expressions: joined texts, sums of numbers or texts, real division, comparisons.
#pragma once

#include "platform/dialect/Tokenizer.h"

namespace tevra::dialect {

/// Rewrites the expressions of a statement and of all its groups: "a & b" and "a + b" become calls
/// of helpers, "/" gives fractions, True and False become -1 and 0, and a text compared with a
/// number is converted to a number. Throws Failure -2147217900 for an expression of more than 500
/// operands.
void RewriteExpressions(Nodes& nodes);

/// True for words that separate expressions and are never part of one.
bool IsKeyword(const Node& node);

}  // namespace tevra::dialect
