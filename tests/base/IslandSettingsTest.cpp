#include "base/IslandSettings.h"
#include "island/IslandLook.h"

#include "FakeClock.h"
#include "StateFixture.h"

#include <QSignalSpy>
#include <QTest>

using namespace vaxo;

// Every setting through one object: what a stored value means, and a signal only for a real change.
class IslandSettingsTest : public QObject {
    Q_OBJECT
private slots:
    void init()
    {
        m_home = std::make_unique<test::TempHome>();
        m_file = m_home->paths().settingsFile();
    }

    void storedBooleans_data()
    {
        QTest::addColumn<QVariant>("stored");
        QTest::addColumn<bool>("meaning"); // for a setting whose default is true
        QTest::newRow("absent") << QVariant() << true;
        QTest::newRow("false") << QVariant(false) << false;
        QTest::newRow("word") << QVariant("false") << false;
        QTest::newRow("word in capitals") << QVariant(" FALSE ") << false;
        QTest::newRow("true word") << QVariant("true") << true;
        QTest::newRow("zero counts as absent") << QVariant(0) << true;
        QTest::newRow("other word counts as absent") << QVariant("no") << true;
    }
    void storedBooleans()
    {
        QFETCH(QVariant, stored);
        QFETCH(bool, meaning);
        if (stored.isValid())
            QSettings(m_file, QSettings::IniFormat).setValue("vaxoIslandSound", stored);
        const IslandSettings settings(m_file);
        QCOMPARE(settings.sound(), meaning);
        QCOMPARE(settings.enabled(), true);
    }

    void changesAreStoredAtOnceAndAnnouncedOnce()
    {
        IslandSettings settings(m_file);
        QCOMPARE(settings.accent(), QStringLiteral("blue"));
        QCOMPARE(settings.clipRows(), 2);
        QSignalSpy accent(&settings, &IslandSettings::accentChanged);
        QSignalSpy anim(&settings, &IslandSettings::animChanged);
        settings.setAccent("green");
        settings.setAccent("green");
        settings.setAnim("pulse"); // the default already
        QCOMPARE(accent.size(), 1);
        QCOMPARE(anim.size(), 0);
        settings.setAnim("calm");
        QVERIFY(settings.calm());
        settings.setClipRows(9); // out of range: refused
        settings.setClipRows(4);
        settings.setClipScrubbed(true);
        const IslandSettings reread(m_file);
        QCOMPARE(reread.accent(), QStringLiteral("green"));
        QCOMPARE(reread.clipRows(), 4);
        QVERIFY(reread.clipScrubbed());
        QCOMPARE(QSettings(m_file, QSettings::IniFormat).value("vaxoIslandAnim").toString(), QStringLiteral("calm"));
    }

    void unknownValuesShowTheDefaults()
    {
        QSettings stored(m_file, QSettings::IniFormat);
        stored.setValue("vaxoIslandTab", "weather");
        stored.setValue("vaxoIslandIcon", "rocket");
        stored.setValue("vaxoIslandAccent", "chartreuse");
        stored.setValue("vaxoIslandClipRows", "many");
        stored.sync();
        IslandSettings settings(m_file);
        test::RecordingSounds sounds;
        test::FakeClock clock;
        IslandState state(std::make_unique<test::ManualSource>(), clock, settings, sounds);
        IslandLook look(settings, state);
        QCOMPARE(look.tab(), IslandLook::Tab::Agents);
        QCOMPARE(look.restIcon(), IslandLook::RestIcon::Face);
        QCOMPARE(look.accent(), QStringLiteral("#0a84ff"));
        QCOMPARE(settings.clipRows(), 2);
        QSignalSpy tab(&look, &IslandLook::tabChanged);
        look.setTab(IslandLook::Tab::Clipboard);
        QCOMPARE(settings.tab(), QStringLiteral("clipboard"));
        QCOMPARE(tab.size(), 1);

        QSignalSpy backdrop(&look, &IslandLook::backdropChanged);
        settings.setBackdrop("Sunset Beach.png");
        QCOMPARE(look.backdrop(), QStringLiteral("image://backdrop/6/Sunset%20Beach.png"));
        settings.setBackdropFocus("sharp");
        QCOMPARE(look.backdrop(), QStringLiteral("image://backdrop/1/Sunset%20Beach.png"));
        QCOMPARE(backdrop.size(), 2);
    }

private:
    std::unique_ptr<test::TempHome> m_home;
    QString m_file;
};

QTEST_GUILESS_MAIN(IslandSettingsTest)
#include "IslandSettingsTest.moc"
