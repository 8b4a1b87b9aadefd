#include "clipboard/IslandClipboard.h"
#include "FakeClock.h"
#include "TempHome.h"
#include "base/AppActivity.h"
#include "base/IslandScheduler.h"
#include "base/IslandSettings.h"
#include "platform/linux/QtPasteboard.h"
#include "platform/x11/X11FrontmostApp.h"
#include "secrets/SecretScanner.h"

#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <QSignalSpy>
#include <QTest>

using namespace vaxo;

// The history on the real X clipboard: other programs copy (xclip, clip_offer), the scheduler's job
// polls on a fake clock, scans run on the clipboard's own queue.
class IslandClipboardTest : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup()
    {
        m_offer.kill();
        m_offer.waitForFinished();
    }
    void followsCopiesOfOtherPrograms();
    void concealedAndIgnoredCopiesLeaveNoTrace();
    void copyBackIsNotCapturedAgain();
    void secretsAndImagesNeverReachTheDisk();
    void pinnedClipsSurviveEvictionAndClearAll();

private:
    // Another program copies: xclip offers the bytes as `type` (UTF8_STRING when empty). Like offer(), it
    // waits until the pasteboard has counted the copy.
    bool copy(const QByteArray &bytes, const QString &type = {})
    {
        const qint64 before = m_pasteboard.changeCount();
        return xclip(type.isEmpty() ? QStringList{"-i"} : QStringList{"-i", "-t", type}, bytes) && counted(before);
    }
    // The clip_offer helper offers what xclip cannot, until the next offer.
    bool offer(const QStringList &arguments)
    {
        const qint64 before = m_pasteboard.changeCount();
        cleanup();
        m_offer.start(QStringLiteral(CLIP_OFFER_BINARY), arguments);
        return QTest::qWaitFor([&] { return m_offer.readAllStandardOutput().contains("ready"); }, 10000) &&
               counted(before);
    }
    // What xclip prints, absent when it fails. With -i it stays behind in the background to serve the
    // selection, and the first process ends at once; with -o this program answers it meanwhile.
    std::optional<QByteArray> xclip(const QStringList &arguments, const QByteArray &input = {})
    {
        QProcess xclip;
        xclip.start(QStringLiteral("xclip"), QStringList{"-selection", "clipboard"} + arguments);
        xclip.write(input);
        xclip.closeWriteChannel();
        if (!QTest::qWaitFor([&] { return xclip.state() == QProcess::NotRunning; }, 10000) || xclip.exitCode() != 0)
            return std::nullopt;
        return xclip.readAllStandardOutput();
    }
    QByteArray paste() { return xclip({"-o", "-t", "UTF8_STRING"}).value_or("?"); }
    bool counted(qint64 before) const
    {
        return QTest::qWaitFor([&] { return m_pasteboard.changeCount() > before; }, 10000);
    }
    // A (re)started clipboard: what it shows is what it loaded.
    void make()
    {
        m_clipboard.reset();
        m_clipboard = std::make_unique<IslandClipboard>(m_pasteboard, m_frontmost, m_scheduler, *m_settings,
                                                        m_home->paths(), m_clock);
        m_clipboard->start();
    }
    // One tick of the job, its scans settled; true when the history changed.
    bool pollRecords()
    {
        QSignalSpy changed(m_clipboard.get(), &IslandClipboard::itemsChanged);
        m_clock.advance(IslandClipboard::kActiveInterval);
        m_clipboard->settle();
        return !changed.isEmpty();
    }
    bool copyAndRecord(const QByteArray &text) { return copy(text) && pollRecords(); }
    QStringList previews() const
    {
        QStringList out;
        for (const ClipItem &clip : m_clipboard->clips())
            out << clip.preview;
        return out;
    }
    QByteArray savedFile() const { return test::TempHome::read(m_home->paths().clipboardFile()); }

    std::unique_ptr<test::TempHome> m_home;
    std::unique_ptr<IslandSettings> m_settings;
    test::FakeClock m_clock;
    AppActivity m_activity{{}, {}};
    IslandScheduler m_scheduler{m_clock, m_activity, nullptr};
    linux_platform::QtPasteboard m_pasteboard;
    linux_platform::X11FrontmostApp m_frontmost;
    QProcess m_offer;
    std::unique_ptr<IslandClipboard> m_clipboard;
};

void IslandClipboardTest::init()
{
    m_clipboard.reset();
    m_home = std::make_unique<test::TempHome>();
    m_settings = std::make_unique<IslandSettings>(m_home->paths().settingsFile());
}

void IslandClipboardTest::followsCopiesOfOtherPrograms()
{
    QVERIFY(copy("there before the start"));
    make();
    QVERIFY(!pollRecords()); // the content at start is not captured

    QVERIFY(copyAndRecord("hello  world\n"));
    const ClipItem first = m_clipboard->clips().first();
    QCOMPARE(*first.text, QStringLiteral("hello  world\n"));
    QCOMPARE(first.copiedAt, m_clock.now());
    QVERIFY(!first.sourceApp); // xclip has no window
    QVERIFY(copyAndRecord("https://example.com/x"));
    QVERIFY(copyAndRecord("hello  world\n"));
    QCOMPARE(previews(), (QStringList{"hello world", "https://example.com/x"}));

    QCOMPARE(m_clipboard->store().load().value(), m_clipboard->clips());
}

void IslandClipboardTest::concealedAndIgnoredCopiesLeaveNoTrace()
{
    make();
    QVERIFY(offer({"--text", "hunter2 from a vault", "--hint"}));
    QVERIFY(!pollRecords());
    QVERIFY(copy("concealed", QStringLiteral("org.nspasteboard.ConcealedType")));
    QVERIFY(!pollRecords());
    QVERIFY(offer({"--text", "copied in keepassxc", "--window", "KeePassXC"}));
    QTRY_COMPARE(m_frontmost.current().value_or(AppIdentity()).instance, QStringLiteral("keepassxc"));
    QVERIFY(!pollRecords());
    QVERIFY(m_clipboard->clips().isEmpty());
    // The same copy from an ordinary application is recorded, with its name.
    QVERIFY(offer({"--text", "a note", "--window", "Gedit"}));
    QVERIFY(pollRecords());
    QCOMPARE(m_clipboard->clips().first().sourceApp.value_or(QString()), QStringLiteral("Gedit"));
}

void IslandClipboardTest::copyBackIsNotCapturedAgain()
{
    make();
    QVERIFY(copyAndRecord("one"));
    QVERIFY(copyAndRecord("two"));
    m_clipboard->copyBack(m_clipboard->clips().last().id);
    QCOMPARE(previews(), (QStringList{"one", "two"}));
    QCOMPARE(paste(), QByteArray("one"));
    QVERIFY(!pollRecords());
    QVERIFY(copyAndRecord("three")); // another program takes over again
    QCOMPARE(previews(), (QStringList{"three", "one", "two"}));
}

void IslandClipboardTest::secretsAndImagesNeverReachTheDisk()
{
    make();
    QVERIFY(copyAndRecord("plain note"));
    QVERIFY(copyAndRecord("password = \"hunter22x\""));
    const ClipItem secret = m_clipboard->clips().first();
    QVERIFY(secret.secret);
    QVERIFY(offer({"--image", "400x200"}));
    QVERIFY(pollRecords());
    const ClipItem image = m_clipboard->clips().first();
    QCOMPARE(image.preview, QStringLiteral("Image 400\u00D7200"));
    QCOMPARE(QImage::fromData(m_clipboard->images().image(image.id).value().thumbnailPng).size(), QSize(120, 60));

    const QByteArray saved = savedFile();
    QVERIFY(!saved.contains("hunter22x"));
    QCOMPARE(QJsonDocument::fromJson(saved).array().size(), 1); // neither the secret nor the image
    QCOMPARE(test::TempHome::mode(m_home->paths().clipboardFile()), 0600);
    m_clipboard->copyBack(secret.id); // the real value, not the mask
    QCOMPARE(paste(), QByteArray("password = \"hunter22x\""));
    make(); // a restart forgets both
    QCOMPARE(previews(), QStringList{"plain note"});
}

void IslandClipboardTest::pinnedClipsSurviveEvictionAndClearAll()
{
    const auto clip = [](const QString &id, const QString &text, bool pinned) {
        return ClipItem{id, ClipKind::Text, id, text, pinned, 0, {}, false}.toJson();
    };
    // An old history, saved before secrets were scrubbed: the first load keeps pinned clips only.
    QJsonArray old{clip("kept", "kept", true), clip("S", "api_key=abcdef123", true)};
    for (int i = 0; i < 50; ++i)
        old.append(clip(QString::number(i), "t" + QString::number(i), false));
    const QString file = m_home->paths().clipboardFile();
    test::TempHome::write(file, QJsonDocument(old).toJson());
    make();
    QCOMPARE(previews(), QStringList{"kept"});
    QVERIFY(!savedFile().contains("abcdef123") && !savedFile().contains("t49"));

    test::TempHome::write(file, QJsonDocument(old).toJson()); // once scrubbed, unpinned clips load too
    make();
    QCOMPARE(m_clipboard->clips().size(), 51);
    QVERIFY(copyAndRecord("new"));
    QCOMPARE(m_clipboard->clips().size(), 51);
    QCOMPARE(previews().mid(0, 2), (QStringList{"new", "kept"}));
    QVERIFY(!previews().contains("49"));
    m_clipboard->clearAll();
    make();
    QCOMPARE(previews(), QStringList{"kept"});
    QVERIFY(m_clipboard->clips().first().pinned);
}

QTEST_MAIN(IslandClipboardTest)
#include "IslandClipboardTest.moc"
