#include "island/BrandImages.h"

#include "agents/AgentBrand.h"

#include <QColor>
#include <QHash>
#include <QIcon>
#include <QPainter>
#include <QSvgRenderer>
#include <QUrl>

namespace vaxo {
namespace {

// Drawn for this program in a 24 by 24 box; "%1" takes the colour. Lines are stroked 2 wide.
const QHash<QString, QString> &symbols()
{
    static const QHash<QString, QString> table{
        {"sparkle", "<path fill='%1' d='M12 2.5C12.7 7.6 16.4 11.3 21.5 12C16.4 12.7 12.7 16.4 12 21.5C11.3 16.4 "
                    "7.6 12.7 2.5 12C7.6 11.3 11.3 7.6 12 2.5z'/>"},
        {"chevron.left.forwardslash.chevron.right",
         "<path fill='none' stroke='%1' stroke-width='2' stroke-linecap='round' stroke-linejoin='round' "
         "d='M7.5 7.5L3 12l4.5 4.5M16.5 7.5L21 12l-4.5 4.5M13.6 5.5l-3.2 13'/>"},
        {"arrow.up.circle.fill", "<path fill='%1' fill-rule='evenodd' d='M12 2a10 10 0 1 0 0.01 0zM12 6.2l5 5l-1.5 "
                                 "1.5l-2.45-2.45V17.5h-2.1V10.25L8.5 12.7L7 11.2z'/>"},
        {"cursorarrow.rays",
         "<path fill='%1' stroke='%1' stroke-width='1.2' stroke-linejoin='round' d='M10 10l10 3.9l-4.3 1.5l-1.5 "
         "4.3z'/><path fill='none' stroke='%1' stroke-width='1.8' stroke-linecap='round' d='M10 3.2v2.6M3.2 "
         "10h2.6M5.2 5.2l1.8 1.8M14.8 5.2l-1.8 1.8M5.2 14.8l1.8-1.8'/>"},
        {"terminal.fill", "<path fill='%1' fill-rule='evenodd' d='M5.5 3.5h13a3 3 0 0 1 3 3v11a3 3 0 0 1-3 3h-13a3 "
                          "3 0 0 1-3-3v-11a3 3 0 0 1 3-3zM6.4 8.9l2.9 2.9l-2.9 2.9l1.3 1.3l4.2-4.2l-4.2-4.2zM12.8 "
                          "15.1v1.8h5v-1.8z'/>"},
    };
    return table;
}

QImage blank(const QSize &size)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

} // namespace

BrandImages::BrandImages(const InstalledApps &apps) : QQuickImageProvider(QQuickImageProvider::Image), m_apps(apps) {}

QString BrandImages::symbolSvg(const QString &symbol, const QString &color)
{
    const QString body = symbols().value(symbol);
    if (body.isEmpty())
        return {};
    return QStringLiteral("<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 24 24'>") + body.arg(color) +
           QStringLiteral("</svg>");
}

QImage BrandImages::requestImage(const QString &id, QSize *size, const QSize &requestedSize)
{
    const QString agent = QUrl::fromPercentEncoding(id.toUtf8());
    const QSize target = requestedSize.isValid() && !requestedSize.isEmpty() ? requestedSize : QSize(24, 24);
    QImage image = blank(target);
    const auto appIcon = AgentBrand::appIcon(agent, m_apps);
    const QIcon icon = !appIcon                                ? QIcon()
                       : appIcon->startsWith(QLatin1Char('/')) ? QIcon(*appIcon)
                                                               : QIcon::fromTheme(*appIcon);
    if (!icon.isNull()) {
        image = icon.pixmap(target).toImage().scaled(target, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    } else {
        const AgentBrand::Tint tint = AgentBrand::tint(agent);
        QSvgRenderer renderer(symbolSvg(AgentBrand::symbol(agent),
                                        QColor::fromRgbF(float(tint.red), float(tint.green), float(tint.blue)).name())
                                  .toUtf8());
        QPainter painter(&image);
        painter.setOpacity(tint.opacity);
        renderer.render(&painter);
    }
    if (size)
        *size = image.size();
    return image;
}

} // namespace vaxo
