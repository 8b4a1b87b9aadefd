#pragma once

#include "platform/FrontmostApp.h"

namespace vaxo::linux_platform {

// The application of the active window (_NET_ACTIVE_WINDOW): its WM_CLASS instance and class, and the
// process named by _NET_WM_PID. Needs a window manager; without one, or off X11, there is none.
class X11FrontmostApp final : public FrontmostApp {
public:
    std::optional<AppIdentity> current() const override;
};

} // namespace vaxo::linux_platform
