#include "platform/linux/MprisMediaPlayers.h"

#include "base/Clock.h"
#include "platform/linux/MprisRecord.h"
#include "platform/linux/PendingCalls.h"

#include "mpris_player.h"
#include "mpris_properties.h"

#include <QDBusPendingReply>

namespace vaxo::linux_platform {
namespace {

const QString kTransport = QStringLiteral("org.mpris.MediaPlayer2.Player");

} // namespace

// One read of every player: the answers so far, and how many are still out.
struct MprisMediaPlayers::Poll {
    Reply done;
    int outstanding = 0;
    QList<NowPlaying> records;
};

MprisMediaPlayers::MprisMediaPlayers(const QDBusConnection &session, const Clock &clock, QObject *parent)
    : MediaPlayers(parent), m_clock(clock), m_list(session)
{
    connect(&m_list, &MprisPlayerList::removed, this, &MediaPlayers::playerGone);
}

QStringList MprisMediaPlayers::names() const
{
    QStringList names;
    for (const auto &entry : m_list.players())
        names << entry.first;
    return names;
}

void MprisMediaPlayers::readSystem(std::function<void(SystemReply)> done)
{
    done({std::nullopt, false});
}

void MprisMediaPlayers::readPlayers(Reply done)
{
    auto poll = std::make_shared<Poll>();
    poll->done = std::move(done);
    poll->outstanding = int(m_list.players().size());
    if (poll->outstanding == 0) {
        finish(*poll);
        return;
    }
    for (const auto &[name, player] : m_list.players())
        collect(poll, name, player.properties->GetAll(kTransport));
}

void MprisMediaPlayers::collect(const std::shared_ptr<Poll> &poll, const QString &name, const QDBusPendingCall &call)
{
    whenFinished(call, this, [this, poll, name](const QDBusPendingCall &finished) {
        const QDBusPendingReply<QVariantMap> reply(finished);
        if (MprisPlayerList::Player *player = m_list.find(name)) {
            if (reply.isValid()) {
                const QString source = MprisRecord::source(name, player->identity);
                if (auto record = MprisRecord::read(reply.value(), source, name, m_artwork, m_clock.now()))
                    poll->records << *record;
            } else if (!player->failing) {
                emit note(QStringLiteral("no answer from %1: %2").arg(name, reply.error().message()));
            }
            player->failing = !reply.isValid();
        }
        if (--poll->outstanding == 0)
            finish(*poll);
    });
}

void MprisMediaPlayers::finish(const Poll &poll)
{
    // A player that quit while the others answered leaves nothing behind.
    QList<NowPlaying> live;
    for (const NowPlaying &record : poll.records) {
        if (m_list.find(record.player))
            live << record;
    }
    poll.done(MprisRecord::choose(live));
}

void MprisMediaPlayers::send(const NowPlaying &record, MediaCommand command, std::function<void()> done)
{
    MprisPlayerList::Player *player = m_list.find(record.player);
    if (!player) {
        if (done)
            done();
        return;
    }
    OrgMprisMediaPlayer2PlayerInterface &transport = *player->transport;
    const QDBusPendingCall call = command == MediaCommand::PlayPause ? transport.PlayPause()
                                  : command == MediaCommand::Next    ? transport.Next()
                                                                     : transport.Previous();
    const QString name = record.player;
    whenFinished(call, this, [this, name, done = std::move(done)](const QDBusPendingCall &finished) {
        if (finished.isError())
            emit note(QStringLiteral("command failed: %1: %2").arg(name, finished.error().message()));
        if (done)
            done();
    });
}

void MprisMediaPlayers::postMediaKey(MediaCommand command)
{
    readPlayers([this, command](const std::optional<NowPlaying> &record) {
        if (record)
            send(*record, command, {});
    });
}

} // namespace vaxo::linux_platform
