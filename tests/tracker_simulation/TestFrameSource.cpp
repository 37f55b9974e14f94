// SPDX-License-Identifier: GPL-3.0-or-later
#include "tracker-simulator/FrameSource.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

class TestFrameSource : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void readsARecording();
    void unreadable();
    void replaysWithoutEnd();
    void subject();
};

namespace {

bool write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

} // namespace

void TestFrameSource::readsARecording()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.data"));
    QVERIFY(write(path, "StaticBinocular\ntime\tleft_x\n100\t1.5\t2\t3\t3\t1\t4\t5\t6\t6\t1\r\n"
                        "104\t7\t8\t9\t9\t1\t10\t11\t12\t12\t0\ntoo\tshort\n"));
    const auto frames = readFrames(path);
    QVERIFY(frames);
    QCOMPARE(frames->size(), 2);
    QCOMPARE(frames->at(0).timeMs, 100);
    QVERIFY(frames->at(0).isTracked);
    QCOMPARE(frames->at(0).left.gaze, QPointF(1.5, 2));
    QCOMPARE(frames->at(0).left.pupil, 3.0);
    QCOMPARE(frames->at(1).right.gaze, QPointF(10, 11));
    QVERIFY(!frames->at(1).isTracked);
}

void TestFrameSource::unreadable()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.data"));
    QVERIFY(!readFrames(path));
    QVERIFY(write(path, "StaticBinocular\n"));
    QVERIFY(!readFrames(path));
}

void TestFrameSource::replaysWithoutEnd()
{
    ReplayedRecording replayed({{.timeMs = 10, .left = {}, .right = {}},
                                {.timeMs = 14, .left = {}, .right = {}},
                                {.timeMs = 19, .left = {}, .right = {}}});
    QList<qint64> times;
    for (int i = 0; i < 7; ++i)
        times << replayed.next().timeMs;
    QCOMPARE(times, QList<qint64>({10, 14, 19, 23, 27, 32, 36})); // a round takes 9 ms and the first step, 4 ms
}

void TestFrameSource::subject()
{
    SimulatedSubject subject(60, 1);
    QCOMPARE(subject.next().timeMs, 0);
    QCOMPARE(subject.next().timeMs, 17);
    int tracked = 0;
    for (int i = 0; i < 600; ++i) {
        const SentFrame frame = subject.next();
        tracked += frame.isTracked ? 1 : 0;
        if (frame.isTracked)
            QVERIFY(QRectF(-100, -100, 1480, 1000).contains(frame.left.gaze));
    }
    QVERIFY(tracked > 500); // the rest are blinks
}

QTEST_GUILESS_MAIN(TestFrameSource)
#include "TestFrameSource.moc"
