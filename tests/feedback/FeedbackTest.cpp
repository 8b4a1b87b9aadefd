#include "feedback/Feedback.h"
#include "platform/linux/QtPasteboard.h"
#include "platform/linux/XdgMailDrafts.h"

#include "FakeClock.h"
#include "TempHome.h"
#include "TestTable.h"

#include <QGuiApplication>
#include <QProcess>
#include <QSignalSpy>
#include <QTest>
#include <QUrlQuery>

using namespace vaxo;

namespace {

// A mail program that takes every draft, or none.
struct RecordingMail final : MailDrafts {
    bool takes = true;
    QList<QUrl> drafts;
    bool open(const QUrl &mailto) override
    {
        drafts << mailto;
        return takes;
    }
};

Diagnostics facts()
{
    return {"1.2=3&4 (build ?)", "Debian GNU/Linux 12 (bookworm)", "ThinkPad X1", "x86_64", true, 2};
}

// What other programs read from the clipboard, read as they do while this one serves it.
QString clipboardSeenByOthers()
{
    QProcess xclip;
    xclip.start("xclip", {"-o", "-selection", "clipboard"});
    if (!QTest::qWaitFor([&] { return xclip.state() == QProcess::NotRunning; }, 10000))
        return {};
    return QString::fromUtf8(xclip.readAllStandardOutput());
}

} // namespace

// The problem report and the diagnostics, with the real clipboard and a mail program that takes the
// draft or is missing.
class FeedbackTest : public QObject {
    Q_OBJECT
private slots:
    void initTestCase()
    {
        if (QGuiApplication::platformName() != QLatin1String("xcb"))
            QSKIP("needs an X server");
    }

    void diagnosticsBlock()
    {
        QCOMPARE(facts().text(), QStringLiteral("---- please keep this, it is what makes the report actionable ----\n"
                                                "VAXO Island : 1.2=3&4 (build ?)\n"
                                                "Linux       : Debian GNU/Linux 12 (bookworm)\n"
                                                "Machine     : ThinkPad X1 (x86_64)\n"
                                                "Accessibility: granted\n"
                                                "Custom face : yes, 2 mood(s)"));
        Diagnostics bare{Diagnostics::versionText("", ""), "Linux", "unknown", "arm64", false, 0};
        QVERIFY(bare.text().contains("VAXO Island : ? (build ?)\n"));
        QVERIFY(bare.text().contains("Accessibility: NOT granted \u2014 media buttons cannot work\n"));
        QVERIFY(bare.text().endsWith("Custom face : no"));
    }

    void theDraftKeepsTheBodyAndTheOutcomeShowsForSixSeconds()
    {
        test::FakeClock clock;
        linux_platform::QtPasteboard pasteboard;
        RecordingMail mail;
        Feedback feedback({pasteboard, mail}, facts, clock);
        feedback.reportProblem();
        QCOMPARE(feedback.outcome(), "Opened a draft in your mail app \u2014 nothing is sent until you send it");
        QCOMPARE(mail.drafts.size(), 1);
        const QByteArray address = mail.drafts.first().toEncoded();
        QVERIFY(address.startsWith("mailto:support@vaxo.ai?subject=VAXO%20Island%201.2%3D3%264%20(build%20"));
        QVERIFY(address.contains("&body=What%20happened%3F%0A%0A%0AWhat%20did%20you%20expect%20instead%3F"));
        QCOMPARE(address.count('&'), 1); // the one between subject and body
        QCOMPARE(address.count('='), 2);
        const QUrlQuery query(mail.drafts.first());
        QCOMPARE(query.queryItemValue("body", QUrl::FullyDecoded).right(facts().text().size()), facts().text());

        QSignalSpy changes(&feedback, &Feedback::outcomeChanged); // a new outcome replaces the old one
        feedback.copyDiagnostics();
        QCOMPARE(feedback.outcome(), "Diagnostics copied");
        QCOMPARE(clipboardSeenByOthers(), facts().text());
        clock.advance(4);
        feedback.copyDiagnostics(); // the same words again: no change, a new six seconds
        QCOMPARE(changes.size(), 1);
        clock.advance(5.9);
        QCOMPARE(feedback.outcome(), "Diagnostics copied");
        clock.advance(0.2);
        QCOMPARE(feedback.outcome(), QString());
        QCOMPARE(changes.size(), 2);
        QCOMPARE(clock.activeTimers(), 0);
    }

    void withoutAMailProgramTheReportIsOnTheClipboard()
    {
        test::TempHome home;
        for (const char *variable : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CONFIG_DIRS", "XDG_DATA_DIRS"})
            qputenv(variable, home.root().toUtf8());
        linux_platform::XdgMailDrafts mail; // no desktop here names a mail program
        test::FakeClock clock;
        linux_platform::QtPasteboard pasteboard;
        Feedback feedback({pasteboard, mail}, facts, clock);
        feedback.reportProblem();
        QCOMPARE(feedback.outcome(), "No mail app is set up \u2014 the report is on your clipboard, send it to "
                                     "support@vaxo.ai");
        const QString report = clipboardSeenByOthers();
        QVERIFY2(report.startsWith("To: support@vaxo.ai\nSubject: VAXO Island 1.2=3&4 (build ?) \u2014 problem "
                                   "report\n\nWhat happened?\n\n\nWhat did you expect instead?\n\n\n---- please"),
                 qPrintable(report));
        QVERIFY(report.endsWith("Custom face : yes, 2 mood(s)"));
    }
};

QTEST_MAIN(FeedbackTest)
#include "FeedbackTest.moc"
