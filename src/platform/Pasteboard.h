#pragma once

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QSize>
#include <QStringList>
#include <QUrl>

#include <optional>

namespace vaxo {

// An image on the pasteboard: its size in pixels and a PNG thumbnail that fits the requested box.
struct PasteboardImage {
    QSize size;
    QByteArray thumbnailPng;
};

// The system's general clipboard as the history sees it: a change counter to poll, the current
// content's types, and readers and writers for text, file URLs and images. Main thread only.
// Reading never fails: content that is missing or cannot be read comes back empty.
class Pasteboard : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    // Grows by at least one for every new content, including this program's own writes.
    virtual qint64 changeCount() const = 0;
    // Type names of the current content (MIME types, or the owner's own names for private types).
    virtual QStringList types() const = 0;
    // The file URLs of a copied file list; other URLs are left out.
    virtual QList<QUrl> fileUrls() const = 0;
    // Plain text, absent when the content has none.
    virtual std::optional<QString> text() const = 0;
    // The image on the clipboard, its thumbnail scaled to fit within fit x fit pixels (never
    // enlarged); absent when there is no image or it does not decode.
    virtual std::optional<PasteboardImage> image(int fit) const = 0;

    // Replace the content; each write counts as a change.
    virtual void writeText(const QString &text) = 0;
    // Offers the PNG as an image; a PNG that does not decode leaves the clipboard as it was.
    virtual void writeImage(const QByteArray &png) = 0;
};

} // namespace vaxo
