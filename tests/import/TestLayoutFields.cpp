// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/conversion/LayoutFields.h"

#include <QSet>
#include <QTest>

using namespace Qt::StringLiterals;

class TestLayoutFields : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void keysAreUnique();
    void whatIsWrittenIsRead_data();
    void whatIsWrittenIsRead();
    void everyWordIsTaken();
    void whatIsNothingChangesNothing_data();
    void whatIsNothingChangesNothing();
    void membersAreTheRightOnes();
    void columnsByNumber();
};

void TestLayoutFields::keysAreUnique()
{
    QSet<QString> keys;
    for (const LayoutField &field : layoutFields()) {
        QVERIFY2(!keys.contains(field.key), field.key.data());
        keys << field.key;
        QCOMPARE(layoutField(field.key), &field);
        QVERIFY(!field.label.isEmpty() && field.help.endsWith(u'.'));
        QCOMPARE(field.kind == LayoutField::Kind::Word && !field.words, false);
    }
    QVERIFY(!layoutField("nothing"_L1));
}

void TestLayoutFields::whatIsWrittenIsRead_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *key, const char *text) {
        QTest::addRow("%s: %s", key, text) << QString::fromLatin1(key) << QString::fromLatin1(text);
    };
    row("delimiter", "semicolon");
    row("delimiter", "~");
    row("header", "no");
    row("header", "7");
    row("header", "no, after line 3");
    row("eye.left", "L links");
    row("eye.right", "R rechts");
    row("set.dominant", "dom");
    row("comment", "#");
    row("time.column", "Recording timestamp");
    row("time.column", "column 3");
    row("time.column", "");
    row("time.rateHz", "250");
    row("left.x", "x");
    row("right.validity", "ok");
    row("missing", "-1 nan");
    row("missing", "");
    row("valid", "0 1");
    row("valid", ">= 0.6");
    row("valid", "<= 1");
    row("split", "subject + trial");
    row("split", "");
    row("eye.column", "eye");
    row("set.subject", "who");
    row("set.stimulus", "");
    row("place.screenPx", "1920 x 1080");
    row("place.screenMm", "");
    row("place.distanceMm", "600");
    row("messages.begin", "TRIALID");
}

void TestLayoutFields::whatIsWrittenIsRead()
{
    QFETCH(QString, key);
    QFETCH(QString, text);
    const LayoutField *field = layoutField(QLatin1StringView(key.toLatin1().constData()));
    QVERIFY(field);
    TableLayout layout;
    QVERIFY(field->write(layout, text));
    QCOMPARE(field->read(layout), text);
    TableLayout again = layout;
    QVERIFY(field->write(again, field->read(layout)));
    QCOMPARE(again, layout);
}

void TestLayoutFields::everyWordIsTaken()
{
    int words = 0;
    for (const LayoutField &field : layoutFields()) {
        for (const QString &word : field.words ? field.words() : QStringList()) {
            TableLayout layout;
            QVERIFY2(field.write(layout, word), qPrintable(word));
            QCOMPARE(field.read(layout), word);
            ++words;
        }
    }
    QVERIFY(words > 25);
}

void TestLayoutFields::whatIsNothingChangesNothing_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *key, const char *text) {
        QTest::addRow("%s: %s", key, text) << QString::fromLatin1(key) << QString::fromLatin1(text);
    };
    row("kind", "picture");
    row("delimiter", "");
    row("delimiter", "two");
    row("delimiter", "x");
    row("delimiter", "\"");
    row("delimiter", "7");
    row("header", "no, after line ");
    row("header", "no, after line 0");
    row("header", "0");
    row("header", "perhaps");
    row("time.unit", "hours");
    row("time.rateHz", "fast");
    row("time.rateHz", "-1");
    row("time.rateHz", "nan");
    row("valid", ">= much");
    row("valid", "");
    row("place.screenPx", "1920");
    row("place.screenPx", "0 x 1080");
    row("place.screenPx", "a x b");
    row("place.distanceMm", "near");
}

void TestLayoutFields::whatIsNothingChangesNothing()
{
    QFETCH(QString, key);
    QFETCH(QString, text);
    TableLayout layout;
    layout.place.screenPx = QSizeF(800, 600);
    const TableLayout before = layout;
    QVERIFY(!layoutField(QLatin1StringView(key.toLatin1().constData()))->write(layout, text));
    QCOMPARE(layout, before);
}

void TestLayoutFields::membersAreTheRightOnes()
{
    TableLayout layout;
    const auto set = [&](QLatin1StringView key, const QString &text) { layoutField(key)->write(layout, text); };
    set("left.x"_L1, u"a"_s);
    set("left.y"_L1, u"b"_s);
    set("left.pupil"_L1, u"c"_s);
    set("right.pupilHeight"_L1, u"d"_s);
    set("right.validity"_L1, u"e"_s);
    set("place.yAxis"_L1, u"up"_s);
    set("set.group"_L1, u"g"_s);
    set("messages.end"_L1, u"h"_s);
    TableLayout expected;
    expected.left.x = TableColumn::named(u"a"_s);
    expected.left.y = TableColumn::named(u"b"_s);
    expected.left.pupil = TableColumn::named(u"c"_s);
    expected.right.pupilHeight = TableColumn::named(u"d"_s);
    expected.right.validity = TableColumn::named(u"e"_s);
    expected.place.yAxis = TableAxis::LeftOrUp;
    expected.set << TableSetColumn{u"group"_s, TableColumn::named(u"g"_s)};
    expected.endMessage = u"h"_s;
    QCOMPARE(layout, expected);
}

void TestLayoutFields::columnsByNumber()
{
    QCOMPARE(columnOf(u"column 12"_s), TableColumn::numbered(12));
    QCOMPARE(columnOf(u"column 0"_s), TableColumn::named(u"column 0"_s));
    QCOMPARE(columnOf(u"columns"_s), TableColumn::named(u"columns"_s));
    QVERIFY(!columnOf({}).isGiven());
}

QTEST_GUILESS_MAIN(TestLayoutFields)
#include "TestLayoutFields.moc"
