#include "face/FaceAssets.h"

#include "base/Clock.h"
#include "base/Timer.h"
#include "platform/ArtDecoder.h"
#include "platform/FolderWatcher.h"

#include <QDir>
#include <QFile>
#include <QMap>
#include <QThread>

#include <algorithm>

namespace vaxo {

// One folder's artwork: numbered still frames and the video of each mood, in listing order.
struct FaceAssets::Listing {
    QMap<QString, QList<std::pair<qint64, QUrl>>> stills;
    QMap<QString, QUrl> videos;
};

FaceAssets::FaceAssets(Folders folders, Clock &clock, FolderWatcher *watcher, ArtDecoder &decoder, QObject *parent)
    : QObject(parent), m_folders(std::move(folders)), m_decoder(decoder), m_watcher(watcher),
      m_reload(clock.createTimer(this)), m_decodeThread(new QThread(this)), m_decodeContext(new QObject)
{
    m_watcher->setParent(this);
    connect(m_watcher, &FolderWatcher::changed, this, &FaceAssets::scheduleReload);
    connect(m_reload, &Timer::timeout, this, &FaceAssets::load);
    m_decodeThread->setObjectName(QStringLiteral("ai.vaxo.island.face-decode"));
    m_decodeContext->moveToThread(m_decodeThread);
    connect(m_decodeThread, &QThread::finished, m_decodeContext, &QObject::deleteLater);
    m_decodeThread->start(QThread::LowPriority);
}

FaceAssets::~FaceAssets()
{
    // A decode in progress finishes first; posters it would hand back are dropped with this object.
    m_decodeThread->quit();
    m_decodeThread->wait();
}

std::optional<FaceAssets::Clip> FaceAssets::clip(const QString &mood) const
{
    for (const QString &name : fallbackChain(mood)) {
        if (const auto found = m_clips.constFind(name); found != m_clips.constEnd())
            return *found;
    }
    return std::nullopt;
}

FaceAssets::Listing FaceAssets::list(const QString &folder, bool readControls)
{
    Listing listing;
    const QDir dir(folder);
    // Names beginning with "." are hidden, and left out.
    for (const QString &entry : dir.entryList(QDir::Files, QDir::Name)) {
        const QString path = dir.filePath(entry);
        const QString lowered = entry.toLower();
        if (readControls && (lowered == QLatin1String("fps") || lowered == QLatin1String("loop"))) {
            QFile file(path);
            if (!file.open(QIODevice::ReadOnly))
                continue;
            const QString text = QString::fromUtf8(file.readAll()).trimmed();
            bool ok = false;
            const double fps = text.toDouble(&ok);
            if (lowered == QLatin1String("fps") && ok && fps > 0)
                m_fps = std::min(fps, kMaxFps);
            if (lowered == QLatin1String("loop"))
                m_pingPong = text.toLower().contains(QLatin1String("ping"));
            continue;
        }
        const qsizetype dot = entry.lastIndexOf(QLatin1Char('.'));
        const QString extension = dot < 0 ? QString() : lowered.mid(dot + 1);
        const auto parsed = parse(dot < 0 ? entry : entry.left(dot));
        if (!parsed)
            continue;
        const QUrl url = QUrl::fromLocalFile(path);
        if (videoTypes().contains(extension))
            listing.videos.insert(parsed->first, url);
        else if (stillTypes().contains(extension) && m_decoder.isImage(path))
            listing.stills[parsed->first].append({parsed->second, url});
    }
    return listing;
}

void FaceAssets::load()
{
    ++m_loads;
    m_fps = kDefaultFps;
    m_pingPong = false;
    m_clips.clear();
    m_userMoods.clear();
    const Listing user = list(m_folders.user, true);
    const Listing bundled = list(m_folders.bundled, false);
    const auto addStills = [this](const Listing &listing, const QSet<QString> &skip) {
        for (auto it = listing.stills.cbegin(); it != listing.stills.cend(); ++it) {
            if (skip.contains(it.key()))
                continue;
            auto pairs = it.value();
            std::stable_sort(pairs.begin(), pairs.end(),
                             [](const auto &a, const auto &b) { return a.first < b.first; });
            Clip clip;
            clip.pingPong = m_pingPong;
            for (const auto &pair : std::as_const(pairs))
                clip.frames << pair.second;
            m_clips.insert(it.key(), clip);
        }
    };
    addStills(user, {});
    for (const QString &mood : user.stills.keys() + user.videos.keys())
        m_userMoods.insert(mood);
    for (auto it = user.videos.cbegin(); it != user.videos.cend(); ++it)
        preparePoster(it.value(), it.key(), true);
    // A user file for a mood hides every built-in file of that mood.
    addStills(bundled, m_userMoods);
    for (auto it = bundled.videos.cbegin(); it != bundled.videos.cend(); ++it) {
        if (!m_userMoods.contains(it.key()))
            preparePoster(it.value(), it.key(), false);
    }
    bump();
}

void FaceAssets::watch()
{
    QDir().mkpath(m_folders.user);
    m_watcher->watch(m_folders.user); // a folder that cannot be watched stays as it is
}

void FaceAssets::scheduleReload()
{
    m_reload->start(kReloadDelay);
}

void FaceAssets::bump()
{
    ++m_generation;
    emit generationChanged();
}

} // namespace vaxo
