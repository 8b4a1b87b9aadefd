#include "FaceFiles.h"

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QImageWriter>
#include <QProcess>
#include <QUrl>

namespace vaxo::test {

FaceAssets::Folders FaceFiles::folders() const
{
    return {home.paths().face(), bundled(QString()), home.paths().faceFrames()};
}

void FaceFiles::still(const QString &path, const QColor &color)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QImage image(8, 8, QImage::Format_ARGB32);
    image.fill(color);
    // Any other name still holds a PNG image.
    const QByteArray suffix = QFileInfo(path).suffix().toLower().toLatin1();
    image.save(path, QImageWriter::supportedImageFormats().contains(suffix) ? suffix.constData() : "png");
}

bool FaceFiles::video(const QString &path, const char *color, int width, int height)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QProcess ffmpeg;
    ffmpeg.start(QStringLiteral("ffmpeg"),
                 {"-hide_banner", "-loglevel", "error", "-y", "-f", "lavfi", "-i",
                  QStringLiteral("color=c=%1:s=%2x%3:d=1:r=10").arg(QLatin1String(color)).arg(width).arg(height),
                  "-c:v", "libx264", "-pix_fmt", "yuv420p", path});
    return ffmpeg.waitForFinished(60'000) && ffmpeg.exitStatus() == QProcess::NormalExit && ffmpeg.exitCode() == 0;
}

bool FaceFiles::isMostly(const QUrl &url, const QColor &color)
{
    const QImage image(url.toLocalFile());
    if (image.isNull())
        return false;
    const QColor middle = image.pixelColor(image.width() / 2, image.height() / 2);
    return std::abs(middle.red() - color.red()) < 40 && std::abs(middle.green() - color.green()) < 40 &&
           std::abs(middle.blue() - color.blue()) < 40;
}

} // namespace vaxo::test
