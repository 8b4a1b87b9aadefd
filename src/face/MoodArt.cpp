#include "face/MoodArt.h"

#include "island/IslandState.h"

#include <cmath>

namespace vaxo {

MoodArt::MoodArt(const FaceAssets &assets, const IslandState &state, QObject *parent)
    : QObject(parent), m_assets(assets), m_state(state)
{
    connect(&assets, &FaceAssets::generationChanged, this, &MoodArt::update);
    connect(&state, &IslandState::moodChanged, this, &MoodArt::update);
    update();
}

MoodArt::Kind MoodArt::kind() const
{
    if (!m_clip)
        return Kind::Drawn;
    return m_clip->video ? Kind::Video : Kind::Still;
}

int MoodArt::frameIndex(int step, int count, bool pingPong)
{
    if (count <= 1 || step < 0)
        return 0;
    if (!pingPong)
        return step % count;
    const int cycle = 2 * count - 2; // 0 1 2 3 2 1 | 0 1 ...
    const int at = step % cycle;
    return at < count ? at : cycle - at;
}

void MoodArt::update()
{
    const auto clip = m_assets.clip(moodName(m_state.mood()));
    const int interval = int(std::lround(1000 / m_assets.fps()));
    if (clip == m_clip && interval == m_interval)
        return;
    m_clip = clip;
    m_interval = interval;
    emit changed();
}

} // namespace vaxo
