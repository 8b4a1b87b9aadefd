#include "base/Tier.h"

namespace vaxo {

QString tierName(Tier tier)
{
    switch (tier) {
    case Tier::Active:
        return QStringLiteral("active");
    case Tier::Idle:
        return QStringLiteral("idle");
    case Tier::Away:
        return QStringLiteral("away");
    }
    return {};
}

std::optional<Tier> parseTier(const QString &text)
{
    for (Tier tier : {Tier::Active, Tier::Idle, Tier::Away}) {
        if (text == tierName(tier))
            return tier;
    }
    return std::nullopt;
}

} // namespace vaxo
