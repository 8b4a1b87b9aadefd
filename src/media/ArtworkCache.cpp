#include "media/ArtworkCache.h"

#include <QFile>
#include <QUrl>

namespace vaxo {

QByteArray ArtworkCache::imageFormat(const QByteArray &head)
{
    if (head.startsWith("\x89PNG\r\n\x1a\n"))
        return "png";
    if (head.startsWith("\xff\xd8\xff"))
        return "jpeg";
    if (head.startsWith("GIF87a") || head.startsWith("GIF89a"))
        return "gif";
    if (head.startsWith("RIFF") && head.mid(8, 4) == "WEBP")
        return "webp";
    if (head.startsWith("BM") && head.size() >= 14)
        return "bmp";
    return {};
}

ArtworkRef ArtworkCache::image(const QString &url)
{
    const QUrl parsed(url);
    if (!parsed.isValid() || !parsed.isLocalFile())
        return nullptr;
    if (const auto hit = m_images.constFind(url); hit != m_images.constEnd())
        return *hit;

    // Only the signature is read: the views decode the file themselves, by its URL.
    QFile file(parsed.toLocalFile());
    if (!file.open(QIODevice::ReadOnly))
        return nullptr;
    const QByteArray format = imageFormat(file.read(16));
    if (format.isEmpty())
        return nullptr;
    if (m_images.size() >= kCapacity)
        m_images.clear();
    auto artwork = std::make_shared<const Artwork>(Artwork{parsed, format});
    m_images.insert(url, artwork);
    return artwork;
}

} // namespace vaxo
