#include "TempHome.h"
#include "clipboard/ClipHistory.h"
#include "clipboard/ClipStore.h"
#include "clipboard/ClipText.h"
#include "secrets/SecretScanner.h"

#include <QJsonDocument>
#include <QTest>

using namespace vaxo;
using namespace Qt::StringLiterals;

class ClipItemsTest : public QObject {
    Q_OBJECT
private slots:
    void textItem_data();
    void textItem();
    void savedForm_data();
    void savedForm();
    void historyRules();
};

namespace {

const QString kMask = QString::fromUtf16(SecretScanner::mask.data(), qsizetype(SecretScanner::mask.size()));
const QString kEmoji = u"\U0001F600"_s;

ClipItem clip(const QString &id, double at, bool pinned = false, const QString &text = {})
{
    return ClipItem{id, ClipKind::Text, id, text.isEmpty() ? id : text, pinned, at, {}, false};
}

QStringList ids(const QList<ClipItem> &items)
{
    QStringList out;
    for (const ClipItem &item : items)
        out << item.id;
    return out;
}

} // namespace

// The kind, and the preview ("<mask>" stands for the mask; none given: the trimmed text).
void ClipItemsTest::textItem_data()
{
    QTest::addColumn<QString>("copied");
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("preview");
    const auto row = [](const char *name, const QString &copied, const char *kind, const QString &preview = {}) {
        QTest::newRow(name) << copied << QString::fromLatin1(kind) << (preview.isEmpty() ? copied.trimmed() : preview);
    };
    const QString x220(220, u'x'), e220 = u"e\u0301"_s.repeated(220);
    row("link", "https://example.com/a?b=1", "link");
    row("capital scheme", "HTTPS://EXAMPLE.COM/X", "link");
    row("link with words after", "https://example.com and more", "text");
    row("link with blank and brace", "http://x.com { y }", "code");
    row("not a scheme", "ftp://example.com", "text");
    row("short colour", "#fff", "color");
    row("long colour in blanks", "  #11223344\n", "color");
    row("not hex", "#ggg", "text");
    row("too short", "#12", "text");
    row("too long", "#123456789", "text");
    row("short code is text", "let x = 1", "text");
    row("code", "let total = 10", "code");
    row("git twelve", "git status x", "text");
    row("git thirteen", "git status -s", "code");
    row("markup", "<div>hello</div>", "code");
    row("markers are case-sensitive", "select * from t where x", "text");
    row("13 characters, 25 code units", "{" + kEmoji.repeated(12), "code");
    row("12 characters, 23 code units", "{" + kEmoji.repeated(11), "text");
    row("tabs and newlines", "a\tb\n\nc   d", "text", "a b c d");
    row("220 stays", x220, "text");
    row("221 is cut", x220 + "x", "text", x220 + u'\u2026');
    row("cut by characters", kEmoji.repeated(221), "text", kEmoji.repeated(220) + u'\u2026');
    row("combining marks stay whole", e220 + u"e\u0301"_s.repeated(10), "text", e220 + u'\u2026');
    row("secret", "password = \"hunter22x\"\n", "text", "password = \"<mask>\"");
    row("long secret cut after its mask", "token: " + QString(300, u'k'), "text", "token: <mask>");
}

void ClipItemsTest::textItem()
{
    QFETCH(QString, copied);
    QFETCH(QString, kind);
    QFETCH(QString, preview);
    const ClipItem item = ClipText::textItem(copied, u"ID"_s, 5, u"XTerm"_s);
    QCOMPARE(rawValue(item.kind), kind);
    QCOMPARE(item.preview, QString(preview).replace("<mask>", kMask));
    QCOMPARE(item.secret, preview.contains("<mask>"));
    QCOMPARE(*item.text, copied); // kept as captured: untrimmed, and a secret's real value for copying back
}

void ClipItemsTest::savedForm_data()
{
    QTest::addColumn<QByteArray>("fields"); // besides "id" and "preview"
    QTest::addColumn<bool>("readable");
    QTest::newRow("complete")
        << R"("kind":"link","text":"t","pinned":true,"copiedAt":12.5,"sourceApp":"X","secret":true)"_ba << true;
    QTest::newRow("text, source null")
        << R"("kind":"image","text":null,"sourceApp":null,"pinned":false,"copiedAt":1,"secret":false)"_ba << true;
    QTest::newRow("text, source missing") << R"("kind":"file","pinned":false,"copiedAt":1,"secret":false)"_ba << true;
    QTest::newRow("unknown kind") << R"("kind":"video","pinned":false,"copiedAt":1,"secret":false)"_ba << false;
    QTest::newRow("text a number") << R"("kind":"text","text":3,"pinned":false,"copiedAt":1,"secret":false)"_ba
                                   << false;
    QTest::newRow("time as text") << R"("kind":"text","pinned":false,"copiedAt":"1","secret":false)"_ba << false;
    QTest::newRow("no secret flag") << R"("kind":"text","pinned":false,"copiedAt":1)"_ba << false;
}

void ClipItemsTest::savedForm()
{
    QFETCH(QByteArray, fields);
    QFETCH(bool, readable);
    const QByteArray json = R"({"id":"A","preview":"p",)" + fields + "}";
    const auto item = ClipItem::fromJson(QJsonDocument::fromJson(json).object());
    QCOMPARE(item.has_value(), readable);
    if (item) {
        const QJsonObject saved = item->toJson();
        QCOMPARE(saved.keys(),
                 (QStringList{"copiedAt", "id", "kind", "pinned", "preview", "secret", "sourceApp", "text"}));
        QCOMPARE(ClipItem::fromJson(saved), item);
    }
    // A file with one unreadable clip loads nothing, as do a missing file and one of another shape.
    test::TempHome home;
    const ClipStore store(home.paths().clipboardFile());
    QVERIFY(!store.load());
    test::TempHome::write(store.path(), "[" + json + "]");
    QCOMPARE(store.load().has_value(), readable);
    test::TempHome::write(store.path(), "{}");
    QVERIFY(!store.load());
}

void ClipItemsTest::historyRules()
{
    QList<ClipItem> items{clip("pinned", 0, true, u"same"_s)};
    ClipHistory::record(items, clip("a", 1, false, u"same"_s));
    ClipHistory::record(items, clip("b", 2));
    ClipHistory::record(items, clip("c", 3, false, u"same"_s)); // replaces "a", never the pinned clip
    for (const char *id : {"i1", "i2"})                         // clips without text are never taken for duplicates
        ClipHistory::record(items, ClipItem{id, ClipKind::Image, "Image 1×1", {}, false, 4, {}, false});
    QCOMPARE(ids(items), (QStringList{"i2", "i1", "c", "b", "pinned"}));

    items = {clip("d", 4), clip("c", 3, true), clip("b", 2), clip("a", 1, true)};
    ClipHistory::sortPinnedFirst(items);
    QCOMPARE(ids(items), (QStringList{"c", "a", "d", "b"}));
    QVERIFY(ClipHistory::moveToFront(items, "b", 9));
    QCOMPARE(ids(items), (QStringList{"b", "c", "a", "d"}));
    QCOMPARE(items.first().copiedAt, 9.0);
    QVERIFY(!ClipHistory::moveToFront(items, "nope", 10));

    // 50 unpinned clips stay, the oldest fall off; pins neither count nor fall off.
    for (int i = 0; i < 60; ++i)
        ClipHistory::record(items, clip(QString::number(i), i));
    QCOMPARE(items.size(), 52);
    QCOMPARE(ids(items).mid(0, 2), (QStringList{"59", "58"}));
    QCOMPARE(ids(items).mid(49), (QStringList{"10", "c", "a"}));
    ClipHistory::clearUnpinned(items);
    QCOMPARE(ids(items), (QStringList{"c", "a"}));
}

QTEST_APPLESS_MAIN(ClipItemsTest)
#include "ClipItemsTest.moc"
