#include "platform/linux/QtPasteboard.h"

#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>

namespace vaxo::linux_platform {

QtPasteboard::QtPasteboard(QObject *parent) : Pasteboard(parent), m_clipboard(QGuiApplication::clipboard())
{
    connect(m_clipboard, &QClipboard::dataChanged, this, [this] {
        // Our own writes are counted where they are made; Qt may report them again later.
        if (!m_clipboard->ownsClipboard())
            ++m_changeCount;
    });
}

const QMimeData *QtPasteboard::content() const
{
    return m_clipboard ? m_clipboard->mimeData(QClipboard::Clipboard) : nullptr;
}

QStringList QtPasteboard::types() const
{
    const QMimeData *data = content();
    return data ? data->formats() : QStringList();
}

QList<QUrl> QtPasteboard::fileUrls() const
{
    const QMimeData *data = content();
    QList<QUrl> files;
    if (!data || !data->hasUrls())
        return files;
    for (const QUrl &url : data->urls()) {
        if (url.isLocalFile())
            files.append(url);
    }
    return files;
}

std::optional<QString> QtPasteboard::text() const
{
    const QMimeData *data = content();
    if (!data || !data->hasText())
        return std::nullopt;
    return data->text();
}

std::optional<PasteboardImage> QtPasteboard::image(int fit) const
{
    const QMimeData *data = content();
    if (!data || !data->hasImage())
        return std::nullopt;
    const QImage image = qvariant_cast<QImage>(data->imageData());
    if (image.isNull())
        return std::nullopt;
    const QImage thumbnail = image.width() > fit || image.height() > fit
                                 ? image.scaled(fit, fit, Qt::KeepAspectRatio, Qt::SmoothTransformation)
                                 : image;
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    if (!thumbnail.save(&buffer, "PNG"))
        return std::nullopt;
    return PasteboardImage{image.size(), png};
}

void QtPasteboard::writeText(const QString &text)
{
    if (!m_clipboard)
        return;
    m_clipboard->setText(text, QClipboard::Clipboard);
    ++m_changeCount;
}

void QtPasteboard::writeImage(const QByteArray &png)
{
    QImage image;
    if (!m_clipboard || !image.loadFromData(png, "PNG"))
        return;
    m_clipboard->setImage(image, QClipboard::Clipboard);
    ++m_changeCount;
}

} // namespace vaxo::linux_platform
