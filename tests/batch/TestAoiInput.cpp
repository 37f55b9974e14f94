// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/AoiInput.h"
#include "TestMessages.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

/// What a run reads from a file of areas of interest, and what it says about it.
class TestAoiInput : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() { m_model = DataModel(); }
    void whole();
    void whatIsWrong_data();
    void whatIsWrong();
    void missingFile();
    void areasOfOneNameReplaceEachOther();

private:
    AoiInput load(const QByteArray &bytes)
    {
        m_path = m_folder.filePath(QStringLiteral("areas.aoi"));
        QFile file(m_path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("The file cannot be written");
        file.close();
        return loadAoiFile(m_path, m_model);
    }

    QTemporaryDir m_folder;
    QString m_path;
    DataModel m_model;
};

void TestAoiInput::whole()
{
    const RecordedMessages messages;
    const AoiInput input = load("AOI FILE\ntype=static\ncolor=1;2;3;4\nname=roof\n1 2\n3 4\n5 6\n");
    QVERIFY(input.used && input.complete);
    QCOMPARE(input.counts[QStringLiteral("areas")], 1);
    QCOMPARE(input.counts[QStringLiteral("lines that are no vertex")], 0);
    QVERIFY(m_model.hasAoi(QStringLiteral("roof")));
    QCOMPARE(messages.texts(), QStringList());
}

void TestAoiInput::whatIsWrong_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("used");
    QTest::addColumn<bool>("complete");
    QTest::addColumn<QString>("text"); // of the last warning, behind the path
    const QByteArray area("AOI FILE\ntype=static\nname=A\n1 2\n3 4\n");
    QTest::newRow("no such file format") << QByteArray("areas\n") << false << false
                                         << "no area is read, since line 1 is not \"AOI FILE\".";
    QTest::newRow("nothing in it") << QByteArray("AOI FILE\n") << false << false << "holds no area of interest.";
    QTest::newRow("a name behind a vertex")
        << area + "name=B\n"
        << false << false
        << "reading stopped at line 6; areas read before: 0. In each block, color= and name= stand before the first "
           "vertex.";
    QTest::newRow("a name behind a vertex of the second area")
        << area + "type=static\nname=B\n1 1\nname=C\n"
        << true << false
        << "reading stopped at line 9; areas read before: 1. In each block, color= and name= stand before the first "
           "vertex.";
    QTest::newRow("a line that is no vertex")
        << area + "5  6\n"
        << true << true
        << "lines left out that are no vertex: 1; the first is line 6. A vertex is two whole numbers with one blank "
           "between them.";
    QTest::newRow("an area without vertices")
        << area + "type=static\nname=B\n"
        << true << true << "areas left out that have no name or no vertices: 1. Each needs both.";
}

void TestAoiInput::whatIsWrong()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, text);
    const RecordedMessages messages;
    const AoiInput input = load(bytes);
    QTEST(input.used, "used");
    QTEST(input.complete, "complete");
    QVERIFY(!messages.texts().isEmpty());
    QCOMPARE(messages.texts().constLast(), QStringLiteral("Areas of interest|") + m_path + QStringLiteral(": ") + text);
}

void TestAoiInput::missingFile()
{
    const RecordedMessages messages;
    const QString path = m_folder.filePath(QStringLiteral("missing.aoi"));
    const AoiInput input = loadAoiFile(path, m_model);
    QVERIFY(!input.used && !input.complete);
    QVERIFY(
        messages.texts().constLast().startsWith(QStringLiteral("Areas of interest|%1: cannot be read: ").arg(path)));
}

void TestAoiInput::areasOfOneNameReplaceEachOther()
{
    const QByteArray area("AOI FILE\ntype=static\nname=twice\n1 2\n3 4\n");
    load(area);
    const RecordedMessages messages;
    const AoiInput input = load("AOI FILE\ntype=static\nname=twice\n7 8\n9 9\n");
    QVERIFY(input.used && input.complete);
    QCOMPARE(m_model.aoi(QStringLiteral("twice")).polygon.constFirst(), QPoint(7, 8));
    QCOMPARE(
        messages.texts().constLast(),
        QStringLiteral("Areas of interest|%1: areas that replace one of the same name: 1; the first is \"twice\". Each "
                       "area needs a name of its own.")
            .arg(m_path));
}

QTEST_GUILESS_MAIN(TestAoiInput)
#include "TestAoiInput.moc"
