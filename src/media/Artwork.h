#pragma once

#include <QByteArray>
#include <QUrl>

#include <memory>

namespace vaxo {

// Cover art found in a local image file. Records share one object per file: two records show the same
// artwork exactly when they hold the same object, so comparing them never touches the image.
struct Artwork {
    QUrl url;          // the file, as the views load it
    QByteArray format; // what its first bytes say it is: "png", "jpeg", "gif", "webp" or "bmp"
};

using ArtworkRef = std::shared_ptr<const Artwork>;

} // namespace vaxo
