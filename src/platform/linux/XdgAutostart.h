#pragma once

#include "platform/LoginRegistration.h"

namespace vaxo::linux_platform {

// Launch at login through XDG autostart: a desktop entry in the autostart folder
// ($XDG_CONFIG_HOME/autostart/vaxo-island.desktop). Enabled while the entry exists and is not marked
// hidden; switching off removes it, switching on writes it (over a hidden one) in one step.
class XdgAutostart final : public LoginRegistration {
public:
    // folder: the autostart folder; program: the executable the entry starts.
    XdgAutostart(QString folder, QString program);
    // The user's autostart folder and this process's executable.
    static XdgAutostart standard();

    bool enabled() const override;
    std::optional<QString> enable() override;
    std::optional<QString> disable() override;

    QString entryPath() const;
    // The entry's text: a program path with blanks or quotes is quoted as desktop entries want it.
    static QByteArray entry(const QString &program);

private:
    QString m_folder;
    QString m_program;
};

} // namespace vaxo::linux_platform
