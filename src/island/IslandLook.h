#pragma once

#include <QObject>
#include <QString>

namespace vaxo {

class IslandSettings;
class IslandState;

// How the island is drawn now: the chosen accent, the colour of the character's mood, and the backdrop
// behind the card (its image's address for the views, and how strongly it shows).
class IslandLook : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString accent READ accent NOTIFY accentChanged)
    Q_PROPERTY(QString moodColor READ moodColor NOTIFY moodColorChanged)
    Q_PROPERTY(QString backdrop READ backdrop NOTIFY backdropChanged)
    Q_PROPERTY(double backdropOpacity READ backdropOpacity NOTIFY backdropChanged)
    Q_PROPERTY(QString waiting READ waiting CONSTANT)
    Q_PROPERTY(QString done READ done CONSTANT)

public:
    IslandLook(const IslandSettings &settings, const IslandState &state, QObject *parent = nullptr);

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
    void accentChanged();
    void moodColorChanged();
    void backdropChanged();

private:
    void update();

    const IslandSettings &m_settings;
    const IslandState &m_state;
    QString m_accent;
    QString m_moodColor;
    QString m_backdrop;
    double m_backdropOpacity = 0;
};

} // namespace vaxo
