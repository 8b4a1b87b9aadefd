#include "ClipboardDriver.h"

#include <QTest>

namespace vaxo::test {

ClipboardDriver::ClipboardDriver(const Pasteboard &pasteboard, const QString &home)
    : m_pasteboard(pasteboard), m_env(QProcessEnvironment::systemEnvironment())
{
    m_env.insert(QStringLiteral("HOME"), home);
    m_env.insert(QStringLiteral("XDG_CONFIG_HOME"), home + QStringLiteral("/config"));
    m_env.insert(QStringLiteral("XDG_DATA_HOME"), home + QStringLiteral("/data"));
    m_env.insert(QStringLiteral("XDG_CACHE_HOME"), home + QStringLiteral("/cache"));
}

ClipboardDriver::~ClipboardDriver()
{
    release();
}

bool ClipboardDriver::waitForChange(qint64 before) const
{
    return QTest::qWaitFor([&] { return m_pasteboard.changeCount() > before; }, 10000);
}

bool ClipboardDriver::copy(const QByteArray &bytes, const QString &type)
{
    const qint64 before = m_pasteboard.changeCount();
    QStringList args{QStringLiteral("-selection"), QStringLiteral("clipboard"), QStringLiteral("-i")};
    if (!type.isEmpty())
        args << QStringLiteral("-t") << type;
    QProcess xclip;
    xclip.setProcessEnvironment(m_env);
    xclip.start(QStringLiteral("xclip"), args);
    xclip.write(bytes);
    xclip.closeWriteChannel();
    // xclip stays behind in the background to serve the selection; the first process ends at once.
    const bool ended = QTest::qWaitFor([&] { return xclip.state() == QProcess::NotRunning; }, 10000);
    return ended && xclip.exitCode() == 0 && waitForChange(before);
}

bool ClipboardDriver::offer(const QStringList &arguments)
{
    release();
    const qint64 before = m_pasteboard.changeCount();
    m_offer = std::make_unique<QProcess>();
    m_offer->setProcessEnvironment(m_env);
    m_offer->start(QStringLiteral(CLIP_OFFER_BINARY), arguments);
    const bool ready = QTest::qWaitFor([&] { return m_offer->readAllStandardOutput().contains("ready"); }, 10000);
    const bool counted = ready && waitForChange(before);
    m_offeredAt = m_pasteboard.changeCount();
    return counted;
}

void ClipboardDriver::release()
{
    if (!m_offer)
        return;
    const qint64 before = m_pasteboard.changeCount();
    m_offer->kill();
    m_offer->waitForFinished(5000);
    m_offer.reset();
    // The exit of the clipboard's owner empties the clipboard; once another took over, nothing changes.
    if (before == m_offeredAt && !waitForChange(before))
        qWarning("clip_offer left without the clipboard noticing");
}

QByteArray ClipboardDriver::paste(const QString &target)
{
    QProcess xclip;
    xclip.setProcessEnvironment(m_env);
    xclip.start(QStringLiteral("xclip"), {QStringLiteral("-selection"), QStringLiteral("clipboard"),
                                          QStringLiteral("-o"), QStringLiteral("-t"), target});
    if (!QTest::qWaitFor([&] { return xclip.state() == QProcess::NotRunning; }, 10000))
        return {};
    return xclip.readAllStandardOutput();
}

} // namespace vaxo::test
