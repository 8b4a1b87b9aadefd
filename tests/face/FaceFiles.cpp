#include "FaceFiles.h"

#include <QDir>
#include <QFileInfo>
#include <QImageWriter>
#include <QPainter>
#include <QPdfWriter>
#include <QProcess>

namespace vaxo::test {

FaceAssets::Folders FaceFiles::folders() const
{
    return {home.paths().face(), bundled(QString()), home.paths().faceFrames()};
}

void FaceFiles::still(const QString &path, const QColor &color)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    const QByteArray suffix = QFileInfo(path).suffix().toLower().toLatin1();
    if (suffix == "svg") {
        TempHome::write(path, QStringLiteral("<svg xmlns='http://www.w3.org/2000/svg' width='8' height='8'>"
                                             "<rect width='8' height='8' fill='%1'/></svg>")
                                  .arg(color.name())
                                  .toUtf8());
    } else if (suffix == "pdf") {
        QPdfWriter pdf(path);
        QPainter painter(&pdf);
        painter.fillRect(painter.window(), color);
    } else {
        QImage image(8, 8, QImage::Format_ARGB32);
        image.fill(color);
        // Any other name still holds a PNG image.
        image.save(path, QImageWriter::supportedImageFormats().contains(suffix) ? suffix.constData() : "png");
    }
}

bool FaceFiles::video(const QString &path, const char *color, int width, int height, const char *then)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    const auto part = [&](const char *c, const char *seconds) {
        return QStringLiteral("color=c=%1:s=%2x%3:d=%4:r=10").arg(c).arg(width).arg(height).arg(seconds);
    };
    const QString graph =
        then ? QStringLiteral("%1[a];%2[b];[a][b]concat=n=2:v=1").arg(part(color, "0.5"), part(then, "0.5"))
             : part(color, "1");
    QProcess ffmpeg;
    ffmpeg.start(QStringLiteral("ffmpeg"), {"-hide_banner", "-loglevel", "error", "-y", "-filter_complex", graph,
                                            "-c:v", "libx264", "-pix_fmt", "yuv420p", path});
    return ffmpeg.waitForFinished(60'000) && ffmpeg.exitStatus() == QProcess::NormalExit && ffmpeg.exitCode() == 0;
}

bool FaceFiles::isMostly(const QImage &image, const QColor &color)
{
    if (image.isNull())
        return false;
    const QColor middle = image.pixelColor(image.width() / 2, image.height() / 2);
    return std::abs(middle.red() - color.red()) < 40 && std::abs(middle.green() - color.green()) < 40 &&
           std::abs(middle.blue() - color.blue()) < 40;
}

} // namespace vaxo::test
