#include "FakeClock.h"
#include "TempHome.h"
#include "TestTable.h"
#include "agents/HookInstaller.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRandomGenerator>
#include <QTest>

using vaxo::HookInstaller;
using vaxo::test::TempHome;

// Claude Code's settings in the installer's hands and in scripts/uninstall.sh: a person's settings
// are never damaged, whatever they hold.
class ClaudeSettingsTest : public QObject {
    Q_OBJECT
private slots:
    void init();
    void newFileHoldsOnlyOurHooks();
    void notAnObjectIsLeftAlone_data();
    void notAnObjectIsLeftAlone();
    void everyValueSurvivesInstallAndUninstall();
    void linkStaysALink();

private:
    QByteArray uninstall();
    QString settings() const { return m_installer->settingsFile(); }

    std::unique_ptr<TempHome> m_home;
    std::unique_ptr<vaxo::test::FakeClock> m_clock;
    std::unique_ptr<HookInstaller> m_installer;
};

namespace {
const char *kInstalled = "[island] Claude Code hooks installed";
const char *kLeftAlone = "[island] ~/.claude/settings.json is not a JSON object \u2014 hooks not installed";

// The document as a reader sees it, layout aside: punctuation, strings decoded, numbers and
// literals exactly as written. Two texts with equal tokens hold equal values, to the last digit.
QList<QByteArray> tokens(const QByteArray &text)
{
    QList<QByteArray> out;
    for (qsizetype i = 0; i < text.size();) {
        const char c = text.at(i);
        if (QByteArray(" \t\r\n").contains(c)) {
            ++i;
        } else if (QByteArray("{}[]:,").contains(c)) {
            out << QByteArray(1, c);
            ++i;
        } else if (c == '"') {
            qsizetype end = i + 1;
            while (text.at(end) != '"')
                end += text.at(end) == '\\' ? 2 : 1;
            const QByteArray token = text.mid(i, end + 1 - i);
            out << '"' + QJsonDocument::fromJson('[' + token + ']').array().at(0).toString().toUtf8();
            i = end + 1;
        } else {
            qsizetype end = i;
            while (end < text.size() && !QByteArray(" \t\r\n{}[]:,").contains(text.at(end)))
                ++end;
            out << text.mid(i, end - i);
            i = end;
        }
    }
    return out;
}

// Whether every token of part appears in whole, in order.
bool isWithin(const QList<QByteArray> &part, const QList<QByteArray> &whole)
{
    qsizetype at = 0;
    for (const QByteArray &token : whole)
        at += at < part.size() && part.at(at) == token;
    return at == part.size();
}

// A random JSON value as people write settings: nested objects and arrays, duplicate keys, text
// with escapes and every script, numbers in every form JSON allows.
QByteArray value(QRandomGenerator &random, int depth)
{
    static const QList<QByteArray> scalars =
        QByteArray("0|-0|1.0|-1.5e+300|1E2|2e-7|0.1|12345678901234567890|-123456789012345678901234567890|"
                   "9007199254740993|true|false|null|\"plain\"|"
                   R"("caf\u00e9 \ud83d\ude00 \/ \" \\ \n")"
                   "|\"\xe6\x97\xa5\xe6\x9c\xac \xd8\xb9\xd8\xb1\xd8\xa8\xd9\x8a\"|\"\"")
            .split('|');
    const int kind = depth > 2 ? 0 : int(random.bounded(4));
    if (kind == 0 || kind == 1)
        return scalars.at(random.bounded(int(scalars.size())));
    QByteArrayList items;
    for (int i = 0, n = int(random.bounded(4)); i < n; ++i)
        items << (kind == 2 ? value(random, depth + 1)
                            : "\"k" + QByteArray::number(random.bounded(3)) + "\": " + value(random, depth + 1));
    return (kind == 2 ? "[" : "{") + items.join(random.bounded(2) ? ", " : ",\n  ") + (kind == 2 ? "]" : "}");
}

// Settings with other tools' hooks, sometimes beside an event of ours, and other keys around them.
QByteArray document(QRandomGenerator &random)
{
    QByteArrayList members;
    for (int i = 0, n = int(random.bounded(5)); i < n; ++i)
        members << "\"key" + QByteArray::number(random.bounded(4)) + "\": " + value(random, 0);
    if (random.bounded(3) > 0) {
        QByteArrayList events;
        for (const char *event : {"Stop", "PreToolUse", "Notification"}) {
            if (random.bounded(2))
                events << QByteArray("\"") + event + R"(": [{"matcher": "", "hooks": [{"type": "command", )" +
                              R"("command": "notify-send \"done \u2014 ok\"", "timeout": 1.50}]}])";
        }
        if (!events.isEmpty())
            members.insert(random.bounded(int(members.size()) + 1), "\"hooks\": {" + events.join(", ") + "}");
    }
    return "{" + members.join(",\n") + "}\n";
}
} // namespace

void ClaudeSettingsTest::init()
{
    m_home = std::make_unique<TempHome>();
    m_clock = std::make_unique<vaxo::test::FakeClock>(1'750'000'000.0); // 2025-06-15 UTC
    m_installer = std::make_unique<HookInstaller>(m_home->paths(), m_home->root(), *m_clock);
    QDir().mkpath(m_installer->claudeFolder());
}

QByteArray ClaudeSettingsTest::uninstall()
{
    QProcess script;
    QProcessEnvironment env;
    env.insert("PATH", "/usr/bin:/bin");
    env.insert("HOME", m_home->root());
    env.insert("XDG_DATA_HOME", m_home->root() + "/data");
    env.insert("XDG_CONFIG_HOME", m_home->root() + "/config");
    env.insert("XDG_CACHE_HOME", m_home->root() + "/cache");
    script.setProcessEnvironment(env);
    script.start("/bin/bash", {qEnvironmentVariable("VAXO_SOURCE_DIR") + "/scripts/uninstall.sh", "--yes"});
    [&] {
        QVERIFY(script.waitForFinished(60'000));
        QVERIFY2(script.exitCode() == 0, script.readAllStandardError().constData());
    }();
    return TempHome::read(settings());
}

void ClaudeSettingsTest::newFileHoldsOnlyOurHooks()
{
    QTest::ignoreMessage(QtInfoMsg, kInstalled);
    QVERIFY(m_installer->mergeSettings());
    const QByteArray written = TempHome::read(settings());
    const QJsonObject root = QJsonDocument::fromJson(written).object();
    QCOMPARE(written, QJsonDocument(root).toJson(QJsonDocument::Indented)); // pretty, keys sorted
    const QJsonObject hooks = root.value("hooks").toObject();
    QCOMPARE(hooks.keys().size(), HookInstaller::events().size());
    for (const QString &event : HookInstaller::events()) {
        const QJsonObject ours{
            {"hooks", QJsonArray{QJsonObject{{"type", "command"}, {"command", m_installer->hookCommand(event)}}}}};
        QCOMPARE(hooks.value(event).toArray(), QJsonArray{ours});
    }
    QVERIFY(QDir(m_installer->claudeFolder()).entryList({"*.bak-*"}).isEmpty()); // nothing to back up
    QVERIFY(!m_installer->mergeSettings());                                      // all seven there
}

void ClaudeSettingsTest::notAnObjectIsLeftAlone_data()
{
    QTest::addColumn<QByteArray>("before");
    vaxo::test::rows(R"(
array             | [1, 2, 3]
half an edit      | {"hooks":
trailing comma    | {"model": "opus",}
comment           | {"model": "opus"} // mine
empty file        |
text              | "settings")");
}

void ClaudeSettingsTest::notAnObjectIsLeftAlone()
{
    QFETCH(QByteArray, before);
    TempHome::write(settings(), before);
    QTest::ignoreMessage(QtInfoMsg, kLeftAlone);
    m_installer->installIfNeeded();
    QCOMPARE(TempHome::read(settings()), before);
    QCOMPARE(QDir(m_installer->claudeFolder()).entryList(QDir::Files), QStringList{"settings.json"}); // no backup
}

void ClaudeSettingsTest::everyValueSurvivesInstallAndUninstall()
{
    QRandomGenerator random(20250615);
    for (int round = 0; round < 60; ++round) {
        const QByteArray before = document(random);
        QVERIFY2(QJsonDocument::fromJson(before).isObject(), before.constData());
        TempHome::write(settings(), before);
        QTest::ignoreMessage(QtInfoMsg, kInstalled);
        QVERIFY(m_installer->mergeSettings());
        const QByteArray installed = TempHome::read(settings());
        QVERIFY2(isWithin(tokens(before), tokens(installed)), installed.constData());
        const QJsonObject hooks = QJsonDocument::fromJson(installed).object().value("hooks").toObject();
        for (const QString &event : HookInstaller::events())
            QVERIFY2(QJsonDocument(hooks.value(event).toArray()).toJson().contains("island-hook.sh"),
                     qPrintable(event));
        QCOMPARE(tokens(uninstall()), tokens(before));
        QFile::remove(m_installer->claudeFolder() + "/settings.json.bak-vaxo-island-2025-06-15");
    }
}

void ClaudeSettingsTest::linkStaysALink()
{
    // Dotfiles kept elsewhere and linked in: the link stays, the file it names gets the hooks.
    const QString target = m_home->root() + "/dotfiles/claude.json";
    const QByteArray before = R"({"model": "opus", "n": 12345678901234567890})";
    TempHome::write(target, before);
    QVERIFY(QFile::link("../dotfiles/claude.json", settings()));
    QTest::ignoreMessage(QtInfoMsg, kInstalled);
    QVERIFY(m_installer->mergeSettings());
    QCOMPARE(QFileInfo(settings()).symLinkTarget(), target);
    QVERIFY(TempHome::read(target).contains("island-hook.sh"));
    QCOMPARE(TempHome::read(m_installer->claudeFolder() + "/settings.json.bak-vaxo-island-2025-06-15"), before);

    m_installer->writeScript();
    uninstall();
    QCOMPARE(QFileInfo(settings()).symLinkTarget(), target);
    QCOMPARE(tokens(TempHome::read(target)), tokens(before));
    QVERIFY(!QFileInfo::exists(m_home->root() + "/data/VAXO Island")); // and the folders are gone
}

QTEST_GUILESS_MAIN(ClaudeSettingsTest)
#include "ClaudeSettingsTest.moc"
