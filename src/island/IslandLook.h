#pragma once

#include <QObject>
#include <QString>

namespace vaxo {

class IslandSettings;
class IslandState;

// How the island is drawn now: the chosen accent, the colour of the character's mood, what stands for
// Vaxo at rest, the card's tab, and the backdrop behind the card (its image's address for the views, and
// how strongly it shows).
class IslandLook : public QObject {
    Q_OBJECT
    Q_PROPERTY(vaxo::IslandLook::Tab tab READ tab WRITE setTab NOTIFY tabChanged)
    Q_PROPERTY(vaxo::IslandLook::RestIcon restIcon READ restIcon NOTIFY restIconChanged)
    Q_PROPERTY(QString accent READ accent NOTIFY accentChanged)
    Q_PROPERTY(QString moodColor READ moodColor NOTIFY moodColorChanged)
    Q_PROPERTY(QString backdrop READ backdrop NOTIFY backdropChanged)
    Q_PROPERTY(double backdropOpacity READ backdropOpacity NOTIFY backdropChanged)
    Q_PROPERTY(QString waiting READ waiting CONSTANT)
    Q_PROPERTY(QString done READ done CONSTANT)

public:
    enum class Tab { Agents, Music, Clipboard };
    Q_ENUM(Tab)
    enum class RestIcon { Face, Dot, None };
    Q_ENUM(RestIcon)

    IslandLook(IslandSettings &settings, const IslandState &state, QObject *parent = nullptr);

    // The stored "vaxoIslandTab"; a value the card does not know opens the agents.
    Tab tab() const;
    void setTab(Tab tab);
    // The stored "Icon" setting; a value the settings do not offer shows the face.
    RestIcon restIcon() const;

    QString accent() const { return m_accent; }
    QString moodColor() const { return m_moodColor; }
    // "image://backdrop/<focus>/<file name>", empty without a backdrop.
    QString backdrop() const { return m_backdrop; }
    double backdropOpacity() const { return m_backdropOpacity; }

    // How much a backdrop is blurred for a "Focus" setting, as the factor it is shrunk by before it
    // is drawn larger again: 1 keeps it sharp.
    static int blurFactor(const QString &focus);
    // How strongly a backdrop shows for a "Depth" setting.
    static double opacityFor(const QString &strength);
    QString waiting() const;
    QString done() const;

signals:
    void tabChanged();
    void restIconChanged();
    void accentChanged();
    void moodColorChanged();
    void backdropChanged();

private:
    void update();

    IslandSettings &m_settings;
    const IslandState &m_state;
    QString m_accent;
    QString m_moodColor;
    QString m_backdrop;
    double m_backdropOpacity = 0;
};

} // namespace vaxo
