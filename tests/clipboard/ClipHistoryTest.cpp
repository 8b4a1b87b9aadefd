#include "clipboard/ClipHistory.h"
#include "TempHome.h"
#include "clipboard/ClipStore.h"

#include <QTest>

using namespace vaxo;

class ClipHistoryTest : public QObject {
    Q_OBJECT
private slots:
    void sameTextMovesToTheFront();
    void pinnedClipIsNeverReplaced();
    void eviction_data();
    void eviction();
    void pinningSortsAndClearingKeepsPins();
    void storeSavesNeitherImagesNorSecrets();
    void unreadableFilesLoadNothing_data();
    void unreadableFilesLoadNothing();
};

namespace {

ClipItem clip(const QString &id, double at, bool pinned = false, std::optional<QString> text = std::nullopt)
{
    return ClipItem{id, ClipKind::Text, id, text ? text : std::optional<QString>(id), pinned, at, {}, false};
}

QStringList ids(const QList<ClipItem> &items)
{
    QStringList out;
    for (const ClipItem &item : items)
        out << item.id;
    return out;
}

} // namespace

void ClipHistoryTest::sameTextMovesToTheFront()
{
    QList<ClipItem> items;
    ClipHistory::record(items, clip("a", 1, false, QStringLiteral("same")));
    ClipHistory::record(items, clip("b", 2));
    ClipHistory::record(items, clip("c", 3, false, QStringLiteral("same")));
    QCOMPARE(ids(items), (QStringList{"c", "b"}));
    QCOMPARE(items.first().copiedAt, 3.0);
    // Clips without text (images) are never taken for duplicates.
    ClipHistory::record(items, ClipItem{"i1", ClipKind::Image, "Image 1×1", {}, false, 4, {}, false});
    ClipHistory::record(items, ClipItem{"i2", ClipKind::Image, "Image 1×1", {}, false, 5, {}, false});
    QCOMPARE(ids(items), (QStringList{"i2", "i1", "c", "b"}));
}

void ClipHistoryTest::pinnedClipIsNeverReplaced()
{
    QList<ClipItem> items{clip("pinned", 1, true, QStringLiteral("same"))};
    ClipHistory::record(items, clip("new", 2, false, QStringLiteral("same")));
    QCOMPARE(ids(items), (QStringList{"new", "pinned"}));
}

void ClipHistoryTest::eviction_data()
{
    QTest::addColumn<int>("pinned");
    QTest::addColumn<int>("recorded");
    QTest::addColumn<int>("kept");
    QTest::newRow("50 fit") << 0 << 50 << 50;
    QTest::newRow("51st evicts the oldest") << 0 << 51 << 50;
    QTest::newRow("pins do not count") << 5 << 60 << 55;
}

void ClipHistoryTest::eviction()
{
    QFETCH(int, pinned);
    QFETCH(int, recorded);
    QFETCH(int, kept);
    QList<ClipItem> items;
    for (int i = 0; i < pinned; ++i)
        items << clip(QStringLiteral("p%1").arg(i), -i, true);
    for (int i = 0; i < recorded; ++i)
        ClipHistory::record(items, clip(QString::number(i), i));
    QCOMPARE(items.size(), kept);
    QCOMPARE(items.first().id, QString::number(recorded - 1));
    const QStringList left = ids(items);
    QCOMPARE(left.contains(QString::number(recorded - 50)), true);
    QCOMPARE(left.contains(QString::number(recorded - 51)), false);
    for (int i = 0; i < pinned; ++i)
        QVERIFY(left.contains(QStringLiteral("p%1").arg(i)));
}

void ClipHistoryTest::pinningSortsAndClearingKeepsPins()
{
    QList<ClipItem> items{clip("d", 4), clip("c", 3, true), clip("b", 2), clip("a", 1, true)};
    ClipHistory::sortPinnedFirst(items);
    QCOMPARE(ids(items), (QStringList{"c", "a", "d", "b"}));
    QVERIFY(ClipHistory::moveToFront(items, "b", 9));
    QCOMPARE(ids(items), (QStringList{"b", "c", "a", "d"}));
    QCOMPARE(items.first().copiedAt, 9.0);
    QVERIFY(!ClipHistory::moveToFront(items, "nope", 10));
    ClipHistory::clearUnpinned(items);
    QCOMPARE(ids(items), (QStringList{"c", "a"}));
}

void ClipHistoryTest::storeSavesNeitherImagesNorSecrets()
{
    test::TempHome home;
    const ClipStore store(home.paths().clipboardFile());
    ClipItem secret = clip("s", 3, true, QStringLiteral("password=hunter22"));
    secret.secret = true;
    const ClipItem image{"i", ClipKind::Image, "Image 2×2", {}, false, 2, {}, false};
    store.save({clip("t", 4), secret, image, clip("p", 1, true)});
    QCOMPARE(test::TempHome::mode(store.path()), 0600);
    const QByteArray bytes = test::TempHome::read(store.path());
    QVERIFY(!bytes.contains("hunter22"));
    QCOMPARE(ids(store.load().value()), (QStringList{"t", "p"}));
}

void ClipHistoryTest::unreadableFilesLoadNothing_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("not json") << QByteArray("[{\"id\":");
    QTest::newRow("an object") << QByteArray("{}");
    QTest::newRow("array of numbers") << QByteArray("[1,2]");
    QTest::newRow("one bad clip spoils all")
        << QByteArray(R"([{"id":"A","kind":"text","preview":"p","pinned":false,"copiedAt":1,"secret":false},)"
                      R"({"id":"B","kind":"text","preview":"p","pinned":"no","copiedAt":1,"secret":false}])");
}

void ClipHistoryTest::unreadableFilesLoadNothing()
{
    QFETCH(QByteArray, bytes);
    test::TempHome home;
    const ClipStore store(home.paths().clipboardFile());
    QVERIFY(!store.load()); // missing
    test::TempHome::write(store.path(), bytes);
    QVERIFY(!store.load());
}

QTEST_APPLESS_MAIN(ClipHistoryTest)
#include "ClipHistoryTest.moc"
