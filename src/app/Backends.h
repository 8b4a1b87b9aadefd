#pragma once

#include "platform/PlatformServices.h"

namespace vaxo::Backends {

// After the application object: termination signals quit in order, and the services of the desktop
// the program runs on are made. The one place that knows which backends exist.
PlatformServices make();

} // namespace vaxo::Backends
