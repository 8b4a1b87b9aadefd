#include "clipboard/ClipText.h"
#include "secrets/SecretScanner.h"

#include <QJsonDocument>
#include <QTest>

using namespace vaxo;

class ClipTextTest : public QObject {
    Q_OBJECT
private slots:
    void classify_data();
    void classify();
    void preview_data();
    void preview();
    void secretClipShowsTheMaskAndKeepsTheText();
    void savedForm_data();
    void savedForm();
};

namespace {
const QString kMask = QString::fromUtf16(SecretScanner::mask.data(), qsizetype(SecretScanner::mask.size()));
QString emoji(int n)
{
    return QString::fromUtf8("\xF0\x9F\x98\x80").repeated(n);
}
} // namespace

void ClipTextTest::classify_data()
{
    QTest::addColumn<QString>("copied");
    QTest::addColumn<QString>("kind");
    QTest::newRow("link") << "https://example.com/a?b=1"
                          << "link";
    QTest::newRow("capital scheme") << "HTTPS://EXAMPLE.COM/X"
                                    << "link";
    QTest::newRow("link with words after") << "https://example.com and more"
                                           << "text";
    QTest::newRow("link with blank and brace") << "http://x.com { y }"
                                               << "code";
    QTest::newRow("not a scheme") << "ftp://example.com"
                                  << "text";
    QTest::newRow("short colour") << "#fff"
                                  << "color";
    QTest::newRow("long colour") << "#11223344"
                                 << "color";
    QTest::newRow("colour in blanks") << "  #fff\n"
                                      << "color";
    QTest::newRow("not hex") << "#ggg"
                             << "text";
    QTest::newRow("too short") << "#12"
                               << "text";
    QTest::newRow("too long") << "#123456789"
                              << "text";
    QTest::newRow("short code is text") << "let x = 1"
                                        << "text";
    QTest::newRow("code") << "let total = 10"
                          << "code";
    QTest::newRow("git twelve") << "git status x"
                                << "text";
    QTest::newRow("git thirteen") << "git status -s"
                                  << "code";
    QTest::newRow("markup") << "<div>hello</div>"
                            << "code";
    QTest::newRow("markers are case-sensitive") << "select * from t where x"
                                                << "text";
    QTest::newRow("thirteen characters, more code units") << "{" + emoji(12) << "code";
    QTest::newRow("twelve characters, 23 code units") << "{" + emoji(11) << "text";
}

void ClipTextTest::classify()
{
    QFETCH(QString, copied);
    QFETCH(QString, kind);
    QCOMPARE(rawValue(ClipText::classify(copied.trimmed())), kind);
    const ClipItem item = ClipText::textItem(copied, QStringLiteral("ID"), 5, std::nullopt);
    QCOMPARE(item.kindName(), kind);
    QCOMPARE(*item.text, copied); // kept as captured, untrimmed
}

void ClipTextTest::preview_data()
{
    QTest::addColumn<QString>("copied");
    QTest::addColumn<QString>("preview");
    QTest::newRow("one line") << "  hello \n"
                              << "hello";
    QTest::newRow("tabs and newlines") << "a\tb\n\nc   d"
                                       << "a b c d";
    QTest::newRow("220 stays") << QString(220, QLatin1Char('x')) << QString(220, QLatin1Char('x'));
    QTest::newRow("221 is cut") << QString(221, QLatin1Char('x')) << QString(220, QLatin1Char('x')) + u'\u2026';
    QTest::newRow("500 is cut") << QString(500, QLatin1Char('y')) << QString(220, QLatin1Char('y')) + u'\u2026';
    QTest::newRow("cut by characters") << emoji(221) << emoji(220) + u'\u2026';
    QTest::newRow("combining marks stay whole")
        << QString::fromUtf8("e\u0301").repeated(230) << QString::fromUtf8("e\u0301").repeated(220) + u'\u2026';
}

void ClipTextTest::preview()
{
    QFETCH(QString, copied);
    QFETCH(QString, preview);
    QCOMPARE(ClipText::textItem(copied, QStringLiteral("ID"), 5, std::nullopt).preview, preview);
}

void ClipTextTest::secretClipShowsTheMaskAndKeepsTheText()
{
    const QString copied = QStringLiteral("password = \"hunter22x\"\n");
    const ClipItem item = ClipText::textItem(copied, QStringLiteral("A1"), 1700000000.5, QStringLiteral("XTerm"));
    QVERIFY(item.secret);
    QCOMPARE(item.kind, ClipKind::Text);
    QCOMPARE(item.preview, "password = \"" + kMask + "\"");
    QCOMPARE(*item.text, copied);
    QCOMPARE(*item.sourceApp, QStringLiteral("XTerm"));
    QVERIFY(!item.pinned);

    // A long secret is cut after its mask, never before it.
    const ClipItem key = ClipText::textItem("token: " + QString(300, QLatin1Char('k')), "B", 1, std::nullopt);
    QCOMPARE(key.preview, "token: " + kMask);
}

void ClipTextTest::savedForm_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<bool>("readable");
    QTest::newRow("complete") << QByteArray(R"({"id":"A","kind":"link","preview":"p","text":"t","pinned":true,)"
                                            R"("copiedAt":12.5,"sourceApp":"XTerm","secret":false})")
                              << true;
    QTest::newRow("text and source null")
        << QByteArray(R"({"id":"A","kind":"image","preview":"p","text":null,)"
                      R"("pinned":false,"copiedAt":1,"sourceApp":null,"secret":false})")
        << true;
    QTest::newRow("text and source missing")
        << QByteArray(R"({"id":"A","kind":"file","preview":"p","pinned":false,"copiedAt":1,"secret":false})") << true;
    QTest::newRow("unknown kind")
        << QByteArray(R"({"id":"A","kind":"video","preview":"p","pinned":false,"copiedAt":1,"secret":false})") << false;
    QTest::newRow("time as text")
        << QByteArray(R"({"id":"A","kind":"text","preview":"p","pinned":false,"copiedAt":"1","secret":false})")
        << false;
    QTest::newRow("text a number") << QByteArray(R"({"id":"A","kind":"text","preview":"p","text":3,"pinned":false,)"
                                                 R"("copiedAt":1,"secret":false})")
                                   << false;
    QTest::newRow("no secret flag") << QByteArray(
                                           R"({"id":"A","kind":"text","preview":"p","pinned":false,"copiedAt":1})")
                                    << false;
}

void ClipTextTest::savedForm()
{
    QFETCH(QByteArray, json);
    QFETCH(bool, readable);
    const auto item = ClipItem::fromJson(QJsonDocument::fromJson(json).object());
    QCOMPARE(item.has_value(), readable);
    if (!item)
        return;
    const QJsonObject saved = item->toJson();
    QCOMPARE(saved.keys(), (QStringList{"copiedAt", "id", "kind", "pinned", "preview", "secret", "sourceApp", "text"}));
    QCOMPARE(ClipItem::fromJson(saved), item);
}

QTEST_APPLESS_MAIN(ClipTextTest)
#include "ClipTextTest.moc"
