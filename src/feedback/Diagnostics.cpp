#include "feedback/Diagnostics.h"

#include <QStringList>

namespace vaxo {
namespace {

QString orPlaceholder(const QString &value)
{
    return value.isEmpty() ? QStringLiteral("?") : value;
}

} // namespace

QString Diagnostics::text() const
{
    const QString face =
        customFaceMoods == 0 ? QStringLiteral("no") : QStringLiteral("yes, %1 mood(s)").arg(customFaceMoods);
    return QStringList{
        QStringLiteral("---- please keep this, it is what makes the report actionable ----"),
        QStringLiteral("VAXO Island : ") + appVersion,
        QStringLiteral("Linux       : ") + system,
        QStringLiteral("Machine     : ") + machine + QStringLiteral(" (") + architecture + QLatin1Char(')'),
        QStringLiteral("Accessibility: ") + (accessibility
                                                 ? QStringLiteral("granted")
                                                 : QStringLiteral("NOT granted \u2014 media buttons cannot work")),
        QStringLiteral("Custom face : ") + face,
    }
        .join(QLatin1Char('\n'));
}

QString Diagnostics::versionText(const QString &version, const QString &build)
{
    return orPlaceholder(version) + QStringLiteral(" (build ") + orPlaceholder(build) + QLatin1Char(')');
}

} // namespace vaxo
