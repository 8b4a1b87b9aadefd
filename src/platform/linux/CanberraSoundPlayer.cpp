#include "platform/linux/CanberraSoundPlayer.h"

#include <alsa/asoundlib.h>
#include <canberra.h>

namespace vaxo::linux_platform {
namespace {

void quiet(const char *, int, const char *, int, const char *, ...) {}

} // namespace

CanberraSoundPlayer::CanberraSoundPlayer()
{
    // Without a sound card the sound library's ALSA back end would print its failures on standard
    // error at every sound; a missing sound is no news to the user.
    snd_lib_error_set_handler(quiet);
    if (ca_context_create(&m_context) != CA_SUCCESS)
        m_context = nullptr;
}

CanberraSoundPlayer::~CanberraSoundPlayer()
{
    if (m_context)
        ca_context_destroy(m_context);
}

QString CanberraSoundPlayer::themeSound(const QString &name)
{
    if (name == QLatin1String("Submarine"))
        return QStringLiteral("message-new-instant");
    if (name == QLatin1String("Glass"))
        return QStringLiteral("complete");
    return name;
}

void CanberraSoundPlayer::play(const QString &name)
{
    if (!m_context || name.isEmpty())
        return;
    // Asynchronous; a missing sound or sound server is not our error to report.
    ca_context_play(m_context, 0, CA_PROP_EVENT_ID, themeSound(name).toUtf8().constData(), CA_PROP_EVENT_DESCRIPTION,
                    "VAXO Island", nullptr);
}

} // namespace vaxo::linux_platform
