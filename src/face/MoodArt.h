#pragma once

#include "face/FaceAssets.h"

#include <QList>
#include <QObject>
#include <QUrl>

namespace vaxo {

class IslandState;

// What the views show for the character's current mood: her drawn face, a still clip's frames or a
// video with its poster. Follows the mood and every new generation of the artwork, and announces a
// change only when what is shown really changes.
class MoodArt : public QObject {
    Q_OBJECT
    Q_PROPERTY(vaxo::MoodArt::Kind kind READ kind NOTIFY changed)
    Q_PROPERTY(QList<QUrl> frames READ frames NOTIFY changed)
    Q_PROPERTY(bool pingPong READ pingPong NOTIFY changed)
    Q_PROPERTY(int frameInterval READ frameInterval NOTIFY changed)
    Q_PROPERTY(QUrl video READ video NOTIFY changed)
    Q_PROPERTY(bool loops READ loops NOTIFY changed)
public:
    enum class Kind { Drawn, Still, Video };
    Q_ENUM(Kind)

    MoodArt(const FaceAssets &assets, const IslandState &state, QObject *parent = nullptr);

    Kind kind() const;
    QList<QUrl> frames() const { return m_clip ? m_clip->frames : QList<QUrl>(); }
    bool pingPong() const { return m_clip && m_clip->pingPong; }
    // Milliseconds between still frames, from the artwork's frame rate.
    int frameInterval() const { return m_interval; }
    QUrl video() const { return m_clip ? m_clip->video.value_or(QUrl()) : QUrl(); }
    bool loops() const { return !m_clip || m_clip->loops; }

    // Which of count frames shows at step (0, 1, 2, ...): round and round, or back and forth without
    // showing the turning frames twice.
    Q_INVOKABLE static int frameIndex(int step, int count, bool pingPong);

signals:
    void changed();

private:
    void update();

    const FaceAssets &m_assets;
    const IslandState &m_state;
    std::optional<FaceAssets::Clip> m_clip;
    int m_interval = 0;
};

} // namespace vaxo
