#include "clipboard/ClipKind.h"

#include <array>

namespace vaxo {
namespace {
const std::array<QString, 6> kRaw{QStringLiteral("text"),  QStringLiteral("link"),  QStringLiteral("code"),
                                  QStringLiteral("color"), QStringLiteral("image"), QStringLiteral("file")};
}

QString rawValue(ClipKind kind)
{
    return kRaw[size_t(kind)];
}

std::optional<ClipKind> clipKindFromRaw(const QString &raw)
{
    for (size_t i = 0; i < kRaw.size(); ++i) {
        if (kRaw[i] == raw)
            return ClipKind(i);
    }
    return std::nullopt;
}

} // namespace vaxo
