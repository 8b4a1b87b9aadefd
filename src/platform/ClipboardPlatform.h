#pragma once

#include "platform/FrontmostApp.h"
#include "platform/Pasteboard.h"

#include <memory>

namespace vaxo {

// What the clipboard history needs from the platform, made by the platform folder the build selects.
struct ClipboardPlatform {
    std::unique_ptr<Pasteboard> pasteboard;
    std::unique_ptr<FrontmostApp> frontmost;

    // Needs a QGuiApplication.
    static ClipboardPlatform make();
};

} // namespace vaxo
