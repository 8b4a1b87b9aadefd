#include "app/IslandAppDelegate.h"

namespace vaxo {

void IslandAppDelegate::applicationDidFinishLaunching() {}

void IslandAppDelegate::applicationWillTerminate() {}

} // namespace vaxo
