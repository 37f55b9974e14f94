// SPDX-License-Identifier: GPL-3.0-or-later
#include "gaze-simulator/Options.h"

#include <QTest>

class TestOptions : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void defaults();
    void values();
    void numbers_data();
    void numbers();
    void refused_data();
    void refused();
};

namespace {

std::variant<Options, HelpText, UsageFault> parsed(const QString &commandLine)
{
    return parseOptions(QStringList{QStringLiteral("gaze-simulator")} + commandLine.split(u' ', Qt::SkipEmptyParts));
}

Options accepted(const QString &commandLine)
{
    const auto result = parsed(commandLine);
    const auto *options = std::get_if<Options>(&result);
    return options ? *options : Options{};
}

} // namespace

void TestOptions::defaults()
{
    const Options options = accepted(QStringLiteral("folder/anna.data"));
    QCOMPARE(options.name, QStringLiteral("folder/anna"));
    QCOMPARE(options.entries.subjectId, QStringLiteral("anna"));
    QCOMPARE(options.entries.dominantEye, QStringLiteral("right"));
    QCOMPARE(options.entries.group, QStringLiteral("None"));
    QCOMPARE(options.canvas, QSize(1280, 800));
    QCOMPARE(options.parameters.rateHz, SimulationParameters().rateHz);
    QVERIFY(options.truth == recording::Truth::Leave);
}

void TestOptions::values()
{
    const Options options = accepted(
        QStringLiteral("--rate 1250 --seed 18446744073709551615 --clock-start 77 --eyes left --dominant left --group a "
                       "--property age=3 --property x=y --subject S --truth --size 30x20 --noise 0 n"));
    QCOMPARE(options.parameters.rateHz, 1250.0);
    QCOMPARE(options.parameters.seed, std::numeric_limits<quint64>::max());
    QCOMPARE(options.parameters.clockStartMs, 77);
    QVERIFY(options.parameters.eyes == RecordedEyes::Left);
    QCOMPARE(options.parameters.noiseDeg, 0.0);
    QCOMPARE(options.entries.dominantEye, QStringLiteral("left"));
    QCOMPARE(options.entries.group, QStringLiteral("a"));
    QCOMPARE(options.entries.properties.size(), 2);
    QCOMPARE(options.entries.properties[1].key, QStringLiteral("x"));
    QCOMPARE(options.entries.subjectId, QStringLiteral("S"));
    QCOMPARE(options.canvas, QSize(30, 20));
    QVERIFY(options.truth == recording::Truth::Write);
}

void TestOptions::numbers_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("good");
    QTest::newRow("below the least") << "0.99" << false;
    QTest::newRow("the least") << "1" << true;
    QTest::newRow("the greatest") << "100000" << true;
    QTest::newRow("above the greatest") << "100001" << false;
    QTest::newRow("not a number") << "nan" << false;
    QTest::newRow("infinite") << "inf" << false;
    QTest::newRow("a word") << "fast" << false;
    QTest::newRow("with a unit") << "250Hz" << false;
    QTest::newRow("decimal comma") << "250,5" << false;
}

void TestOptions::numbers()
{
    QFETCH(QString, value);
    const auto result = parsed(QStringLiteral("--rate %1 n").arg(value));
    QTEST(std::holds_alternative<Options>(result), "good");
}

void TestOptions::refused_data()
{
    QTest::addColumn<QString>("commandLine");
    QTest::addColumn<QString>("named");
    QTest::newRow("nothing") << ""
                             << "NAME";
    QTest::newRow("two names") << "a b"
                               << "\"b\"";
    QTest::newRow("a folder") << "a/"
                              << "\"a/\"";
    QTest::newRow("only the extension") << ".data"
                                        << "NAME";
    QTest::newRow("an unknown option") << "--speed 3 a"
                                       << "speed";
    QTest::newRow("a value that is missing") << "a --rate"
                                             << "rate";
    QTest::newRow("picture and stimulus") << "--image a.png --make-stimulus b.png n"
                                          << "exclude";
    QTest::newRow("picture and size") << "--image a.png --size 10x10 n"
                                      << "--size";
    QTest::newRow("a stimulus that is no PNG") << "--make-stimulus a.jpg"
                                               << ".png";
    QTest::newRow("a size of nothing") << "--size 0x10 n"
                                       << "--size";
    QTest::newRow("a size beyond the limit") << "--size 99999x10 n"
                                             << "16384";
    QTest::newRow("a size in words") << "--size big n"
                                     << "big";
    QTest::newRow("a negative seed") << "--seed -1 n"
                                     << "--seed";
    QTest::newRow("a negative clock") << "--clock-start -5 n"
                                      << "--clock-start";
    QTest::newRow("both eyes dominant") << "--dominant both n"
                                        << "left or right";
    QTest::newRow("no eye") << "--eyes none n"
                            << "--eyes";
    QTest::newRow("too short for a sample") << "--duration 0.001 --rate 10 n"
                                            << "--duration";
    QTest::newRow("a property without value") << "--property age n"
                                              << "KEY=VALUE";
    QTest::newRow("a subject with '='") << "--subject a=b n"
                                        << "a=b";
}

void TestOptions::refused()
{
    QFETCH(QString, commandLine);
    QFETCH(QString, named);
    const auto result = parsed(commandLine);
    const auto *fault = std::get_if<UsageFault>(&result);
    QVERIFY(fault);
    QVERIFY2(fault->text.contains(named), qPrintable(fault->text));
}

QTEST_GUILESS_MAIN(TestOptions)
#include "TestOptions.moc"
