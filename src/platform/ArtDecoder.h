#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace vaxo {

// Reads the files of the character's artwork. Stateless: calls may come from any one thread at a time.
class ArtDecoder {
public:
    virtual ~ArtDecoder() = default;

    // Whether path holds a still image the views can draw. False for unreadable files and for formats
    // this platform cannot draw.
    virtual bool isImage(const QString &path) = 0;

    // Up to maxFrames frames of the video at path, the i-th at i / fps seconds, each scaled to fit
    // maxEdge by maxEdge pixels, as PNG data. Empty when the file cannot be decoded. Blocks until done
    // or given up on.
    virtual QList<QByteArray> videoFrames(const QString &path, int maxFrames, int maxEdge, double fps) = 0;
};

} // namespace vaxo
