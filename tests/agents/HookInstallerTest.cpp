#include "agents/HookInstaller.h"
#include "FakeClock.h"
#include "ScriptRun.h"
#include "TempHome.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>

using vaxo::HookInstaller;
using vaxo::test::FakeClock;
using vaxo::test::TempHome;

class HookInstallerTest : public QObject {
    Q_OBJECT
private slots:
    void scriptsAreWrittenEvenWithoutClaudeCode();
    void mergeKeepsWhatIsThere_data();
    void mergeKeepsWhatIsThere();
    void completeSettingsAreLeftByteForByte();
    void oneBackupPerDay();
};

namespace {

constexpr double kDay1 = 1'750'000'000.0; // 2025-06-15 UTC
const QString kInfo = QStringLiteral("[island] Claude Code hooks installed");

QString backupOf(const HookInstaller &installer, const QString &day)
{
    return installer.claudeFolder() + QStringLiteral("/settings.json.bak-vaxo-island-") + day;
}

QJsonObject settings(const HookInstaller &installer)
{
    return QJsonDocument::fromJson(TempHome::read(installer.settingsFile())).object();
}

} // namespace

void HookInstallerTest::scriptsAreWrittenEvenWithoutClaudeCode()
{
    TempHome home;
    FakeClock clock;
    const HookInstaller installer(home.paths(), home.root(), clock);
    QTest::ignoreMessage(QtInfoMsg, "[island] no ~/.claude \u2014 skipping hook install until Claude Code is set up");
    installer.installIfNeeded();

    QVERIFY(!QFileInfo::exists(installer.claudeFolder()));
    QCOMPARE(TempHome::mode(home.paths().hookScript()), 0755);
    const QByteArray hook = TempHome::read(home.paths().hookScript());
    QVERIFY(hook.startsWith("#!/bin/bash\n"));
    QVERIFY(hook.contains("DIR=\"" + home.paths().sessions().toUtf8() + "\"\n"));
    QVERIFY(!hook.contains('@'));
    QCOMPARE(TempHome::read(home.paths().reporterScript()), TempHome::read(vaxo::test::sourceReporter()));
}

void HookInstallerTest::mergeKeepsWhatIsThere_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<bool>("backedUp");

    QTest::newRow("no settings file") << QByteArray() << false;
    QTest::newRow("other tools' hooks beside ours")
        << QByteArray(R"({"model":"opus","hooks":{"Stop":[{"hooks":[{"type":"command","command":"other-tool stop"}]}],
                       "PreToolUse":[{"matcher":"Bash","hooks":[{"type":"command","command":"guard"}]}]}})")
        << true;
    QTest::newRow("not a JSON object") << QByteArray("[1, 2, 3]") << true;
    QTest::newRow("not JSON at all") << QByteArray("{\"hooks\": ") << true;
    QTest::newRow("hooks not an object") << QByteArray(R"({"hooks":"none","env":{"A":"1"}})") << true;
    QTest::newRow("event not an array of objects") << QByteArray(R"({"hooks":{"Stop":["echo"]}})") << true;
}

void HookInstallerTest::mergeKeepsWhatIsThere()
{
    QFETCH(QByteArray, before);
    QFETCH(bool, backedUp);

    TempHome home;
    FakeClock clock(kDay1);
    const HookInstaller installer(home.paths(), home.root(), clock);
    QDir().mkpath(installer.claudeFolder());
    if (!before.isNull()) {
        TempHome::write(installer.settingsFile(), before);
        QFile::setPermissions(installer.settingsFile(), QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    }
    QTest::ignoreMessage(QtInfoMsg, qPrintable(kInfo));
    installer.installIfNeeded();

    // Ours come last in each event's list...
    const QJsonObject after = settings(installer);
    const QJsonObject hooks = after.value("hooks").toObject();
    for (const QString &event : HookInstaller::events()) {
        const QJsonObject ours{
            {"hooks", QJsonArray{QJsonObject{{"type", "command"}, {"command", installer.hookCommand(event)}}}}};
        QCOMPARE(hooks.value(event).toArray().last().toObject(), ours);
    }
    // ...after everything that was there: other keys as they were, other tools' entries first.
    const QJsonObject original = QJsonDocument::fromJson(before).object();
    for (auto it = original.begin(); it != original.end(); ++it) {
        if (it.key() != "hooks")
            QCOMPARE(after.value(it.key()), it.value());
    }
    const QJsonObject originalHooks = original.value("hooks").toObject();
    for (auto it = originalHooks.begin(); it != originalHooks.end(); ++it) {
        const QJsonArray was = it.value().toArray();
        if (std::all_of(was.begin(), was.end(), [](const QJsonValue &v) { return v.isObject(); })) {
            for (qsizetype i = 0; i < was.size(); ++i)
                QCOMPARE(hooks.value(it.key()).toArray().at(i), was.at(i));
        }
    }
    QCOMPARE(QFileInfo::exists(backupOf(installer, "2025-06-15")), backedUp);
    if (backedUp) {
        QCOMPARE(TempHome::read(backupOf(installer, "2025-06-15")), before);
        QCOMPARE(TempHome::mode(installer.settingsFile()), 0600); // the user's own permissions stay
    }
    // Pretty-printed with sorted keys; the command quotes the hook path, which holds a space.
    QCOMPARE(TempHome::read(installer.settingsFile()), QJsonDocument(after).toJson(QJsonDocument::Indented));
    QCOMPARE(installer.hookCommand("Stop"), '"' + home.paths().hookScript() + "\" Stop");
}

void HookInstallerTest::completeSettingsAreLeftByteForByte()
{
    TempHome home;
    FakeClock clock(kDay1);
    const HookInstaller installer(home.paths(), home.root(), clock);
    QDir().mkpath(installer.claudeFolder());
    // All six registered by hand in an order and layout of our own, our command inside a longer one.
    QJsonObject hooks;
    for (const QString &event : HookInstaller::events()) {
        const QString command = "nice " + installer.hookCommand(event);
        hooks.insert(event, QJsonArray{QJsonObject{{"hooks", QJsonArray{QJsonObject{{"command", command}}}}}});
    }
    const QByteArray before = QJsonDocument(QJsonObject{{"hooks", hooks}}).toJson(QJsonDocument::Compact) + "\n";
    TempHome::write(installer.settingsFile(), before);

    QVERIFY(!installer.mergeSettings());
    installer.installIfNeeded();
    QCOMPARE(TempHome::read(installer.settingsFile()), before);
    QCOMPARE(QDir(installer.claudeFolder()).entryList(QDir::Files), QStringList{"settings.json"});
}

void HookInstallerTest::oneBackupPerDay()
{
    TempHome home;
    FakeClock clock(kDay1);
    const HookInstaller installer(home.paths(), home.root(), clock);
    QDir().mkpath(installer.claudeFolder());
    TempHome::write(installer.settingsFile(), R"({"first": true})");
    QVERIFY(installer.mergeSettings());

    // Claude Code's settings lose our hooks later the same day: the morning's backup stays.
    TempHome::write(installer.settingsFile(), R"({"second": true})");
    clock.advance(3600);
    QVERIFY(installer.mergeSettings());
    QCOMPARE(TempHome::read(backupOf(installer, "2025-06-15")), QByteArray(R"({"first": true})"));
    QVERIFY(settings(installer).value("second").toBool());

    TempHome::write(installer.settingsFile(), R"({"third": true})");
    clock.advance(86400);
    QVERIFY(installer.mergeSettings());
    QCOMPARE(TempHome::read(backupOf(installer, "2025-06-16")), QByteArray(R"({"third": true})"));
}

QTEST_GUILESS_MAIN(HookInstallerTest)
#include "HookInstallerTest.moc"
