#pragma once

#include <QObject>
#include <QString>

namespace vaxo {

// The card's fixed words: tab names, button labels, what an empty section says.
class CardLabels : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString agents MEMBER m_agents CONSTANT)
    Q_PROPERTY(QString music MEMBER m_music CONSTANT)
    Q_PROPERTY(QString clipboard MEMBER m_clipboard CONSTANT)
    Q_PROPERTY(QString allow MEMBER m_allow CONSTANT)
    Q_PROPERTY(QString deny MEMBER m_deny CONSTANT)
    Q_PROPERTY(QString clear MEMBER m_clear CONSTANT)
    Q_PROPERTY(QString noClips MEMBER m_noClips CONSTANT)
    Q_PROPERTY(QString clipboardOff MEMBER m_clipboardOff CONSTANT)
    Q_PROPERTY(QString secret MEMBER m_secret CONSTANT)
    Q_PROPERTY(QString nothingPlaying MEMBER m_nothingPlaying CONSTANT)
    Q_PROPERTY(QString musicOff MEMBER m_musicOff CONSTANT)

public:
    using QObject::QObject;

private:
    QString m_agents = QStringLiteral("Agents");
    QString m_music = QStringLiteral("Music");
    QString m_clipboard = QStringLiteral("Clipboard");
    QString m_allow = QStringLiteral("Allow");
    QString m_deny = QStringLiteral("Deny");
    QString m_clear = QStringLiteral("Clear");
    QString m_noClips = QStringLiteral("Nothing copied yet. What you copy shows up here.");
    QString m_clipboardOff = QStringLiteral("The clipboard history is off.");
    QString m_secret = QStringLiteral("Secret");
    QString m_nothingPlaying = QStringLiteral("Nothing playing");
    QString m_musicOff = QStringLiteral("Now playing is off.");
};

} // namespace vaxo
