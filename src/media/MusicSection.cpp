#include "media/MusicSection.h"

#include "base/AppActivity.h"
#include "base/Clock.h"
#include "base/Timer.h"
#include "media/IslandMedia.h"
#include "media/MusicText.h"

namespace vaxo {
namespace {

// Sets `current` to `next` and announces it, when they differ.
template <typename T, typename Signal> void update(MusicSection *section, T &current, const T &next, Signal changed)
{
    if (next == current)
        return;
    current = next;
    emit(section->*changed)();
}

} // namespace

MusicSection::MusicSection(IslandMedia &media, const AppActivity &activity, Clock &clock, QObject *parent)
    : QObject(parent), m_media(media), m_activity(activity), m_clock(clock), m_ticker(clock.createTimer(this))
{
    m_ticker->setRepeating(true);
    connect(m_ticker, &Timer::timeout, this, &MusicSection::readPosition);
    connect(&media, &IslandMedia::nowChanged, this, [this] {
        readTrack();
        readPosition();
        updateTicker();
    });
    for (auto signal : {&IslandMedia::canControlNowPlayingChanged, &IslandMedia::accessibilityGrantedChanged,
                        &IslandMedia::controlBlockedReasonChanged})
        connect(&media, signal, this, &MusicSection::readControl);
    connect(&activity, &AppActivity::islandAnimatingChanged, this, &MusicSection::updateTicker);
    readTrack();
    readPosition();
    readControl();
}

void MusicSection::setShown(bool shown)
{
    if (shown == m_shown)
        return;
    m_shown = shown;
    if (shown)
        readPosition(); // the track went on while nobody looked
    updateTicker();
    emit shownChanged();
}

bool MusicSection::ticking() const
{
    return m_ticker->isActive();
}

void MusicSection::updateTicker()
{
    const bool tick = m_shown && m_track.playing && m_activity.islandAnimating();
    if (tick == m_ticker->isActive())
        return;
    if (tick) {
        readPosition();
        m_ticker->start(kTick);
    } else {
        m_ticker->stop();
    }
}

void MusicSection::readTrack()
{
    const std::optional<NowPlaying> &now = m_media.now();
    Track track;
    if (now) {
        track.has = true;
        track.title = now->title;
        track.artist = now->artist;
        track.source = now->source;
        track.artwork = now->artwork ? now->artwork->url : QUrl();
        track.playing = now->isPlaying;
        track.durationText = MusicText::durationText(now->duration);
        track.stripText = MusicText::stripText(*now);
    }
    track.allowance = MusicText::allowance(now);
    update(this, m_track, track, &MusicSection::trackChanged);
}

void MusicSection::readPosition()
{
    const std::optional<NowPlaying> &now = m_media.now();
    Position position;
    if (now) {
        const std::optional<double> at = MusicText::position(*now, m_clock.now());
        position.progress = MusicText::progress(at, now->duration);
        position.elapsedText = at ? MusicText::clock(*at) : QString();
    }
    update(this, m_position, position, &MusicSection::positionChanged);
}

void MusicSection::readControl()
{
    const Control control{m_media.canControlNowPlaying(),
                          MusicText::controlNote(m_media.mediaKeysNeedPermission(), m_media.accessibilityGranted(),
                                                 m_media.controlBlockedReason())};
    update(this, m_control, control, &MusicSection::controlChanged);
}

QString MusicSection::emptyText() const
{
    return MusicText::emptyText();
}

void MusicSection::playPause()
{
    m_media.send(MediaCommand::PlayPause);
}

void MusicSection::next()
{
    m_media.send(MediaCommand::Next);
}

void MusicSection::previous()
{
    m_media.send(MediaCommand::Previous);
}

} // namespace vaxo
