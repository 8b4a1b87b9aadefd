#include "ScanText.h"

#include <QTest>

using vaxo::SecretScanner;
using vaxo::test::u16;

class OpaqueTokenTest : public QObject {
    Q_OBJECT
private slots:
    void heuristic_data();
    void heuristic();
    void entropy_data();
    void entropy();
    void uuid_data();
    void uuid();
};

namespace {
const QString k24 = QStringLiteral("Zq8xLm2Vb7Nc4Rt1Wy6Hp3Kd");
}

void OpaqueTokenTest::heuristic_data()
{
    QTest::addColumn<QString>("s");
    QTest::addColumn<bool>("opaque");
    QTest::newRow("24 mixed") << k24 << true;
    QTest::newRow("23 mixed") << k24.chopped(1) << false;
    QTest::newRow("128") << (k24.repeated(5) + k24.left(8)) << true;
    QTest::newRow("129") << (k24.repeated(5) + k24.left(9)) << false;
    QTest::newRow("white space inside") << "Zq8xLm2Vb7Nc 4Rt1Wy6Hp3Kd" << false;
    QTest::newRow("outside the alphabet") << "Zq8xLm2Vb7Nc4Rt1Wy6Hp3K!" << false;
    QTest::newRow("combining mark") << QString(k24).insert(3, QChar(0x0301)) << false;
    QTest::newRow("emoji") << QString(k24).append(QString::fromUtf8("\xF0\x9F\x98\x80")) << false;
    QTest::newRow("padding at the end") << k24 + "==" << true;
    QTest::newRow("padding inside") << "Zq8xLm2Vb7=Nc4Rt1Wy6Hp3Kd" << false;
    QTest::newRow("starts with slash") << "/" + k24 << false;
    QTest::newRow("starts with tilde") << "~" + k24 << false;
    QTest::newRow("starts with dot") << "." + k24 << false;
    QTest::newRow("one slash") << "Zq8xLm2Vb7Nc/4Rt1Wy6Hp3Kd" << true;
    QTest::newRow("two slashes are a path") << "Zq8xLm2V/b7Nc4Rt/1Wy6Hp3Kd" << false;
    QTest::newRow("hex digest") << "da39a3ee5e6b4b0d3255bfef95601890afd80709" << false;
    QTest::newRow("uuid") << "123e4567-e89b-42d3-a456-556642440000" << false;
    QTest::newRow("uuid without dashes is hex") << "123e4567e89b42d3a456556642440000" << false;
    QTest::newRow("png header") << "iVBORw0KGgoAAAANSUhEUgAAAAEAAAAB" << false;
    QTest::newRow("pdf header") << "JVBERi0xLjcKJcOkw7zDtsOfCjIgMCBvYmoK" << false;
    QTest::newRow("letters only") << "ZqxLmVbNcRtWyHpKdGfJsTaQ" << false;
    QTest::newRow("digits only") << "837462910573829104756382" << false;
    QTest::newRow("lower and digits, no symbol") << "zq8xlm2vb7nc4rt1wy6hp3kd" << false;
    QTest::newRow("lower and digits with a dash") << "zq8xlm2vb7nc-4rt1wy6hp3kd" << true;
    QTest::newRow("a dot is no symbol") << "zq8xlm2vb7nc.4rt1wy6hp3kd" << false;
    QTest::newRow("12 distinct: 3.58 bits") << "gG1hH2jJ3kK4gG1hH2jJ3kK4" << false;
    QTest::newRow("13 distinct: 3.70 bits") << "gG1hH2jJ3kK4mgG1hH2jJ3kK4m" << true;
}

void OpaqueTokenTest::heuristic()
{
    QFETCH(QString, s);
    QFETCH(bool, opaque);
    QCOMPARE(SecretScanner::looksLikeOpaqueToken(u16(s)), opaque);
    // Alone on the clipboard, the heuristic is the whole scan.
    QCOMPARE(SecretScanner::containsSecret(u16(s)), opaque);
}

void OpaqueTokenTest::entropy_data()
{
    QTest::addColumn<QString>("s");
    QTest::addColumn<double>("bits");
    QTest::newRow("empty") << "" << 0.0;
    QTest::newRow("one letter") << "aaaa" << 0.0;
    QTest::newRow("two even") << "abab" << 1.0;
    QTest::newRow("four even") << "abcd" << 2.0;
    QTest::newRow("decomposed e-acute is one character") << QString::fromUtf8("e\u0301e\u0301") << 0.0;
    QTest::newRow("emoji pair") << QString::fromUtf8("\xF0\x9F\x98\x80\xF0\x9F\x98\x81") << 1.0;
    QTest::newRow("skewed") << "aaab" << 0.8112781244591328;
}

void OpaqueTokenTest::entropy()
{
    QFETCH(QString, s);
    QFETCH(double, bits);
    QVERIFY(qAbs(SecretScanner::shannonEntropy(u16(s)) - bits) < 1e-12);
}

void OpaqueTokenTest::uuid_data()
{
    QTest::addColumn<QString>("s");
    QTest::addColumn<bool>("uuid");
    QTest::newRow("lower") << "123e4567-e89b-42d3-a456-556642440000" << true;
    QTest::newRow("upper") << "123E4567-E89B-42D3-A456-556642440000" << true;
    QTest::newRow("braces") << "{123e4567-e89b-42d3-a456-556642440000}" << false;
    QTest::newRow("urn") << "urn:uuid:123e4567-e89b-42d3-a456-556642440000" << false;
    QTest::newRow("no dashes") << "123e4567e89b42d3a456556642440000" << false;
    QTest::newRow("not hex") << "123e4567-e89b-42d3-a456-55664244000g" << false;
    QTest::newRow("dash moved") << "123e456-7e89b-42d3-a456-556642440000" << false;
}

void OpaqueTokenTest::uuid()
{
    QFETCH(QString, s);
    QFETCH(bool, uuid);
    QCOMPARE(SecretScanner::isUUID(u16(s)), uuid);
}

QTEST_APPLESS_MAIN(OpaqueTokenTest)
#include "OpaqueTokenTest.moc"
