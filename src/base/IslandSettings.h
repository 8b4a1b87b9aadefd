#pragma once

#include <QObject>
#include <QSettings>
#include <QString>
#include <QVariant>

#include <optional>

namespace vaxo {

// Every user setting, read and written in one place: one getter, one setter, one change signal and
// one default per key. A value is stored only when the user changes it, and on disk at once, so
// nothing needs saving at termination. A stored boolean means what it says when it is a boolean or
// the word "true" or "false" (any case); anything else counts as absent. Main thread only.
class IslandSettings : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString icon READ icon WRITE setIcon NOTIFY iconChanged)
    Q_PROPERTY(QString accent READ accent WRITE setAccent NOTIFY accentChanged)
    Q_PROPERTY(QString anim READ anim WRITE setAnim NOTIFY animChanged)
    Q_PROPERTY(bool calm READ calm NOTIFY animChanged)
    Q_PROPERTY(bool sound READ sound WRITE setSound NOTIFY soundChanged)
    Q_PROPERTY(QString soundName READ soundName WRITE setSoundName NOTIFY soundNameChanged)
    Q_PROPERTY(QString backdrop READ backdrop WRITE setBackdrop NOTIFY backdropChanged)
    Q_PROPERTY(QString backdropStrength READ backdropStrength WRITE setBackdropStrength NOTIFY backdropStrengthChanged)
    Q_PROPERTY(QString backdropFocus READ backdropFocus WRITE setBackdropFocus NOTIFY backdropFocusChanged)
    Q_PROPERTY(bool music READ music WRITE setMusic NOTIFY musicChanged)
    Q_PROPERTY(bool clipboard READ clipboard WRITE setClipboard NOTIFY clipboardChanged)
    Q_PROPERTY(int clipRows READ clipRows WRITE setClipRows NOTIFY clipRowsChanged)
    Q_PROPERTY(QString tab READ tab WRITE setTab NOTIFY tabChanged)
    Q_PROPERTY(bool speak READ speak WRITE setSpeak NOTIFY speakChanged)

public:
    enum class Key {
        Enabled,
        Icon,
        Accent,
        Anim,
        Sound,
        SoundName,
        Backdrop,
        BackdropStrength,
        BackdropFocus,
        Music,
        Clipboard,
        ClipRows,
        Tab,
        Speak,
        ClipScrubbed,
    };
    static constexpr int kMinClipRows = 1;
    static constexpr int kMaxClipRows = 6;

    // The INI file the settings live in (AppPaths::settingsFile()).
    explicit IslandSettings(const QString &file, QObject *parent = nullptr);

    // The stored name of a key ("vaxoIslandAccent").
    static QString keyName(Key key);
    // What a stored value means as a boolean: absent when it is neither a boolean nor a boolean word.
    static std::optional<bool> storedBool(const QVariant &value);

    // The island is shown; read once, at start.
    bool enabled() const;
    QString icon() const;
    QString accent() const;
    QString anim() const;
    // The working animation's calm variant is chosen.
    bool calm() const;
    bool sound() const;
    QString soundName() const;
    QString backdrop() const;
    QString backdropStrength() const;
    QString backdropFocus() const;
    bool music() const;
    bool clipboard() const;
    // Between kMinClipRows and kMaxClipRows; a stored value outside counts as absent.
    int clipRows() const;
    QString tab() const;
    bool speak() const;
    // The one-time scrub of an old clipboard history has run.
    bool clipScrubbed() const;

    void setIcon(const QString &value);
    void setAccent(const QString &value);
    void setAnim(const QString &value);
    void setSound(bool value);
    void setSoundName(const QString &value);
    void setBackdrop(const QString &value);
    void setBackdropStrength(const QString &value);
    void setBackdropFocus(const QString &value);
    void setMusic(bool value);
    void setClipboard(bool value);
    void setClipRows(int value);
    void setTab(const QString &value);
    void setSpeak(bool value);
    void setClipScrubbed(bool value);

signals:
    void iconChanged();
    void accentChanged();
    void animChanged();
    void soundChanged();
    void soundNameChanged();
    void backdropChanged();
    void backdropStrengthChanged();
    void backdropFocusChanged();
    void musicChanged();
    void clipboardChanged();
    void clipRowsChanged();
    void tabChanged();
    void speakChanged();

private:
    bool flag(Key key) const;
    QString text(Key key) const;
    // Stores value when it differs from what is read now, then announces the key's change.
    void write(Key key, const QVariant &value, const QVariant &current);

    QSettings m_store;
};

} // namespace vaxo
