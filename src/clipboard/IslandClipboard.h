#pragma once

#include "base/Feeder.h"
#include "clipboard/ClipImageStore.h"
#include "clipboard/ClipItem.h"
#include "clipboard/ClipStore.h"

#include <QList>
#include <QObject>
#include <QThreadPool>
Q_MOC_INCLUDE("clipboard/ClipListModel.h")

namespace vaxo {

struct AppPaths;
class ClipListModel;
class Clock;
class FrontmostApp;
class IslandScheduler;
class IslandSettings;
class Pasteboard;

// The clipboard history: polls the pasteboard through the scheduler's "island.clipboard" job, turns
// each new copy into a clip (text scanned for secrets on its own serial queue), keeps up to 50
// unpinned clips plus every pinned one, saves them without images and secrets, and puts a chosen
// clip back on the pasteboard. The setting "vaxoIslandClipboard" switches it on and off at once; the
// history stays. It is the island's last feeder. Everything but the scan runs on the main thread.
class IslandClipboard : public QObject, public Feeder {
    Q_OBJECT
    Q_PROPERTY(vaxo::ClipListModel *clips READ model CONSTANT)
    Q_PROPERTY(bool running READ running NOTIFY runningChanged)
public:
    static constexpr qsizetype kMaxTextBytes = 262144; // the largest text captured, in UTF-8 bytes
    static constexpr int kThumbnailSize = 120;
    static constexpr double kActiveInterval = 0.7;
    static constexpr double kIdleInterval = 3.0;
    static const QString kJobName; // "island.clipboard"

    // Loads the saved history at once (see load()). The references must outlive the clipboard.
    IslandClipboard(Pasteboard &pasteboard, const FrontmostApp &frontmost, IslandScheduler &scheduler,
                    IslandSettings &settings, const AppPaths &paths, Clock &clock, QObject *parent = nullptr);
    ~IslandClipboard() override;

    const QList<ClipItem> &clips() const { return m_items; }
    ClipListModel *model() const { return m_model; }
    const ClipImageStore &images() const { return m_images; }
    const ClipStore &store() const { return m_store; }
    bool running() const { return m_running; }

    // Begins monitoring (once): what is on the clipboard now is not captured.
    void start() override;
    // Stops monitoring: the job is unregistered; start() may begin again.
    void stop() override;
    // One look at the pasteboard; the scheduler's job calls it.
    void poll();
    // Waits for the scans under way and records their clips now, instead of on a later turn of the
    // event loop.
    void settle();

    // Puts the clip back on the pasteboard (the full text, also of a secret) without capturing it
    // again, and moves it to the front. Unknown ids do nothing.
    Q_INVOKABLE void copyBack(const QString &id);
    Q_INVOKABLE void togglePin(const QString &id);
    // Removes every unpinned clip.
    Q_INVOKABLE void clearAll();

signals:
    void itemsChanged();
    void runningChanged();

private:
    struct Captured;
    // While running, switching the history off unregisters the job and switching it on registers it
    // again; nothing copied while it was off is captured.
    void followSetting();
    void load();
    void save() const;
    void publish();
    std::optional<Captured> capture();
    void record(const ClipItem &item);
    void scheduleJob();

    Pasteboard &m_pasteboard;
    const FrontmostApp &m_frontmost;
    IslandScheduler &m_scheduler;
    IslandSettings &m_settings;
    Clock &m_clock;
    ClipStore m_store;
    ClipImageStore m_images;
    QList<ClipItem> m_items;
    ClipListModel *m_model;
    qint64 m_lastChangeCount = -1;
    qint64 m_selfWriteCount = -1;
    bool m_running = false;
    QThreadPool m_scanQueue; // one thread: scans run one after another, in order of capture
};

} // namespace vaxo
