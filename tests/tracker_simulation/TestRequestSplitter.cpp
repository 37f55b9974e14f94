// SPDX-License-Identifier: GPL-3.0-or-later
#include "tracker-simulator/RequestSplitter.h"

#include <QTest>

class TestRequestSplitter : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void requests_data();
    void requests();
};

void TestRequestSplitter::requests_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArrayList>("requests");
    QTest::newRow("two") << QByteArray(R"({"a":1}{"b":{}})") << QByteArrayList{R"({"a":1})", R"({"b":{}})"};
    QTest::newRow("braces in a string") << QByteArray(R"({"a":"}{"})") << QByteArrayList{R"({"a":"}{"})"};
    QTest::newRow("a quote in a string") << QByteArray(R"({"a":"\"}"}{})") << QByteArrayList{R"({"a":"\"}"})", "{}"};
    QTest::newRow("bytes between") << QByteArray("x{}\n{} ") << QByteArrayList{"{}", "{}"};
    QTest::newRow("half of one") << QByteArray(R"({"a":)") << QByteArrayList{};
}

void TestRequestSplitter::requests()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QByteArrayList, requests);
    RequestSplitter whole;
    QCOMPARE(whole.take(bytes), requests);
    RequestSplitter torn;
    QByteArrayList found;
    for (qsizetype i = 0; i < bytes.size(); ++i)
        found += torn.take(QByteArrayView(bytes).sliced(i, 1));
    QCOMPARE(found, requests);
}

QTEST_GUILESS_MAIN(TestRequestSplitter)
#include "TestRequestSplitter.moc"
