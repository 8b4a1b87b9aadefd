#pragma once

#include "platform/Pasteboard.h"

#include <QHash>
#include <QSet>
#include <QString>

#include <optional>

namespace vaxo {

// The thumbnails of image clips, by clip id. In memory only: image clips do not outlive the process.
class ClipImageStore {
public:
    void insert(const QString &id, const PasteboardImage &image) { m_images.insert(id, image); }
    std::optional<PasteboardImage> image(const QString &id) const;
    // Drops every thumbnail whose clip is no longer in the history.
    void keepOnly(const QSet<QString> &ids);
    qsizetype size() const { return m_images.size(); }

private:
    QHash<QString, PasteboardImage> m_images;
};

} // namespace vaxo
