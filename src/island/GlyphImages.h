#pragma once

#include <QQuickImageProvider>

namespace vaxo {

// Our icons as images, "image://glyph/<name>/<colour>/<stroke>": the outline of the named icon in a
// 24 by 24 box, filled (stroke 0) or stroked that wide, in the colour given as hex digits (rrggbb or
// aarrggbb), drawn at the size asked for, so that each is crisp at any scale. An unknown name draws
// nothing.
class GlyphImages final : public QQuickImageProvider {
public:
    GlyphImages();

    QImage requestImage(const QString &id, QSize *size, const QSize &requestedSize) override;

    // The outline of a named icon in SVG path data, empty when there is no such icon.
    static QString path(const QString &name);
};

} // namespace vaxo
