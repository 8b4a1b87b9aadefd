#include "platform/ClipboardPlatform.h"

#include "platform/linux/QtPasteboard.h"
#include "platform/linux/X11FrontmostApp.h"

namespace vaxo {

ClipboardPlatform ClipboardPlatform::make()
{
    return {std::make_unique<linux_platform::QtPasteboard>(), std::make_unique<linux_platform::X11FrontmostApp>()};
}

} // namespace vaxo
