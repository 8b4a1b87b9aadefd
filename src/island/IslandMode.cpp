#include "island/IslandMode.h"

namespace vaxo {

QString IslandMode::kindName() const
{
    switch (kind) {
    case Kind::Agents: return QStringLiteral("agents");
    case Kind::Finished: return QStringLiteral("finished");
    case Kind::Idle: break;
    }
    return QStringLiteral("idle");
}

} // namespace vaxo
