// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/BatchOptions.h"
#include "batch/BatchReport.h"
#include "batch/MessageRecord.h"
#include "batch/OptionTable.h"
#include "settings/SettingsStore.h"

#include <QFile>
#include <QJsonDocument>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <thread>
#include <vector>

using messages::Severity;

class TestBatchReport : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void emptyReport();
    void fullReport();
    void fileDigest_data();
    void fileDigest();
    void unreadableFileHasNoDigest();
    void aPipeIsNotReadAgain();
    void parametersAreAllKeysOfTheStore();
    void options_data();
    void options();
    void messagesOfThreadsAllArrive();
    void takenMessagesAreNotTakenAgain();
};

namespace {

void writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

} // namespace

void TestBatchReport::emptyReport()
{
    const char *expected = R"({
    "inputs": [
    ],
    "messages": [
    ],
    "options": {
    },
    "outputs": [
    ],
    "parameters": {
    },
    "program": "vistrum-batch",
    "version": ""
}
)";
    QCOMPARE(toJson(BatchReport()).toJson(), QByteArray(expected));
}

void TestBatchReport::fullReport()
{
    BatchReport report;
    report.version = QStringLiteral("1.2");
    report.options = {{QStringLiteral("eyes"), QStringLiteral("all")}};
    report.parameters = {{QStringLiteral("B"), QStringLiteral("2")}, {QStringLiteral("A/Z"), QStringLiteral("x")}};
    ReportedInput recording{{QStringLiteral("a.data"), 12, QStringLiteral("00ff")},
                            QStringLiteral("recording"),
                            true,
                            {{QStringLiteral("samples"), 9007199254740993}}, // 2^53 + 1, no double
                            {{Severity::Warning, QStringLiteral("T"), QStringLiteral("\"q\"\n")}},
                            {{QStringLiteral("left"), QJsonObject{{QStringLiteral("rate_hz"), 60.5}}}}};
    ReportedInput missing{{QStringLiteral("b.data"), 0, QString()}, QStringLiteral("recording"), false, {}, {}};
    report.inputs = {recording, missing};
    report.messages = {{Severity::Information, QStringLiteral("I"), QStringLiteral("\u00B0")},
                       {Severity::Critical, QString(), QString()}};
    report.outputs = {{QStringLiteral("o.csv"), 3, QStringLiteral("ab")}};
    const char *expected =
        R"({"inputs":[)"
        R"({"bytes":12,"counts":{"samples":9007199254740993},"kind":"recording",)"
        R"("messages":[{"severity":"warning","text":"\"q\"\n","title":"T"}],"path":"a.data","quality":{"left":{"rate_hz":60.5}},)"
        R"("sha256":"00ff","used":true},)"
        R"({"bytes":0,"counts":{},"kind":"recording","messages":[],"path":"b.data","sha256":null,"used":false}],)"
        R"("messages":[{"severity":"information","text":"°","title":"I"},{"severity":"critical","text":"","title":""}],)"
        R"("options":{"eyes":"all"},"outputs":[{"bytes":3,"path":"o.csv","sha256":"ab"}],)"
        R"("parameters":{"A/Z":"x","B":"2"},"program":"vistrum-batch","version":"1.2"})";
    QCOMPARE(toJson(report).toJson(QJsonDocument::Compact), QByteArray(expected));
}

void TestBatchReport::fileDigest_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("sha256");
    // from sha256sum of GNU coreutils
    QTest::newRow("empty") << QByteArray("") << "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855";
    QTest::newRow("abc") << QByteArray("abc") << "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad";
    QTest::newRow("a million times a") << QByteArray(1000000, 'a')
                                       << "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0";
}

void TestBatchReport::fileDigest()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, sha256);
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("file"));
    writeFile(path, bytes);
    QVERIFY(reportedFile(path) == (ReportedFile{path, bytes.size(), sha256}));
}

void TestBatchReport::unreadableFileHasNoDigest()
{
    const QTemporaryDir folder;
    const QString missing = folder.filePath(QStringLiteral("missing"));
    QVERIFY(reportedFile(missing) == (ReportedFile{missing, 0, QString()}));
    QVERIFY(reportedFile(folder.path()) == (ReportedFile{folder.path(), 0, QString()}));
}

/// What wrote into it has gone: another reader would wait for ever.
void TestBatchReport::aPipeIsNotReadAgain()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("p.data"));
    QCOMPARE(QProcess::execute(QStringLiteral("mkfifo"), {path}), 0);
    QCOMPARE(reportedFile(path), (ReportedFile{path, 0, QString()}));
}

void TestBatchReport::parametersAreAllKeysOfTheStore()
{
    const QTemporaryDir folder;
    SettingsStore::useFile(folder.filePath(QStringLiteral("settings.ini")));
    SettingsStore().setValue(QStringLiteral("B/Number"), 40);
    SettingsStore().setValue(QStringLiteral("A"), 0.1);
    SettingsStore().setValue(QStringLiteral("B/Flag"), true);
    SettingsStore().setValue(QStringLiteral("Text"), QStringLiteral("a, b"));
    SettingsStore().setValue(QStringLiteral("Empty"), QString());
    const QMap<QString, QString> expected{{QStringLiteral("A"), QStringLiteral("0.1")},
                                          {QStringLiteral("B/Flag"), QStringLiteral("true")},
                                          {QStringLiteral("B/Number"), QStringLiteral("40")},
                                          {QStringLiteral("Empty"), QString()},
                                          {QStringLiteral("Text"), QStringLiteral("a, b")}};
    const QMap<QString, QString> written = storedParameters(SettingsStore());
    // The same file under another name is read from the disk, where all values are texts.
    QVERIFY(QFile::copy(folder.filePath(QStringLiteral("settings.ini")), folder.filePath(QStringLiteral("copy.ini"))));
    SettingsStore::useFile(folder.filePath(QStringLiteral("copy.ini")));
    const QMap<QString, QString> read = storedParameters(SettingsStore());
    SettingsStore::useFile(QString());
    QCOMPARE(written, expected);
    QCOMPARE(read, expected);
}

void TestBatchReport::options_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("expected");
    QTest::newRow("defaults") << "a.data"
                              << "calculate= export=";
    QTest::newRow("all that shapes the results")
        << "--time 1:20 --eyes mean --export events,fixations --calculate fixations --detector standard a.data"
        << "calculate=fixations detector=standard export=fixations,events eyes=mean time=1:20";
    QTest::newRow("detector and unit") << "--detector velocity --velocity-unit degree-per-s a.data"
                                       << "calculate= detector=velocity export= velocity-unit=degree-per-s";
    QTest::newRow("numbers of the overlap method")
        << "--overlap-fixations 2 --overlap-outliers 0 --calculate clusters,cumulative-clusters --export "
           "cumulative-clusters a.data"
        << "calculate=clusters,cumulative-clusters export=cumulative-clusters overlap-fixations=2 "
           "overlap-outliers=0";
    QTest::newRow("values of saccade clusters, where they are calculated")
        << "--saccade-cluster angle-linkage=average --calculate saccade-clusters a.data"
        << "calculate=saccade-clusters export= saccade-cluster=minimum-length=0,minimum-angle-difference=0,"
           "direction-dependent=yes,angle-linkage=average,angle-cutoff=10,minimum-angle-quantity=10,distance=euclidean,"
           "distance-linkage=minimum,distance-cutoff=25,minimum-distance-quantity=1,mode=none,line-width=3,"
           "arrow-tips=no,minimum-quantity=1";
    QTest::newRow("jobs and quiet do not") << "--jobs 3 --quiet a.data"
                                           << "calculate= export=";
}

void TestBatchReport::options()
{
    QFETCH(QString, line);
    QFETCH(QString, expected);
    const auto parsed = parseBatchOptions(line.split(u' '));
    QVERIFY(std::holds_alternative<BatchOptions>(parsed));
    const QMap<QString, QString> reported = reportedOptions(std::get<BatchOptions>(parsed));
    QStringList texts;
    for (auto entry = reported.cbegin(); entry != reported.cend(); ++entry)
        texts << entry.key() + u'=' + entry.value();
    QCOMPARE(texts.join(u' '), expected);
}

void TestBatchReport::messagesOfThreadsAllArrive()
{
    constexpr int threads = 4;
    constexpr int each = 200;
    MessageRecord record;
    std::vector<std::thread> workers;
    for (int i = 0; i < threads; ++i) {
        workers.emplace_back([&record, i] {
            for (int k = 0; k < each; ++k)
                record.add({Severity::Warning, QString::number(i), QString::number(k)});
        });
    }
    for (std::thread &worker : workers)
        worker.join();
    const QList<ShownMessage> taken = record.take();
    QCOMPARE(taken.size(), threads * each);
    QList<int> next(threads, 0); // each thread's messages keep their order
    for (const ShownMessage &message : taken)
        QCOMPARE(message.text, QString::number(next[message.title.toInt()]++));
}

void TestBatchReport::takenMessagesAreNotTakenAgain()
{
    MessageRecord record;
    const ShownMessage first{Severity::Warning, QStringLiteral("a"), QStringLiteral("1")};
    const ShownMessage second{Severity::Critical, QString(), QStringLiteral("2")};
    const ShownMessage third{Severity::Information, QStringLiteral("c"), QStringLiteral("3")};
    QVERIFY(record.take().isEmpty());
    record.add(first);
    record.add(second);
    QVERIFY(record.take() == QList({first, second}));
    record.add(third);
    QVERIFY(record.take() == QList({third}));
    QVERIFY(record.take().isEmpty());
}

QTEST_GUILESS_MAIN(TestBatchReport)
#include "TestBatchReport.moc"
