#pragma once

#include "face/FaceAssets.h"

#include "TempHome.h"

#include <QColor>
#include <QImage>

namespace vaxo::test {

// The character's folders in a throw-away home, and artwork files to put in them: small stills, and
// real videos made with ffmpeg.
struct FaceFiles {
    TempHome home;

    QString user(const QString &name) const { return home.paths().face() + QLatin1Char('/') + name; }
    QString bundled(const QString &name) const { return home.root() + QStringLiteral("/bundled/") + name; }
    FaceAssets::Folders folders() const;

    // A small image of one colour, in the format its extension names (SVG and PDF too; PNG for names
    // that are no image format).
    static void still(const QString &path, const QColor &color);
    // A one-second H.264 video of one colour (an ffmpeg colour name), width by height, or of two colours
    // half a second each; false when ffmpeg fails.
    static bool video(const QString &path, const char *color, int width, int height, const char *then = nullptr);
    // The middle of image is close to color.
    static bool isMostly(const QImage &image, const QColor &color);
};

} // namespace vaxo::test
