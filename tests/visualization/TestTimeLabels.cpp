// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/timeline/TimeLabels.h"

#include <QFont>
#include <QTest>

class TestTimeLabels : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void noneOverAnother_data();
    void noneOverAnother();
    void allOfAWideStrip();
    void theFrameComesBeforeTheSpan();
};

namespace {

QFontMetrics metrics()
{
    QFont font;
    font.setPixelSize(11);
    return QFontMetrics(font);
}

TimeScale scaleOf(qint64 spanMs, qint64 startMs, qint64 endMs)
{
    TimeScale scale;
    scale.setSpan(spanMs);
    scale.setFrame(startMs, endMs);
    return scale;
}

/// Where the text of a label is painted.
QRect paintedAt(const TimeLabel &label)
{
    QRect text(QPoint(), QSize(metrics().horizontalAdvance(label.text), label.box.height()));
    if (label.alignment.testFlag(Qt::AlignLeft))
        text.moveTopLeft(label.box.topLeft());
    else if (label.alignment.testFlag(Qt::AlignRight))
        text.moveTopRight(label.box.topRight());
    else
        text.moveCenter(label.box.center());
    return text;
}

QStringList textsOf(const QList<TimeLabel> &labels)
{
    QStringList texts;
    for (const TimeLabel &label : labels)
        texts << label.text;
    return texts;
}

} // namespace

void TestTimeLabels::noneOverAnother_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<qint64>("span");
    for (const int width : {100, 150, 230, 349, 420, 699, 1200}) {
        for (const qint64 span : {qint64(7), qint64(8000), qint64(59'999), qint64(600'000), qint64(7'200'000)})
            QTest::addRow("%d px, %lld ms", width, span) << width << span;
    }
}

void TestTimeLabels::noneOverAnother()
{
    QFETCH(int, width);
    QFETCH(qint64, span);
    for (int tenth = 0; tenth < 10; ++tenth) {
        const TimeScale scale = scaleOf(span, span * tenth / 10, span);
        const QList<TimeLabel> labels = timeLabels(scale, {width, 50}, metrics());
        for (qsizetype i = 0; i < labels.size(); ++i) {
            const QRect text = paintedAt(labels[i]);
            QVERIFY2(text.left() >= 0 && text.right() <= width, qPrintable(labels[i].text));
            for (qsizetype j = 0; j < i; ++j)
                QVERIFY2(!text.intersects(paintedAt(labels[j])), qPrintable(labels[i].text + labels[j].text));
        }
    }
}

void TestTimeLabels::allOfAWideStrip()
{
    const QList<TimeLabel> labels = timeLabels(scaleOf(10'000, 2000, 10'000), {1200, 50}, metrics());
    QCOMPARE(
        textsOf(labels),
        (QStringList{QStringLiteral("00.000 sec.ms"), QStringLiteral("02.000 sec.ms"), QStringLiteral("04.000 sec.ms"),
                     QStringLiteral("06.000 sec.ms"), QStringLiteral("08.000 sec.ms"),
                     QStringLiteral("02.000 sec.ms - 10.000 sec.ms"), QStringLiteral("10.000 sec.ms")}));
    constexpr int fifth = 240; // 0.2 * 1197 + 1.5, cut
    QCOMPARE(labels[1].box, QRect(fifth - 38, 35, 152, 20));
    QCOMPARE(labels[5].box.topLeft(), QPoint(fifth, 2)); // the frame begins there
}

void TestTimeLabels::theFrameComesBeforeTheSpan()
{
    const TimeScale scale = scaleOf(10'000, 9000, 10'000);
    const QString frame = frameText(scale);
    const int needed = metrics().horizontalAdvance(frame);
    const QStringList narrow = textsOf(timeLabels(scale, {needed + 10, 50}, metrics()));
    QVERIFY(narrow.contains(frame));
    QVERIFY(!narrow.contains(QStringLiteral("10.000 sec.ms")));
    QVERIFY(!textsOf(timeLabels(scale, {needed - 10, 50}, metrics())).contains(frame));
    const QList<TimeLabel> wide = timeLabels(scale, {699, 50}, metrics());
    QVERIFY(textsOf(wide).contains(QStringLiteral("10.000 sec.ms")));
    QVERIFY(paintedAt(wide[wide.size() - 2]).left() < scale.timeToPixel(9000, 699)); // gave way to the left
}

QTEST_MAIN(TestTimeLabels)
#include "TestTimeLabels.moc"
