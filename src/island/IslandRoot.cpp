#include "island/IslandRoot.h"

#include "clipboard/IslandClipboard.h"
#include "island/BrandImages.h"
#include "island/CardLabels.h"
#include "island/CardMeasures.h"
#include "island/GlyphImages.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QPainter>
#include <QPainterPath>
#include <QQmlEngine>
#include <QQuickImageProvider>
#include <QUrl>

namespace vaxo {
namespace {

// Thumbnails of image clips, "image://clips/<clip id>".
class ClipThumbnails final : public QQuickImageProvider {
public:
    explicit ClipThumbnails(const IslandClipboard &clipboard)
        : QQuickImageProvider(QQuickImageProvider::Image), m_clipboard(clipboard)
    {
    }
    QImage requestImage(const QString &id, QSize *size, const QSize &) override
    {
        const auto image = m_clipboard.images().image(id);
        QImage decoded = image ? QImage::fromData(image->thumbnailPng) : QImage();
        if (size)
            *size = decoded.size();
        return decoded;
    }

private:
    const IslandClipboard &m_clipboard;
};

// Backdrop images from the "Backgrounds" folder, "image://backdrop/<blur factor>/<file name>", blurred
// by shrinking them and letting the view draw them large again.
class Backdrops final : public QQuickImageProvider {
public:
    explicit Backdrops(QString folder) : QQuickImageProvider(QQuickImageProvider::Image), m_folder(std::move(folder)) {}
    QImage requestImage(const QString &id, QSize *size, const QSize &requested) override
    {
        const qsizetype slash = id.indexOf(QLatin1Char('/'));
        const int factor = std::max(1, id.left(slash).toInt());
        const QString name = QUrl::fromPercentEncoding(id.mid(slash + 1).toUtf8());
        QImage image(QDir(m_folder).filePath(QFileInfo(name).fileName()));
        if (!image.isNull() && requested.isValid())
            image = image.scaled(requested, Qt::KeepAspectRatioByExpanding, Qt::SmoothTransformation);
        if (!image.isNull() && factor > 1)
            image = image.scaled(image.size() / factor, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        if (size)
            *size = image.size();
        return image;
    }

private:
    QString m_folder;
};

// Artwork from local files with rounded corners, "image://artwork/<radius in %>/<file URL, encoded>",
// so that it looks the same on any background.
class RoundedArtwork final : public QQuickImageProvider {
public:
    RoundedArtwork() : QQuickImageProvider(QQuickImageProvider::Image) {}
    QImage requestImage(const QString &id, QSize *size, const QSize &requested) override
    {
        const qsizetype slash = id.indexOf(QLatin1Char('/'));
        const double radius = id.left(slash).toDouble() / 100.0;
        const QUrl url(QUrl::fromPercentEncoding(id.mid(slash + 1).toUtf8()));
        QImage source(url.isLocalFile() ? url.toLocalFile() : QString());
        QImage rounded;
        if (!source.isNull()) {
            const QSize target = requested.isValid() && !requested.isEmpty() ? requested : source.size();
            source = source.scaled(target, Qt::KeepAspectRatioByExpanding, Qt::SmoothTransformation);
            rounded = QImage(target, QImage::Format_ARGB32_Premultiplied);
            rounded.fill(Qt::transparent);
            QPainter painter(&rounded);
            painter.setRenderHint(QPainter::Antialiasing);
            QPainterPath clip;
            clip.addRoundedRect(QRectF(QPointF(), QSizeF(target)), radius * target.width(), radius * target.height());
            painter.setClipPath(clip);
            painter.drawImage((target.width() - source.width()) / 2, (target.height() - source.height()) / 2, source);
        }
        if (size)
            *size = rounded.size();
        return rounded;
    }
};

} // namespace

IslandRoot::IslandRoot(const Parts &parts, IslandController *controller, QObject *parent)
    : QObject(parent), m_parts(parts), m_controller(controller), m_measures(new CardMeasures(this)),
      m_labels(new CardLabels(this))
{
}

void IslandRoot::installImageProviders(QQmlEngine &engine) const
{
    engine.addImageProvider(QStringLiteral("clips"), new ClipThumbnails(*m_parts.clipboard));
    engine.addImageProvider(QStringLiteral("glyph"), new GlyphImages);
    engine.addImageProvider(QStringLiteral("artwork"), new RoundedArtwork);
    engine.addImageProvider(QStringLiteral("backdrop"), new Backdrops(m_parts.backgrounds));
    engine.addImageProvider(QStringLiteral("brand"), new BrandImages(*m_parts.apps));
}

void IslandRoot::quit()
{
    QCoreApplication::quit();
}

} // namespace vaxo
