// FaceAssets: video posters, decoded on the decode thread through the on-disk frame cache.
#include "face/FaceAssets.h"

#include "platform/ArtDecoder.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

namespace vaxo {

QList<QUrl> FaceAssets::frames(const QUrl &url, int maxFrames, int maxEdge, double fps) const
{
    const QString path = url.toLocalFile();
    if (!QFileInfo(path).isFile())
        return {};
    const QString key = frameKey(path, maxFrames, maxEdge);
    const QDir cache(m_folders.frameCache);
    const auto saved = [&](int i) {
        return cache.filePath(QStringLiteral("%1-%2.png").arg(key).arg(i, 3, 10, QLatin1Char('0')));
    };

    QList<QUrl> found;
    for (int i = 0; i < maxFrames && QFileInfo::exists(saved(i)); ++i)
        found << QUrl::fromLocalFile(saved(i));
    if (!found.isEmpty())
        return found;

    const QList<QByteArray> decoded = m_decoder.videoFrames(path, maxFrames, maxEdge, fps);
    if (decoded.isEmpty() || !QDir().mkpath(m_folders.frameCache))
        return {};
    for (int i = 0; i < decoded.size(); ++i) {
        // Whole files only: a frame is either in the cache or not.
        QSaveFile file(saved(i));
        if (!file.open(QIODevice::WriteOnly) || file.write(decoded.at(i)) != decoded.at(i).size() || !file.commit())
            return found;
        found << QUrl::fromLocalFile(saved(i));
    }
    return found;
}

void FaceAssets::preparePoster(const QUrl &url, const QString &mood, bool isUser)
{
    const int load = m_loads;
    QMetaObject::invokeMethod(m_decodeContext, [this, url, mood, isUser, load] {
        const QList<QUrl> poster = frames(url, 1, 512, 1);
        QMetaObject::invokeMethod(this, [=, this] { installPoster(url, mood, isUser, poster, load); });
    });
}

void FaceAssets::installPoster(const QUrl &url, const QString &mood, bool isUser, const QList<QUrl> &frames, int load)
{
    // A still clip beats a video of the same mood; a poster of an earlier load may show a file that is gone.
    if (frames.isEmpty() || load != m_loads || m_clips.contains(mood))
        return;
    m_clips.insert(mood, Clip{frames, false, url, mood != QLatin1String("sleeping")});
    if (isUser)
        m_userMoods.insert(mood);
    bump();
}

} // namespace vaxo
