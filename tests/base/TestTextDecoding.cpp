// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/TextDecoding.h"

#include <QTest>

class TestTextDecoding : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void decodes_data();
    void decodes();
};

void TestTextDecoding::decodes_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing") << QByteArray() << QString();
    QTest::newRow("UTF-8") << QByteArray("M\xc3\xbcller") << QStringLiteral("M\u00fcller");
    QTest::newRow("Latin-1") << QByteArray("M\xfcller") << QStringLiteral("M\u00fcller");
    QTest::newRow("Latin-1 where UTF-8 would go on") << QByteArray("caf\xe9") << QStringLiteral("caf\u00e9");
    QTest::newRow("one wrong byte makes all Latin-1")
        << QByteArray("\xc3\xbc\xff") << QStringLiteral("\u00c3\u00bc\u00ff");
}

void TestTextDecoding::decodes()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, text);
    QCOMPARE(decodeText(bytes), text);
}

QTEST_GUILESS_MAIN(TestTextDecoding)
#include "TestTextDecoding.moc"
