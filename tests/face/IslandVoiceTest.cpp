#include "face/IslandVoice.h"
#include "platform/linux/SpeechdSynthesizer.h"

#include "FakeSpeechSynthesizer.h"
#include "PrivateSpeech.h"
#include "TestTable.h"

#include <QLocalServer>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTest>

using namespace vaxo;
using Voice = SpeechSynthesizer::Voice;

// About a minute and a half of speech.
static const QString kLongLine =
    QStringLiteral("Three agents are running and one of them needs your permission. ").repeated(25);

// The voice: the one it chooses, and lines spoken by a real speech-dispatcher into a file.
class IslandVoiceTest : public QObject {
    Q_OBJECT
private slots:
    void choosesTheFirstVoiceOfTheUsersLanguage_data()
    {
        QTest::addColumn<QByteArray>("installed"); // name:language, in the service's order
        QTest::addColumn<QByteArray>("language");
        QTest::addColumn<QByteArray>("chosen");
        test::rows(R"(
            exact beats the order      | Caribbean:en-029 Britain:en-GB America:en-US Bronx:en-US | en-US | America
            region elsewhere           | German:de-DE Britain:en-GB Scotland:en-GB                | en-US | Britain
            no voice of the language   | German:de-DE French:fr-FR                                | en-US | German
            nothing installed          |                                                          | en-US |
            language without region    | Britain:en-GB Plain:en                                   | en    | Plain
        )");
    }

    void choosesTheFirstVoiceOfTheUsersLanguage()
    {
        QFETCH(QByteArray, installed);
        QFETCH(QByteArray, language);
        QFETCH(QByteArray, chosen);
        QList<Voice> voices;
        for (const QByteArray &voice : installed.split(' '))
            if (!voice.isEmpty())
                voices.append({QString::fromUtf8(voice.split(':')[0]), QString::fromUtf8(voice.split(':')[1])});
        QCOMPARE(IslandVoice::chooseVoice(voices, QString::fromUtf8(language)), QString::fromUtf8(chosen));
    }

    void userLanguage()
    {
        QCOMPARE(IslandVoice::userLanguage(QLocale(QLocale::English, QLocale::UnitedStates)), QStringLiteral("en-US"));
        QCOMPARE(IslandVoice::userLanguage(QLocale(QLocale::Portuguese, QLocale::Brazil)), QStringLiteral("pt-BR"));
        QCOMPARE(IslandVoice::userLanguage(QLocale::c()), QStringLiteral("en-US"));
    }

    void firstLineWaitsForTheVoicesThenEachLineStopsTheOneBefore()
    {
        test::FakeSpeechSynthesizer synth;
        synth.installed = {{"Britain", "en-GB"}, {"America", "en-US"}};
        IslandVoice voice(synth, QStringLiteral("en-US"));
        voice.say(QString(), 0.5);
        QVERIFY(synth.calls.isEmpty());
        voice.say(QStringLiteral("Nothing running."), 0.5);
        voice.say(QStringLiteral("All quiet."), 0.5); // replaces the line still waiting
        QCOMPARE(synth.calls, QStringList{"list"});
        emit synth.voicesListed();
        QCOMPARE(synth.calls.mid(1), QStringList{"speak America: All quiet."});

        synth.installed = {{"Other", "en-US"}}; // chosen once: a later list changes nothing
        emit synth.voicesListed();
        voice.say(QString(), 0.5);
        voice.say(QStringLiteral("api is working."), 0.5);
        QCOMPARE(synth.calls.mid(2), (QStringList{"stop", "speak America: api is working."}));
        synth.speaking = false;
        voice.say(QStringLiteral("All quiet."), 0.5);
        QCOMPARE(synth.calls.mid(4), QStringList{"speak America: All quiet."});
    }

    void aNewLineCutsTheOldOneAndAnEmptyLineChangesNothing()
    {
        if (QStandardPaths::findExecutable(QStringLiteral("speech-dispatcher")).isEmpty())
            QSKIP("needs speech-dispatcher");
        test::PrivateSpeech service;
        QVERIFY(service.ready());
        qputenv("SPEECHD_ADDRESS", service.address().toUtf8());
        linux_platform::SpeechdSynthesizer synth;
        IslandVoice voice(synth, QStringLiteral("en-US"));
        constexpr int kLong = 120000; // the first line waits for thousands of voices to be listed

        // The long line, then an empty one: the long line is heard whole.
        voice.say(kLongLine, 0.5);
        voice.say(QString(), 0.5);
        QTRY_VERIFY_WITH_TIMEOUT(service.spoken() > 0 && !synth.isSpeaking(), kLong);
        const qint64 whole = service.spoken();
        QVERIFY(!synth.voices().isEmpty());

        // The long line, then a short one: only a little of the long line is heard, if any.
        voice.say(kLongLine, 0.5);
        voice.say(QStringLiteral("All quiet."), 0.5);
        QTRY_VERIFY_WITH_TIMEOUT(service.spoken() > whole && !synth.isSpeaking(), kLong);
        const qint64 cut = service.spoken() - whole;
        QVERIFY2(cut < whole / 2, qPrintable(QStringLiteral("%1 of %2 bytes").arg(cut).arg(whole)));
    }

    void aMissingOrStuckServiceHoldsNothingUp()
    {
        // A socket nobody serves, which speech-dispatcher's autospawn refuses to start a service for.
        QTemporaryDir dir;
        qputenv("SPEECHD_ADDRESS", "unix_socket:" + dir.filePath(QStringLiteral("none.sock")).toUtf8());
        {
            linux_platform::SpeechdSynthesizer synth;
            IslandVoice voice(synth, QStringLiteral("en-US"));
            QSignalSpy listed(&synth, &SpeechSynthesizer::voicesListed);
            voice.say(QStringLiteral("Nothing running."), 0.5);
            QTRY_COMPARE_WITH_TIMEOUT(listed.count(), 1, 30000);
            QVERIFY(synth.voices().isEmpty());
            QTRY_VERIFY(!synth.isSpeaking());
        }
        // A service that takes the connection and never answers.
        QLocalServer stuck;
        QVERIFY(stuck.listen(dir.filePath(QStringLiteral("stuck.sock"))));
        qputenv("SPEECHD_ADDRESS", "unix_socket:" + stuck.fullServerName().toUtf8());
        {
            linux_platform::SpeechdSynthesizer synth;
            IslandVoice voice(synth, QStringLiteral("en-US"));
            QSignalSpy listed(&synth, &SpeechSynthesizer::voicesListed);
            voice.say(QStringLiteral("Nothing running."), 0.5);
            voice.say(QStringLiteral("All quiet."), 0.5);
            QTRY_VERIFY(stuck.hasPendingConnections());
            QCOMPARE(listed.count(), 0);
        } // and ending it leaves the stuck thread behind instead of waiting for it
    }
};

QTEST_GUILESS_MAIN(IslandVoiceTest)
#include "IslandVoiceTest.moc"
