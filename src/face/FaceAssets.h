#pragma once

#include <QHash>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QSet>
#include <QStringList>
#include <QUrl>

#include <optional>
#include <utility>

class QThread;

namespace vaxo {

class ArtDecoder;
class Clock;
class FolderWatcher;
class Timer;

// What artwork each mood has: stills or a video from the user's "Face" folder and, for every mood the
// user left alone, from the built-in folder. A mood without artwork borrows along its fallback chain;
// at the end of the chain the views draw the built-in face. The user folder is watched, so that a file
// dropped in it shows within a quarter of a second. Main thread; video posters are decoded on a
// thread of their own, one at a time.
class FaceAssets : public QObject {
    Q_OBJECT
    Q_PROPERTY(int generation READ generation NOTIFY generationChanged)
public:
    // The artwork of one mood. Frames are image files: a still clip's own, or a video's poster in the
    // frame cache.
    struct Clip {
        QList<QUrl> frames;
        bool pingPong = false; // cycle forwards then backwards instead of wrapping
        std::optional<QUrl> video;
        bool loops = true; // false only for the "sleeping" mood's video
        bool operator==(const Clip &) const = default;
    };
    struct Folders {
        QString user;       // "<support>/Face", created when the watch starts
        QString bundled;    // the built-in artwork; may be missing
        QString frameCache; // "<cache>/face-frames"
    };

    static constexpr double kReloadDelay = 0.25;
    static constexpr double kDefaultFps = 12;
    static constexpr double kMaxFps = 60;

    // "sleeping", "resting", "working", "busy", "swamped", "waiting", "pleased".
    static const QStringList &moods();
    // The mood itself, then the moods whose artwork it borrows, in order ("swamped", "busy",
    // "working", "resting"). An unknown name gives itself alone.
    static QStringList fallbackChain(const QString &mood);
    // The mood and frame number a file's base name stands for: "Working_03" is frame 3 of "working".
    static std::optional<std::pair<QString, qint64>> parse(const QString &name);
    static const QStringList &stillTypes();
    static const QStringList &videoTypes();
    // The name under which frame cache entries of a video version are kept.
    static QString frameKey(const QString &path, int maxFrames, int maxEdge);

    // Takes ownership of watcher.
    FaceAssets(Folders folders, Clock &clock, FolderWatcher *watcher, ArtDecoder &decoder, QObject *parent = nullptr);
    ~FaceAssets() override;

    // The artwork that shows mood: its own or the first in its chain; none means the drawn face.
    std::optional<Clip> clip(const QString &mood) const;
    const QHash<QString, Clip> &clips() const { return m_clips; }
    const QSet<QString> &userMoods() const { return m_userMoods; }
    double fps() const { return m_fps; }
    int generation() const { return m_generation; }

    // Rebuilds the clips from both folders; videos follow once their posters are decoded.
    void load();
    // Watches the user folder (creating it) and reloads after each burst of changes.
    void watch();
    void scheduleReload();
    // Decodes the video's poster on the decode thread, then installs its clip unless the mood has a
    // still clip or a newer load happened meanwhile.
    void preparePoster(const QUrl &url, const QString &mood, bool isUser);
    // Up to maxFrames frames of the video (the i-th at i / fps seconds), at most maxEdge pixels on the
    // longer side, as files in the frame cache: decoded once per file version. Blocks.
    QList<QUrl> frames(const QUrl &url, int maxFrames, int maxEdge, double fps) const;

signals:
    void generationChanged();

private:
    struct Listing; // one folder's stills and videos by mood
    Listing list(const QString &folder, bool readControls);
    void installPoster(const QUrl &url, const QString &mood, bool isUser, const QList<QUrl> &frames, int load);
    void bump();

    const Folders m_folders;
    ArtDecoder &m_decoder;
    QPointer<FolderWatcher> m_watcher;
    Timer *m_reload;
    QThread *m_decodeThread;
    QObject *m_decodeContext;
    QHash<QString, Clip> m_clips;
    QSet<QString> m_userMoods;
    double m_fps = kDefaultFps;
    bool m_pingPong = false;
    int m_generation = 0;
    int m_loads = 0;
};

} // namespace vaxo
