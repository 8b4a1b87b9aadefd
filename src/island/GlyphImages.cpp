#include "island/GlyphImages.h"

#include <QColor>
#include <QHash>
#include <QPainter>
#include <QSvgRenderer>

namespace vaxo {
namespace {

// Drawn for this program, in a 24 by 24 box. Line icons are meant to be stroked about 1.8 wide.
const QHash<QString, QString> &outlines()
{
    static const QHash<QString, QString> table{
        // Filled
        {"disc", "M12 2a10 10 0 1 0 0.01 0z"},
        {"play", "M8 5.5v13a1 1 0 0 0 1.5 0.86l10.5-6.5a1 1 0 0 0 0-1.72l-10.5-6.5A1 1 0 0 0 8 5.5z"},
        {"pause", "M7 5h3.2v14H7zM13.8 5H17v14h-3.2z"},
        {"next", "M5 6.2v11.6a0.8 0.8 0 0 0 1.2 0.7l8.6-5.8a0.8 0.8 0 0 0 0-1.4L6.2 5.5A0.8 0.8 0 0 0 5 6.2z"
                 "M16.5 5.5h2.5v13h-2.5z"},
        {"previous", "M19 6.2v11.6a0.8 0.8 0 0 1-1.2 0.7l-8.6-5.8a0.8 0.8 0 0 1 0-1.4l8.6-5.8A0.8 0.8 0 0 1 19 6.2z"
                     "M7.5 5.5H5v13h2.5z"},
        // Lines
        {"arc", "M12 3a9 9 0 1 1-9 9"},
        {"note", "M9 17.5V6.2l10-2.2v11.3M9 17.5a2.5 2.5 0 1 1-5 0a2.5 2.5 0 1 1 5 0z"
                 "M19 15.3a2.5 2.5 0 1 1-5 0a2.5 2.5 0 1 1 5 0z"},
        {"exclamation", "M12 6.8v6.4M12 16.9v0.3"},
        {"check", "M7.3 12.4l3.1 3.1l6.3-6.6"},
        {"sliders", "M4 7.5h9M18 7.5h2M4 16.5h3M12 16.5h8M15.5 5.5a2 2 0 1 1 0 4a2 2 0 1 1 0-4z"
                    "M9.5 14.5a2 2 0 1 1 0 4a2 2 0 1 1 0-4z"},
        {"back", "M14.5 5.5L8 12l6.5 6.5"},
        {"forward", "M9.5 5.5L16 12l-6.5 6.5"},
        {"pin", "M9.5 3.5h5M10.5 3.5v5.2l-3.5 3.8h10l-3.5-3.8V3.5M12 12.5v7"},
        {"prompt", "M5 7l4.5 4.5L5 16M12 17h7"},
        {"clipboard", "M9 4.5h6v3H9zM8 5.5H6.5v15h11v-15H16"},
        {"text", "M5 7h14M5 12h14M5 17h9"},
        {"link", "M10 14a4 4 0 0 1 0-5.66l2.2-2.2a4 4 0 0 1 5.66 5.66l-1.1 1.1"
                 "M14 10a4 4 0 0 1 0 5.66l-2.2 2.2a4 4 0 0 1-5.66-5.66l1.1-1.1"},
        {"code", "M9 7l-5 5l5 5M15 7l5 5l-5 5"},
        {"drop", "M12 3.5s6 6.6 6 10.5a6 6 0 0 1-12 0c0-3.9 6-10.5 6-10.5z"},
        {"image", "M4.5 5.5h15v13h-15zM4.5 15.5l4.5-4.5l4.5 4.5l2.5-2.5l3.5 3.5M15 8.5a1 1 0 1 1 0 2a1 1 0 1 1 0-2z"},
        {"file", "M7 3.5h7l4.5 4.5v12.5H7zM14 3.5V8h4.5"},
        {"lock", "M6.5 11h11v9h-11zM9 11V8a3 3 0 0 1 6 0v3"},
        {"z", "M7 7h10L7 17h10"},
    };
    return table;
}

} // namespace

GlyphImages::GlyphImages() : QQuickImageProvider(QQuickImageProvider::Image) {}

QString GlyphImages::path(const QString &name)
{
    return outlines().value(name);
}

QImage GlyphImages::requestImage(const QString &id, QSize *size, const QSize &requestedSize)
{
    const QStringList parts = id.split(QLatin1Char('/'));
    const QString outline = path(parts.value(0));
    const QColor color = QColor::fromString(QLatin1Char('#') + parts.value(1));
    const double stroke = parts.value(2).toDouble();
    const QSize target = requestedSize.isValid() && !requestedSize.isEmpty() ? requestedSize : QSize(24, 24);
    QImage image(target, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    if (!outline.isEmpty()) {
        const QString paint = QStringLiteral("rgb(%1,%2,%3)").arg(color.red()).arg(color.green()).arg(color.blue());
        const QString svg =
            QStringLiteral("<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 24 24'><path d='%1' fill='%2' "
                           "fill-opacity='%3' stroke='%4' stroke-opacity='%3' stroke-width='%5' "
                           "stroke-linecap='round' stroke-linejoin='round'/></svg>")
                .arg(outline, stroke > 0 ? QStringLiteral("none") : paint, QString::number(color.alphaF()),
                     stroke > 0 ? paint : QStringLiteral("none"), QString::number(stroke));
        QSvgRenderer renderer(svg.toUtf8());
        QPainter painter(&image);
        renderer.render(&painter);
    }
    if (size)
        *size = image.size();
    return image;
}

} // namespace vaxo
