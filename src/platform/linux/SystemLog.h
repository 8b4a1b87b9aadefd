#pragma once

namespace vaxo::linux_platform {

// Routes Qt's log messages ("[island] ..." lines) to syslog(3), which reaches the journal, and also
// to stderr when stderr is a terminal.
void installSystemLog();

} // namespace vaxo::linux_platform
