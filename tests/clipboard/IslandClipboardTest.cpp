#include "clipboard/IslandClipboard.h"
#include "ClipboardDriver.h"
#include "FakeClock.h"
#include "TempHome.h"
#include "app/AppActivity.h"
#include "app/IslandScheduler.h"
#include "clipboard/ClipText.h"
#include "platform/linux/QtPasteboard.h"
#include "platform/linux/X11FrontmostApp.h"
#include "secrets/SecretScanner.h"

#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>

using namespace vaxo;

// The history on the real X clipboard: other programs copy (xclip, clip_offer), the scheduler's job
// polls on a fake clock, scans run on the clipboard's own queue.
class IslandClipboardTest : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void followsCopiesOfOtherPrograms();
    void concealedAndPasswordManagerCopiesLeaveNoTrace();
    void secretsNeverReachTheDisk();
    void copyBackIsNotCapturedAgain();
    void pinnedClipsSurviveClearAllAndRestart();
    void imagesStayInMemory();
    void filesAndTextLimits();
    void settingSwitchesTheJob();
    void firstLoadScrubsOldHistory();

private:
    std::unique_ptr<IslandClipboard> make();
    void startClipboard();
    // One tick of the job, its scans settled; true when the history changed.
    bool pollRecords();
    // Another program copies the text (as `type`); true when the next tick records it.
    bool copyAndRecord(const QByteArray &text, const QString &type = {});
    QStringList previews() const;
    QByteArray savedFile() const { return test::TempHome::read(m_home->paths().clipboardFile()); }

    std::unique_ptr<test::TempHome> m_home;
    std::unique_ptr<QSettings> m_settings;
    test::FakeClock m_clock;
    AppActivity m_activity{{}, {}};
    IslandScheduler m_scheduler{m_clock, m_activity, nullptr};
    linux_platform::QtPasteboard m_pasteboard;
    linux_platform::X11FrontmostApp m_frontmost;
    std::unique_ptr<test::ClipboardDriver> m_driver;
    std::unique_ptr<IslandClipboard> m_clipboard;
};

namespace {
const QString kMask = QString::fromUtf16(SecretScanner::mask.data(), qsizetype(SecretScanner::mask.size()));
}

void IslandClipboardTest::init()
{
    m_home = std::make_unique<test::TempHome>();
    m_settings = std::make_unique<QSettings>(m_home->paths().settingsFile(), QSettings::IniFormat);
    m_driver = std::make_unique<test::ClipboardDriver>(m_pasteboard, m_home->root());
}

void IslandClipboardTest::cleanup()
{
    m_clipboard.reset();
    m_driver.reset();
}

std::unique_ptr<IslandClipboard> IslandClipboardTest::make()
{
    return std::make_unique<IslandClipboard>(m_pasteboard, m_frontmost, m_scheduler, *m_settings, m_home->paths(),
                                             m_clock);
}

void IslandClipboardTest::startClipboard()
{
    m_clipboard = make();
    m_clipboard->start();
}

bool IslandClipboardTest::copyAndRecord(const QByteArray &text, const QString &type)
{
    return m_driver->copy(text, type) && pollRecords();
}

bool IslandClipboardTest::pollRecords()
{
    QSignalSpy changed(m_clipboard.get(), &IslandClipboard::itemsChanged);
    m_clock.advance(IslandClipboard::kActiveInterval);
    m_clipboard->settle();
    return !changed.isEmpty();
}

QStringList IslandClipboardTest::previews() const
{
    QStringList out;
    for (const ClipItem &clip : m_clipboard->clips())
        out << clip.preview;
    return out;
}

void IslandClipboardTest::followsCopiesOfOtherPrograms()
{
    QVERIFY(m_driver->copy("there before the start"));
    startClipboard();
    QVERIFY(m_scheduler.hasJob(IslandClipboard::kJobName));
    QVERIFY(!pollRecords()); // the content at start is not captured

    QVERIFY(copyAndRecord("hello  world\n"));
    const ClipItem first = m_clipboard->clips().first();
    QCOMPARE(first.preview, QStringLiteral("hello world"));
    QCOMPARE(*first.text, QStringLiteral("hello  world\n"));
    QCOMPARE(first.copiedAt, m_clock.now());
    QVERIFY(!first.sourceApp); // xclip has no window
    QCOMPARE(first.id, first.id.toUpper());

    QVERIFY(copyAndRecord("https://example.com/x"));
    QCOMPARE(m_clipboard->clips().first().kind, ClipKind::Link);
    QVERIFY(copyAndRecord("hello  world\n"));
    QCOMPARE(previews(), (QStringList{"hello world", "https://example.com/x"}));
    QVERIFY(m_clipboard->clips().first().copiedAt > first.copiedAt);

    QCOMPARE(test::TempHome::mode(m_home->paths().clipboardFile()), 0600);
    QCOMPARE(m_clipboard->store().load().value(), m_clipboard->clips());
    QCOMPARE(m_clipboard->itemList().size(), 2);
}

void IslandClipboardTest::concealedAndPasswordManagerCopiesLeaveNoTrace()
{
    startClipboard();
    QVERIFY(m_driver->offer({"--text", "hunter2 from a vault", "--hint"}));
    QVERIFY(!pollRecords());
    QVERIFY(m_driver->copy("concealed", QStringLiteral("org.nspasteboard.ConcealedType")));
    QVERIFY(!pollRecords());

    QVERIFY(m_driver->offer({"--text", "copied in keepassxc", "--window", "KeePassXC"}));
    QTRY_COMPARE(m_frontmost.current().value_or(AppIdentity()).instance, QStringLiteral("keepassxc"));
    QVERIFY(!pollRecords());
    QVERIFY(m_clipboard->clips().isEmpty());

    // The same copy from an ordinary application is recorded, with its name.
    QVERIFY(m_driver->offer({"--text", "a note", "--window", "Gedit"}));
    QVERIFY(pollRecords());
    QCOMPARE(previews(), QStringList{"a note"});
    QCOMPARE(m_clipboard->clips().first().sourceApp.value_or(QString()), QStringLiteral("Gedit"));
    m_driver->release();
    QVERIFY(!pollRecords()); // the owner left and took its content along

    const QByteArray saved = savedFile();
    QVERIFY(!saved.contains("vault") && !saved.contains("keepassxc") && !saved.contains("concealed"));
}

void IslandClipboardTest::secretsNeverReachTheDisk()
{
    startClipboard();
    QVERIFY(copyAndRecord("plain note"));
    QVERIFY(copyAndRecord("password = \"hunter22x\""));
    const ClipItem secret = m_clipboard->clips().first();
    QVERIFY(secret.secret);
    QCOMPARE(secret.preview, "password = \"" + kMask + "\"");
    QCOMPARE(*secret.text, QStringLiteral("password = \"hunter22x\""));

    const QByteArray saved = savedFile();
    QVERIFY(!saved.contains("hunter22x"));
    QVERIFY(!saved.contains(secret.id.toUtf8()));
    QCOMPARE(QJsonDocument::fromJson(saved).array().size(), 1);
    QCOMPARE(test::TempHome::mode(m_home->paths().clipboardFile()), 0600);

    // Copying it back gives the real value; a restart forgets it.
    m_clipboard->copyBack(secret.id);
    QCOMPARE(m_driver->paste(), QByteArray("password = \"hunter22x\""));
    m_clipboard = make();
    QCOMPARE(previews(), QStringList{"plain note"});
}

void IslandClipboardTest::copyBackIsNotCapturedAgain()
{
    startClipboard();
    QVERIFY(copyAndRecord("one"));
    QVERIFY(copyAndRecord("two"));
    const QString one = m_clipboard->clips().last().id;

    m_clock.advance(5);
    QSignalSpy changed(m_clipboard.get(), &IslandClipboard::itemsChanged);
    m_clipboard->copyBack(one);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(previews(), (QStringList{"one", "two"}));
    QCOMPARE(m_clipboard->clips().first().copiedAt, m_clock.now());
    QCOMPARE(m_driver->paste(), QByteArray("one"));
    QVERIFY(!pollRecords());
    QCOMPARE(m_clipboard->clips().size(), 2);

    QVERIFY(m_driver->copy("three")); // another program takes over again
    QVERIFY(pollRecords());
    QCOMPARE(previews(), (QStringList{"three", "one", "two"}));
}

void IslandClipboardTest::pinnedClipsSurviveClearAllAndRestart()
{
    startClipboard();
    for (const char *text : {"a", "b", "c"}) {
        QVERIFY(copyAndRecord(text));
    }
    m_clipboard->togglePin(m_clipboard->clips().at(1).id);
    QCOMPARE(previews(), (QStringList{"b", "c", "a"}));
    QVERIFY(m_clipboard->clips().first().pinned);
    m_clipboard->clearAll();
    QCOMPARE(previews(), QStringList{"b"});
    m_clipboard = make();
    QCOMPARE(previews(), QStringList{"b"});
    QVERIFY(m_clipboard->clips().first().pinned);
}

void IslandClipboardTest::imagesStayInMemory()
{
    startClipboard();
    QVERIFY(copyAndRecord("words"));
    QVERIFY(m_driver->offer({"--image", "400x200"}));
    QVERIFY(pollRecords());
    const ClipItem image = m_clipboard->clips().first();
    QCOMPARE(image.kind, ClipKind::Image);
    QCOMPARE(image.preview, QStringLiteral("Image 400\u00D7200"));
    QVERIFY(!image.text);
    const QImage thumbnail = QImage::fromData(m_clipboard->images().image(image.id).value().thumbnailPng);
    QCOMPARE(thumbnail.size(), QSize(120, 60));
    QVERIFY(!savedFile().contains(image.id.toUtf8()));

    m_driver->release();
    m_clipboard->copyBack(image.id);
    QVERIFY(m_driver->paste(QStringLiteral("TARGETS")).contains("image/png"));
    QCOMPARE(m_clipboard->clips().size(), 2);

    m_clipboard->clearAll();
    QCOMPARE(m_clipboard->images().size(), 0);
    QVERIFY(m_driver->offer({"--image", "40x30"}));
    QVERIFY(pollRecords());
    QCOMPARE(QImage::fromData(m_clipboard->images().image(m_clipboard->clips().first().id)->thumbnailPng).size(),
             QSize(40, 30)); // small images are not enlarged
    m_clipboard = make();
    QVERIFY(m_clipboard->clips().isEmpty());
}

void IslandClipboardTest::filesAndTextLimits()
{
    startClipboard();
    QVERIFY(copyAndRecord("file:///tmp/a%20b.txt\r\nfile:///tmp/c.png\r\n", QStringLiteral("text/uri-list")));
    const ClipItem files = m_clipboard->clips().first();
    QCOMPARE(files.kind, ClipKind::File);
    QCOMPARE(files.preview, QStringLiteral("a b.txt, c.png"));
    QCOMPARE(*files.text, QStringLiteral("/tmp/a b.txt\n/tmp/c.png"));

    const QByteArray limit(IslandClipboard::kMaxTextBytes, 'x');
    QVERIFY(m_driver->copy(limit + "y"));
    QVERIFY(!pollRecords());
    QVERIFY(m_driver->copy(QString(IslandClipboard::kMaxTextBytes / 2 + 1, QChar(0xE9)).toUtf8()));
    QVERIFY(!pollRecords()); // counted in UTF-8 bytes, not in characters
    QVERIFY(m_driver->copy(" \n\t "));
    QVERIFY(!pollRecords());
    QVERIFY(copyAndRecord(limit));
    QCOMPARE(m_clipboard->clips().first().preview.size(), ClipText::kPreviewLimit + 1);
}

void IslandClipboardTest::settingSwitchesTheJob()
{
    m_settings->setValue(IslandClipboard::kEnabledKey, QStringLiteral("maybe")); // not a boolean: on
    m_clipboard = make();
    QVERIFY(m_clipboard->enabled());
    m_clipboard->start();
    QVERIFY(m_scheduler.hasJob(IslandClipboard::kJobName));

    QSignalSpy switched(m_clipboard.get(), &IslandClipboard::enabledChanged);
    m_clipboard->setEnabled(false);
    QCOMPARE(switched.size(), 1);
    QVERIFY(!m_scheduler.hasJob(IslandClipboard::kJobName));
    QCOMPARE(QSettings(m_home->paths().settingsFile(), QSettings::IniFormat).value(IslandClipboard::kEnabledKey),
             QVariant(QStringLiteral("false")));
    QVERIFY(m_driver->copy("copied while off"));
    m_clipboard->poll();
    QVERIFY(m_clipboard->clips().isEmpty());

    m_clipboard->setEnabled(true);
    QVERIFY(m_scheduler.hasJob(IslandClipboard::kJobName));
    QVERIFY(!pollRecords());
    QVERIFY(copyAndRecord("copied while on"));
    QCOMPARE(previews(), QStringList{"copied while on"});
    m_clipboard->stop();
    QVERIFY(!m_scheduler.hasJob(IslandClipboard::kJobName));
}

void IslandClipboardTest::firstLoadScrubsOldHistory()
{
    auto clip = [](const char *id, const char *text, bool pinned) {
        return ClipItem{id, ClipKind::Text, text, QString::fromUtf8(text), pinned, 1, {}, false}.toJson();
    };
    const QByteArray old = QJsonDocument(QJsonArray{clip("A", "plain", false), clip("B", "kept", true),
                                                    clip("C", "api_key=abcdef123", true)})
                               .toJson();
    const QString file = m_home->paths().clipboardFile();
    test::TempHome::write(file, old);
    m_clipboard = make();
    QCOMPARE(previews(), QStringList{"kept"});
    QVERIFY(m_settings->value(IslandClipboard::kScrubbedKey).toBool());
    QVERIFY(!savedFile().contains("plain") && !savedFile().contains("abcdef123"));

    // Once scrubbed, unpinned clips load too; a secret never does.
    test::TempHome::write(file, old);
    m_clipboard = make();
    QCOMPARE(previews(), (QStringList{"plain", "kept"}));
    QVERIFY(!savedFile().contains("abcdef123"));

    test::TempHome::write(file, "not json");
    m_clipboard = make();
    QVERIFY(m_clipboard->clips().isEmpty());
}

QTEST_MAIN(IslandClipboardTest)
#include "IslandClipboardTest.moc"
