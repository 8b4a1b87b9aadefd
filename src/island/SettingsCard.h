#pragma once

#include <QObject>
#include <QStringList>

namespace vaxo {

// What the settings card offers: the words of its rows and, per setting, the stored values to choose
// from with their labels. The backdrop images are the files of the "Backgrounds" folder, listed again
// each time the card opens.
class SettingsCard : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(QStringList rowLabels READ rowLabels CONSTANT)
    Q_PROPERTY(QStringList iconValues READ iconValues CONSTANT)
    Q_PROPERTY(QStringList iconLabels READ iconLabels CONSTANT)
    Q_PROPERTY(QStringList accentValues READ accentValues CONSTANT)
    Q_PROPERTY(QStringList accentLabels READ accentLabels CONSTANT)
    Q_PROPERTY(QStringList accentColors READ accentColors CONSTANT)
    Q_PROPERTY(QStringList animValues READ animValues CONSTANT)
    Q_PROPERTY(QStringList animLabels READ animLabels CONSTANT)
    Q_PROPERTY(QStringList soundValues READ soundValues CONSTANT)
    Q_PROPERTY(QStringList soundLabels READ soundLabels CONSTANT)
    Q_PROPERTY(QStringList strengthValues READ strengthValues CONSTANT)
    Q_PROPERTY(QStringList strengthLabels READ strengthLabels CONSTANT)
    Q_PROPERTY(QStringList focusValues READ focusValues CONSTANT)
    Q_PROPERTY(QStringList focusLabels READ focusLabels CONSTANT)
    Q_PROPERTY(QStringList clipRowValues READ clipRowValues CONSTANT)
    Q_PROPERTY(QStringList backdropValues READ backdropValues NOTIFY backdropsChanged)
    Q_PROPERTY(QStringList backdropLabels READ backdropLabels NOTIFY backdropsChanged)
    Q_PROPERTY(QString quitLabel READ quitLabel CONSTANT)

public:
    // The rows, in the card's order; rowLabels() has their words.
    enum Row { Icon, Accent, Animation, Sounds, Backdrop, Depth, Focus, Music, Clipboard, Clips, Speech };
    Q_ENUM(Row)

    // backgrounds: the folder of backdrop images (AppPaths::backgrounds()).
    explicit SettingsCard(QString backgrounds, QObject *parent = nullptr);

    QString title() const;
    QStringList rowLabels() const;
    QStringList iconValues() const;
    QStringList iconLabels() const;
    QStringList accentValues() const;
    QStringList accentLabels() const;
    QStringList accentColors() const;
    QStringList animValues() const;
    QStringList animLabels() const;
    QStringList soundValues() const;
    QStringList soundLabels() const;
    QStringList strengthValues() const;
    QStringList strengthLabels() const;
    QStringList focusValues() const;
    QStringList focusLabels() const;
    QStringList clipRowValues() const;
    QStringList backdropValues() const { return m_backdrops; }
    QStringList backdropLabels() const;
    QString quitLabel() const;

    // Lists the "Backgrounds" folder again: "" (no backdrop) first, then the images by name.
    Q_INVOKABLE void reload();

signals:
    void backdropsChanged();

private:
    QString m_folder;
    QStringList m_backdrops;
};

} // namespace vaxo
