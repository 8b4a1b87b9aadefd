#include "clipboard/ClipImageStore.h"

namespace vaxo {

std::optional<PasteboardImage> ClipImageStore::image(const QString &id) const
{
    const auto it = m_images.constFind(id);
    return it == m_images.cend() ? std::nullopt : std::optional<PasteboardImage>(*it);
}

void ClipImageStore::keepOnly(const QSet<QString> &ids)
{
    m_images.removeIf([&](const auto &entry) { return !ids.contains(entry.key()); });
}

} // namespace vaxo
