// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/TextDecoding.h"
#include "base/TextFormat.h"

#include <QTest>

#include <limits>

class TestTextFormat : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void general6_data();
    void general6();
    void clockTime_data();
    void clockTime();
    void timeText_data();
    void timeText();
    void decodesUtf8AndOtherwiseLatin1_data();
    void decodesUtf8AndOtherwiseLatin1();
};

void TestTextFormat::general6_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("expected");
    QTest::newRow("plain") << 10.75 << QStringLiteral("10.75");
    QTest::newRow("a tie goes away from zero") << 100000.5 << QStringLiteral("100001");
    QTest::newRow("a million takes the exponent form") << 1e6 << QStringLiteral("1e+06");
    QTest::newRow("just below stays plain") << 999999.0 << QStringLiteral("999999");
    QTest::newRow("zero has no sign") << -0.0 << QStringLiteral("0");
    QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << QStringLiteral("nan");
    QTest::newRow("infinity") << std::numeric_limits<double>::infinity() << QStringLiteral("inf");
}

void TestTextFormat::general6()
{
    QFETCH(double, value);
    QTEST(text::general6(value), "expected");
}

void TestTextFormat::clockTime_data()
{
    QTest::addColumn<qint64>("timeMs");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("expected");
    QTest::newRow("hours to milliseconds") << qint64(3723045) << "hh:mm:ss.zzz"
                                           << "01:02:03.045";
    QTest::newRow("after a day the clock starts anew") << qint64(86400000 + 5) << "hh:mm:ss.zzz"
                                                       << "00:00:00.005";
    QTest::newRow("before zero") << qint64(-1) << "hh:mm:ss.zzz"
                                 << "23:59:59.999";
    QTest::newRow("beyond 32 bits") << qint64(86400000) * 1000 + 7 << "ss.zzz"
                                    << "00.007";
}

void TestTextFormat::clockTime()
{
    QFETCH(qint64, timeMs);
    QFETCH(QString, format);
    QTEST(text::clockTime(timeMs, format), "expected");
}

void TestTextFormat::timeText_data()
{
    QTest::addColumn<qint64>("timeMs");
    QTest::addColumn<QString>("expected");
    QTest::newRow("nothing") << qint64(0) << "00.000 sec.ms";
    QTest::newRow("one millisecond") << qint64(1) << "00.001 sec.ms";
    QTest::newRow("last one in seconds") << qint64(59999) << "59.999 sec.ms";
    QTest::newRow("a minute") << qint64(60000) << "01:00 min:sec";
    QTest::newRow("milliseconds are cut off, not rounded") << qint64(61999) << "01:01 min:sec";
    QTest::newRow("last one in minutes") << qint64(3599999) << "59:59 min:sec";
    QTest::newRow("an hour") << qint64(3600000) << "01:00:00 h:min:sec";
    QTest::newRow("hours, minutes and seconds") << qint64(3723999) << "01:02:03 h:min:sec";
    QTest::newRow("the last second of a day") << qint64(86399999) << "23:59:59 h:min:sec";
    QTest::newRow("after a day the clock starts anew") << qint64(86400000) << "00:00:00 h:min:sec";
    QTest::newRow("beyond 32 bits") << qint64(86400000) * 100 + 3600000 << "01:00:00 h:min:sec";
    QTest::newRow("before zero") << qint64(-1) << "59.999 sec.ms";
}

void TestTextFormat::timeText()
{
    QFETCH(qint64, timeMs);
    QTEST(text::timeText(timeMs), "expected");
}

void TestTextFormat::decodesUtf8AndOtherwiseLatin1_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("expected");
    QTest::newRow("utf-8") << QByteArray("M\xc3\xbcller") << QStringLiteral(u"M\u00fcller");
    QTest::newRow("latin-1") << QByteArray("M\xfcller") << QStringLiteral(u"M\u00fcller");
    QTest::newRow("utf-8 with mark") << QByteArray("\xef\xbb\xbf"
                                                   "a")
                                     << QStringLiteral("a");
    QTest::newRow("empty") << QByteArray() << QString();
}

void TestTextFormat::decodesUtf8AndOtherwiseLatin1()
{
    QFETCH(QByteArray, bytes);
    const QString decoded = decodeText(bytes);
    QTEST(decoded, "expected");
}

QTEST_GUILESS_MAIN(TestTextFormat)
#include "TestTextFormat.moc"
