// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/client/MessageFramer.h"
#include "recording/PlainFramer.h"

#include <QByteArray>
#include <QRandomGenerator>
#include <QTest>

class TestMessageFramer : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void messages_data();
    void messages();
    void keepsNoMoreThanTheLimit();
    void findsTheWayAfterABraceInAString();
    void likeThePlainForm();
};

namespace {

/// The messages of bytes that come in one read, with "|" between them.
std::string framed(gtl::MessageFramer &framer, std::string_view bytes)
{
    std::string joined;
    for (const std::string &message : framer.take(bytes).messages)
        joined += message + '|';
    return joined;
}

} // namespace

void TestMessageFramer::messages_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("messages"); // each with a "|" behind it
    const auto row = [](const char *name, const char *bytes, const char *messages) {
        QTest::newRow(name) << QByteArray(bytes) << QByteArray(messages);
    };
    row("nothing", "", "");
    row("one", R"({"a":1})", R"({"a":1}|)");
    row("two in one read", R"({"a":1}{"b":2})", R"({"a":1}|{"b":2}|)");
    row("nested", R"({"a":{"b":{}}})", R"({"a":{"b":{}}}|)");
    row("not complete", R"({"a":{})", "");
    row("bytes around", "x }{} \r\n,{}]", "{}|{}|");
    row("a closing brace in a string ends the message", R"({"a":"}"}{"b":2})", R"({"a":"}|{"b":2}|)");
    row("an opening brace in a string swallows the next", R"({"a":"{"}{"b":2})", "");
    row("balanced braces in a string do no harm", R"({"a":"{}"}{"b":2})", R"({"a":"{}"}|{"b":2}|)");
}

void TestMessageFramer::messages()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QByteArray, messages);
    gtl::MessageFramer whole;
    QCOMPARE(framed(whole, bytes.toStdString()), messages.toStdString());
    gtl::MessageFramer torn;
    std::string joined;
    for (const char byte : bytes)
        joined += framed(torn, {&byte, 1});
    QCOMPARE(joined, messages.toStdString());
}

void TestMessageFramer::keepsNoMoreThanTheLimit()
{
    constexpr std::size_t limit = 1000;
    gtl::MessageFramer framer(limit);
    const std::string longest = '{' + std::string(limit - 2, 'x') + '}';
    QCOMPARE(framed(framer, longest), longest + '|');
    PlainFramer plain(limit);
    std::size_t dropped = 0;
    for (int i = 0; i < 1000; ++i) {
        constexpr std::string_view endless = "{{{{{{{{{{ endless";
        dropped += framer.take(endless).dropped;
        for (const char byte : endless)
            plain.take(byte);
        QVERIFY(framer.keptBytes() <= limit);
    }
    QVERIFY(dropped > 0);
    QCOMPARE(dropped, plain.dropped);
}

/// What the open brace swallowed is lost; what comes after the limit is read again.
void TestMessageFramer::findsTheWayAfterABraceInAString()
{
    gtl::MessageFramer framer(100);
    std::string joined = framed(framer, R"({"a":"{"})");
    for (int i = 0; i < 40; ++i)
        joined += framed(framer, R"({"b":2})");
    QVERIFY(joined.ends_with(R"({"b":2}|{"b":2}|)"));
    QCOMPARE(framer.keptBytes(), std::size_t(0));
}

void TestMessageFramer::likeThePlainForm()
{
    QRandomGenerator random(7);
    constexpr std::string_view alphabet = "{{{}}}}\"a ,";
    for (int round = 0; round < 2000; ++round) {
        constexpr std::size_t limit = 20;
        gtl::MessageFramer framer(limit);
        PlainFramer plain(limit);
        std::vector<std::string> messages;
        std::size_t dropped = 0;
        for (int read = 0; read < 10; ++read) {
            std::string bytes(random.bounded(30U), ' ');
            for (char &byte : bytes) {
                byte = alphabet[random.bounded(static_cast<quint32>(alphabet.size()))];
                plain.take(byte);
            }
            const auto result = framer.take(bytes);
            messages.insert(messages.end(), result.messages.begin(), result.messages.end());
            dropped += result.dropped;
        }
        QVERIFY2(messages == plain.messages && dropped == plain.dropped, qPrintable(QString::number(round)));
    }
}

QTEST_GUILESS_MAIN(TestMessageFramer)
#include "TestMessageFramer.moc"
