#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

class QQmlEngine;

Q_MOC_INCLUDE("base/AppActivity.h")
Q_MOC_INCLUDE("base/IslandSettings.h")
Q_MOC_INCLUDE("base/LoginItem.h")
Q_MOC_INCLUDE("clipboard/IslandClipboard.h")
Q_MOC_INCLUDE("feedback/Feedback.h")
Q_MOC_INCLUDE("face/MoodArt.h")
Q_MOC_INCLUDE("island/CardLabels.h")
Q_MOC_INCLUDE("island/CardMeasures.h")
Q_MOC_INCLUDE("island/IslandController.h")
Q_MOC_INCLUDE("island/IslandLook.h")
Q_MOC_INCLUDE("island/IslandState.h")
Q_MOC_INCLUDE("island/SessionsSection.h")
Q_MOC_INCLUDE("island/SettingsCard.h")
Q_MOC_INCLUDE("media/MusicSection.h")

namespace vaxo {

class AppActivity;
class CardLabels;
class CardMeasures;
class Feedback;
class InstalledApps;
class IslandClipboard;
class IslandController;
class IslandLook;
class IslandSettings;
class IslandState;
class LoginItem;
class MoodArt;
class MusicSection;
class SessionsSection;
class SettingsCard;

// Everything the island's views show and act on, handed to the root view as one typed object.
class IslandRoot : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the island's controller")
    Q_PROPERTY(vaxo::IslandController *controller READ controller CONSTANT)
    Q_PROPERTY(vaxo::IslandState *state READ state CONSTANT)
    Q_PROPERTY(vaxo::IslandSettings *settings READ settings CONSTANT)
    Q_PROPERTY(vaxo::SessionsSection *sessions READ sessions CONSTANT)
    Q_PROPERTY(vaxo::IslandClipboard *clipboard READ clipboard CONSTANT)
    Q_PROPERTY(vaxo::MusicSection *music READ music CONSTANT)
    Q_PROPERTY(vaxo::AppActivity *activity READ activity CONSTANT)
    Q_PROPERTY(vaxo::IslandLook *look READ look CONSTANT)
    Q_PROPERTY(vaxo::CardMeasures *measures READ measures CONSTANT)
    Q_PROPERTY(vaxo::CardLabels *labels READ labels CONSTANT)
    Q_PROPERTY(vaxo::SettingsCard *settingsCard READ settingsCard CONSTANT)
    Q_PROPERTY(vaxo::LoginItem *loginItem READ loginItem CONSTANT)
    Q_PROPERTY(vaxo::Feedback *feedback READ feedback CONSTANT)
    Q_PROPERTY(vaxo::MoodArt *face READ face CONSTANT)

public:
    // The long-lived objects the views read; the composition root owns them.
    struct Parts {
        IslandState *state;
        IslandSettings *settings;
        SessionsSection *sessions;
        IslandClipboard *clipboard;
        MusicSection *music;
        AppActivity *activity;
        IslandLook *look;
        SettingsCard *settingsCard;
        QString backgrounds; // the folder of backdrop images
        LoginItem *loginItem;
        Feedback *feedback;
        const InstalledApps *apps; // whose icons mark the sessions' agents
        MoodArt *face;             // the artwork of the character's mood
    };

    IslandRoot(const Parts &parts, IslandController *controller, QObject *parent = nullptr);

    IslandController *controller() const { return m_controller; }
    IslandState *state() const { return m_parts.state; }
    IslandSettings *settings() const { return m_parts.settings; }
    SessionsSection *sessions() const { return m_parts.sessions; }
    IslandClipboard *clipboard() const { return m_parts.clipboard; }
    MusicSection *music() const { return m_parts.music; }
    AppActivity *activity() const { return m_parts.activity; }
    IslandLook *look() const { return m_parts.look; }
    CardMeasures *measures() const { return m_measures; }
    CardLabels *labels() const { return m_labels; }
    SettingsCard *settingsCard() const { return m_parts.settingsCard; }
    LoginItem *loginItem() const { return m_parts.loginItem; }
    Feedback *feedback() const { return m_parts.feedback; }
    MoodArt *face() const { return m_parts.face; }

    // The images the views ask for by URL: clip thumbnails, backdrops and agents' marks.
    void installImageProviders(QQmlEngine &engine) const;

    // Ends the program the normal way, as the settings card's last row asks.
    Q_INVOKABLE void quit();

private:
    Parts m_parts;
    IslandController *m_controller;
    CardMeasures *m_measures;
    CardLabels *m_labels;
};

} // namespace vaxo
