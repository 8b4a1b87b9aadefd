#include "platform/ActivityPlatform.h"

namespace vaxo {
namespace {

std::unique_ptr<ActivityPlatform> &slot()
{
    static std::unique_ptr<ActivityPlatform> platform;
    return platform;
}

} // namespace

void ActivityPlatform::install(std::unique_ptr<ActivityPlatform> platform)
{
    slot() = std::move(platform);
}

ActivityPlatform *ActivityPlatform::installed()
{
    return slot().get();
}

} // namespace vaxo
