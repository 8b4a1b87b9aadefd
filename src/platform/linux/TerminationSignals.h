#pragma once

namespace vaxo::linux_platform {

// Turns SIGTERM and SIGINT into an orderly QCoreApplication::quit(), so that termination runs the
// same steps as quitting from the island. Call once, after the application object exists.
void quitOnTerminationSignals();

} // namespace vaxo::linux_platform
