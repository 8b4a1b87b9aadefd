#include "clipboard/IslandClipboard.h"

#include "base/AppPaths.h"
#include "base/Clock.h"
#include "base/IslandScheduler.h"
#include "base/IslandSettings.h"
#include "clipboard/ClipHistory.h"
#include "clipboard/ClipListModel.h"
#include "clipboard/ClipText.h"
#include "clipboard/ClipboardPolicy.h"
#include "platform/FrontmostApp.h"
#include "platform/Pasteboard.h"
#include "secrets/SecretScanner.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QPointer>
#include <QUuid>

namespace vaxo {

const QString IslandClipboard::kJobName = QStringLiteral("island.clipboard");

// A new copy: a finished clip (files, image), or raw text that still has to be scanned.
struct IslandClipboard::Captured {
    ClipItem clip;
    std::optional<QString> text;
};

IslandClipboard::IslandClipboard(Pasteboard &pasteboard, const FrontmostApp &frontmost, IslandScheduler &scheduler,
                                 IslandSettings &settings, const AppPaths &paths, Clock &clock, QObject *parent)
    : QObject(parent), m_pasteboard(pasteboard), m_frontmost(frontmost), m_scheduler(scheduler), m_settings(settings),
      m_clock(clock), m_store(paths.clipboardFile()), m_model(new ClipListModel(this))
{
    connect(&m_settings, &IslandSettings::clipboardChanged, this, &IslandClipboard::followSetting);
    m_scanQueue.setObjectName(QStringLiteral("ai.vaxo.island.clipscan"));
    m_scanQueue.setMaxThreadCount(1);
    load();
}

IslandClipboard::~IslandClipboard()
{
    // A scan still running posts its clip to this object: let it finish first.
    m_scanQueue.clear();
    m_scanQueue.waitForDone();
    if (m_running)
        m_scheduler.unregister(kJobName);
}

void IslandClipboard::followSetting()
{
    if (!m_running)
        return;
    if (m_settings.clipboard()) {
        // What was copied while the history was off stays out of it.
        m_lastChangeCount = m_pasteboard.changeCount();
        scheduleJob();
    } else {
        m_scheduler.unregister(kJobName);
    }
}

// The history as saved, less what may no longer be kept: a clip whose text holds a secret, and, on
// the first load after secret detection arrived, every clip that is not pinned.
void IslandClipboard::load()
{
    const bool scrubbed = m_settings.clipScrubbed();
    m_settings.setClipScrubbed(true);
    const QList<ClipItem> saved = m_store.load().value_or(QList<ClipItem>());
    for (const ClipItem &clip : saved) {
        const bool secret =
            clip.text && SecretScanner::containsSecret(
                             {reinterpret_cast<const char16_t *>(clip.text->utf16()), size_t(clip.text->size())});
        if (!secret && (scrubbed || clip.pinned))
            m_items.append(clip);
    }
    if (m_items.size() != saved.size())
        save();
    m_model->sync(m_items);
    if (!m_items.isEmpty())
        emit itemsChanged();
}

void IslandClipboard::save() const
{
    m_store.save(m_items);
}

void IslandClipboard::publish()
{
    m_model->sync(m_items);
    emit itemsChanged();
    save();
}

void IslandClipboard::scheduleJob()
{
    QPointer<IslandClipboard> self(this);
    m_scheduler.schedule({kJobName, kActiveInterval, kIdleInterval, std::nullopt, [self] {
                              if (self)
                                  self->poll();
                          }});
}

void IslandClipboard::start()
{
    if (m_running)
        return;
    m_running = true;
    m_lastChangeCount = m_pasteboard.changeCount();
    // With the setting off there is nothing to poll for; switching it on registers the job.
    if (m_settings.clipboard())
        scheduleJob();
    emit runningChanged();
}

void IslandClipboard::stop()
{
    if (!m_running)
        return;
    m_running = false;
    m_scheduler.unregister(kJobName);
    emit runningChanged();
}

void IslandClipboard::poll()
{
    if (!m_settings.clipboard())
        return;
    const qint64 count = m_pasteboard.changeCount();
    if (count == m_lastChangeCount)
        return;
    m_lastChangeCount = count;
    if (count == m_selfWriteCount)
        return;
    std::optional<Captured> captured = capture();
    if (!captured)
        return;
    if (!captured->text) {
        record(captured->clip);
        return;
    }
    m_scanQueue.start([this, clip = captured->clip, text = *captured->text] {
        const ClipItem item = ClipText::textItem(text, clip.id, clip.copiedAt, clip.sourceApp);
        QMetaObject::invokeMethod(
            this, [this, item] { record(item); }, Qt::QueuedConnection);
    });
}

void IslandClipboard::settle()
{
    m_scanQueue.waitForDone();
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
}

std::optional<IslandClipboard::Captured> IslandClipboard::capture()
{
    if (ClipboardPolicy::carriesIgnoredType(m_pasteboard.types()))
        return std::nullopt;
    const std::optional<AppIdentity> app = m_frontmost.current();
    if (app && ClipboardPolicy::isIgnored(*app))
        return std::nullopt;

    Captured captured;
    ClipItem &clip = captured.clip;
    clip.id = QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
    clip.copiedAt = m_clock.now();
    if (app && !app->name.isEmpty())
        clip.sourceApp = app->name;

    const QList<QUrl> files = m_pasteboard.fileUrls();
    if (!files.isEmpty()) {
        QStringList names, paths;
        for (const QUrl &url : files) {
            names << QFileInfo(url.toLocalFile()).fileName();
            paths << url.toLocalFile();
        }
        clip.kind = ClipKind::File;
        clip.preview = names.join(QStringLiteral(", "));
        clip.text = paths.join(QLatin1Char('\n'));
        return captured;
    }
    const std::optional<QString> text = m_pasteboard.text();
    if (text && !text->trimmed().isEmpty() && text->toUtf8().size() <= kMaxTextBytes) {
        captured.text = *text;
        return captured;
    }
    if (const auto image = m_pasteboard.image(kThumbnailSize); image && !image->size.isEmpty()) {
        clip.kind = ClipKind::Image;
        clip.preview = QStringLiteral("Image %1\u00D7%2").arg(image->size.width()).arg(image->size.height());
        m_images.insert(clip.id, *image);
        return captured;
    }
    return std::nullopt;
}

void IslandClipboard::record(const ClipItem &item)
{
    ClipHistory::record(m_items, item);
    m_images.keepOnly(ClipHistory::ids(m_items));
    publish();
}

void IslandClipboard::copyBack(const QString &id)
{
    const auto it = std::find_if(m_items.cbegin(), m_items.cend(), [&](const ClipItem &c) { return c.id == id; });
    if (it == m_items.cend())
        return;
    const auto image = it->kind == ClipKind::Image ? m_images.image(id) : std::nullopt;
    if (image)
        m_pasteboard.writeImage(image->thumbnailPng);
    else
        m_pasteboard.writeText(it->text.value_or(it->preview));
    m_selfWriteCount = m_lastChangeCount = m_pasteboard.changeCount();
    ClipHistory::moveToFront(m_items, id, m_clock.now());
    publish();
}

void IslandClipboard::togglePin(const QString &id)
{
    const auto it = std::find_if(m_items.begin(), m_items.end(), [&](const ClipItem &c) { return c.id == id; });
    if (it == m_items.end())
        return;
    it->pinned = !it->pinned;
    ClipHistory::sortPinnedFirst(m_items);
    publish();
}

void IslandClipboard::clearAll()
{
    ClipHistory::clearUnpinned(m_items);
    m_images.keepOnly(ClipHistory::ids(m_items));
    publish();
}

} // namespace vaxo
