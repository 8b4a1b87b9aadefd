#pragma once

#include "platform/Pasteboard.h"

#include <QPointer>

class QClipboard;
class QMimeData;

namespace vaxo::linux_platform {

// The CLIPBOARD selection through QClipboard. The change counter grows on every new owner (and when
// an owner exits, leaving nothing) and on each of our own writes, once.
class QtPasteboard final : public Pasteboard {
    Q_OBJECT
public:
    explicit QtPasteboard(QObject *parent = nullptr);

    qint64 changeCount() const override { return m_changeCount; }
    QStringList types() const override;
    QList<QUrl> fileUrls() const override;
    std::optional<QString> text() const override;
    std::optional<PasteboardImage> image(int fit) const override;

    void writeText(const QString &text) override;
    void writeImage(const QByteArray &png) override;

private:
    // The current content. Asking the owner is a round trip, so each reader asks only for its format.
    const QMimeData *content() const;

    QPointer<QClipboard> m_clipboard;
    qint64 m_changeCount = 0;
};

} // namespace vaxo::linux_platform
