#pragma once

#include "platform/Pasteboard.h"

#include <QProcess>
#include <QProcessEnvironment>

#include <memory>

namespace vaxo::test {

// Plays the other programs on the X clipboard: xclip for plain copies and pastes, the clip_offer
// helper for what xclip cannot offer. Every copy waits until the pasteboard has counted it.
class ClipboardDriver {
public:
    ClipboardDriver(const Pasteboard &pasteboard, const QString &home);
    ~ClipboardDriver();

    // Copies bytes with xclip, offered as `type` (UTF8_STRING when empty).
    bool copy(const QByteArray &bytes, const QString &type = {});
    // Runs clip_offer with these arguments until release(); true once it is offering.
    bool offer(const QStringList &arguments);
    // Ends clip_offer; its content leaves the clipboard with it.
    void release();
    // What a paste of `target` gives now. The event loop runs meanwhile, so this program can answer.
    QByteArray paste(const QString &target = QStringLiteral("UTF8_STRING"));

private:
    bool waitForChange(qint64 before) const;

    const Pasteboard &m_pasteboard;
    QProcessEnvironment m_env;
    std::unique_ptr<QProcess> m_offer;
    qint64 m_offeredAt = -1; // the change count right after clip_offer took the clipboard
};

} // namespace vaxo::test
