#pragma once

#include "platform/ArtDecoder.h"

namespace vaxo::linux_platform {

// Still images through Qt's image readers (SVG, PNG, JPEG and TIFF here; PDF and HEIC only where a
// reader for them is installed), video frames through Qt Multimedia. A video that gives no frame within
// kGiveUpMs is given up on.
class QtArtDecoder final : public ArtDecoder {
public:
    static constexpr int kGiveUpMs = 10'000;

    bool isImage(const QString &path) override;
    QList<QByteArray> videoFrames(const QString &path, int maxFrames, int maxEdge, double fps) override;
};

} // namespace vaxo::linux_platform
