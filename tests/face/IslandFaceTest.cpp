#include "face/IslandFace.h"

#include <QSet>
#include <QTest>

#include <cmath>
#include <numeric>

using namespace vaxo;

namespace {

constexpr double kPeriod = 5.5;

double hash(double n)
{
    const double x = std::sin(n * 12.9898) * 43758.5453;
    return x - std::floor(x);
}

// Where the first blink of period n begins, from the period's start.
double firstBlink(double n)
{
    return 3.2 + 1.2 * hash(n);
}

// The moments, 1 ms apart, at which the eyes of period n start to close.
QList<double> dips(double n)
{
    QList<double> starts;
    bool closed = false;
    for (int ms = 0; ms < 5500; ++ms) {
        const bool now = IslandFace::blink(n * kPeriod + ms / 1000.0) < 1;
        if (now && !closed)
            starts << ms / 1000.0;
        closed = now;
    }
    return starts;
}

} // namespace

class IslandFaceTest : public QObject {
    Q_OBJECT
private slots:
    void blinks()
    {
        QSet<int> offsets;
        int doubles = 0;
        QList<int> periods(1000);
        std::iota(periods.begin(), periods.end(), 0);
        periods << 1000 << 123456;
        for (int n : periods) {
            const double start = n * kPeriod;
            const double s1 = firstBlink(n);
            for (double x = 0; x < 3.2; x += 0.05)
                QCOMPARE(IslandFace::blink(start + x), 1.0);
            QVERIFY(IslandFace::blink(start + s1 + 0.085) < 1e-6);
            QVERIFY(IslandFace::blink(start + s1 + 0.04) > 0);
            QCOMPARE(IslandFace::blink(start + s1 + 0.2), IslandFace::blink(start + s1 + 0.2));
            QCOMPARE(IslandFace::blink(start + s1 + 0.26), 1.0);
            const QList<double> starts = dips(n);
            QVERIFY(starts.size() == 1 || starts.size() == 2);
            QVERIFY(starts.first() >= 3.2);
            if (starts.size() == 2)
                QVERIFY2(starts[1] - starts[0] >= 0.3 - 0.002, qPrintable(QString::number(n)));
            doubles += int(starts.size()) - 1;
            offsets.insert(int(starts.first() * 100));
        }
        QVERIFY(offsets.size() > 100); // consecutive periods blink at different moments
        QVERIFY(doubles > periods.size() * 0.33 && doubles < periods.size() * 0.47);
    }

    void framesOnlyWhileSomethingMoves_data()
    {
        QTest::addColumn<int>("mood");
        QTest::addColumn<bool>("calm");
        for (int mood = 0; mood < 7; ++mood) {
            QTest::addRow("%s pulse", qPrintable(moodName(Mood(mood)))) << mood << false;
            QTest::addRow("%s calm", qPrintable(moodName(Mood(mood)))) << mood << true;
        }
    }

    void framesOnlyWhileSomethingMoves()
    {
        QFETCH(int, mood);
        QFETCH(bool, calm);
        const double start = 1000;
        const double changedAt = start + 0.1;
        int frames = 0;
        for (double t = start; t < start + 60;) {
            const double next = IslandFace::nextFrame(Mood(mood), calm, t, changedAt);
            if (std::isinf(next)) // still for good: only her joy in the calm style
                break;
            QVERIFY(next > t);
            // Between frames further apart than the slow breath's step nothing moves.
            if (next - t > 0.11) {
                const FacePose at = IslandFace::pose(Mood(mood), calm, t, changedAt);
                for (double k : {0.25, 0.5, 0.99})
                    QCOMPARE(IslandFace::pose(Mood(mood), calm, t + (next - t) * k, changedAt), at);
            }
            t = next;
            ++frames;
        }
        // Far fewer frames than a clock that runs all the time would draw.
        QVERIFY2(frames / 60.0 < 20, qPrintable(QString::number(frames / 60.0)));
        const bool still = Mood(mood) == Mood::Pleased && calm;
        QCOMPARE(std::isinf(IslandFace::nextFrame(Mood(mood), calm, start + 100, changedAt)), still);
    }
};

QTEST_APPLESS_MAIN(IslandFaceTest)
#include "IslandFaceTest.moc"
