#pragma once

#include "media/Artwork.h"

#include <QHash>
#include <QString>

namespace vaxo {

// Cover art by URL. Only local files are read: any other scheme, https included, gives no artwork,
// so that showing a cover never reaches the network. Holds at most kCapacity entries and is emptied
// whole when full rather than evicting one by one. One thread at a time.
class ArtworkCache {
public:
    static constexpr int kCapacity = 13;

    // The artwork of a file URL, the same object for the same URL while it is cached; null when the
    // URL is not a file URL or the file is not an image.
    ArtworkRef image(const QString &url);

    int size() const { return int(m_images.size()); }

    // What an image file's first bytes say it is ("png", ...); empty when it is none we know.
    static QByteArray imageFormat(const QByteArray &head);

private:
    QHash<QString, ArtworkRef> m_images;
};

} // namespace vaxo
