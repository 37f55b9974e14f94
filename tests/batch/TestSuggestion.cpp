// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/Suggestion.h"

#include <QTest>

class TestSuggestion : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void suggestions_data();
    void suggestions();
    void firstOfEquals();
    void inWords();
};

void TestSuggestion::suggestions_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<QString>("expected");
    QTest::newRow("begins one known word") << "sacc"
                                           << "saccades";
    QTest::newRow("begins one, in another case") << "SACC"
                                                 << "saccades";
    QTest::newRow("begins two, and is near none") << "cl"
                                                  << "";
    QTest::newRow("a letter missing") << "clustrs"
                                      << "clusters";
    QTest::newRow("a letter too many") << "clussters"
                                       << "clusters";
    QTest::newRow("a letter changed") << "clusterz"
                                      << "clusters";
    QTest::newRow("letters swapped") << "lcusters"
                                     << "clusters";
    QTest::newRow("too far") << "transitions"
                             << "";
    QTest::newRow("a letter changed of eight") << "saccadeo"
                                               << "saccades";
    QTest::newRow("a short word may differ in one letter") << "cock"
                                                           << "";
    QTest::newRow("letters within the word") << "cade"
                                             << "";
    QTest::newRow("nothing") << ""
                             << "";
}

void TestSuggestion::suggestions()
{
    QFETCH(QString, word);
    QTEST(suggestion(word, {QStringLiteral("clusters"), QStringLiteral("clocks"), QStringLiteral("saccades")}),
          "expected");
}

void TestSuggestion::firstOfEquals()
{
    QCOMPARE(suggestion(QStringLiteral("bat"), {QStringLiteral("cat"), QStringLiteral("hat")}), QStringLiteral("cat"));
    QCOMPARE(suggestion(QStringLiteral("hat"), {QStringLiteral("cat"), QStringLiteral("hat")}), QStringLiteral("hat"));
    QCOMPARE(suggestion(QStringLiteral("anything"), {}), QString());
}

void TestSuggestion::inWords()
{
    QCOMPARE(didYouMean(QStringLiteral("--eyse"), {QStringLiteral("--eyes")}),
             QStringLiteral("; did you mean --eyes?"));
    QCOMPARE(didYouMean(QStringLiteral("--video"), {QStringLiteral("--eyes")}), QString());
}

QTEST_GUILESS_MAIN(TestSuggestion)
#include "TestSuggestion.moc"
