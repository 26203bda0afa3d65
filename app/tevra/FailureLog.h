// The log of the window program.
#pragma once

namespace tevra {

/// Failures go into the user's log file through the toolkit's logging, under the category
/// "tevra.failures", which QT_LOGGING_RULES can silence; what is critical to the toolkit goes there
/// too.
void UseLog();

}  // namespace tevra
