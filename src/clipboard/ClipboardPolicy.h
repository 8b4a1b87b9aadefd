#pragma once

#include "platform/FrontmostApp.h"

#include <QStringList>

namespace vaxo {

// Copies the history never records: those that carry a marker type saying the data is concealed,
// transient or generated, and those made while a password manager is the frontmost application.
namespace ClipboardPolicy {

const QStringList &ignoredTypes();
// Lower-case names of password managers: bundle identifiers, X11 window classes and process names.
const QStringList &ignoredApplications();

bool carriesIgnoredType(const QStringList &types);
// Matched without regard to case on the identifier, the instance name and the process name.
bool isIgnored(const AppIdentity &app);

} // namespace ClipboardPolicy
} // namespace vaxo
