// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/AoiImages.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

class TestAoiImages : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void writesAPictureForEachArea();
    void refusesWhatLeavesTheFolder_data();
    void refusesWhatLeavesTheFolder();
    void refusesAnAreaWithoutSize();
};

namespace {

AreaOfInterest area(const QString &name, QSize size = {4, 3})
{
    AreaOfInterest area(name, QPolygon(QRect(QPoint(0, 0), size)));
    area.thumbnail = QImage(size, QImage::Format_ARGB32_Premultiplied);
    area.thumbnail.fill(Qt::blue);
    return area;
}

} // namespace

void TestAoiImages::writesAPictureForEachArea()
{
    const QTemporaryDir folder;
    const ExportResult result =
        exportAoiImages({area(QStringLiteral("Door")), area(QStringLiteral("a b, \"c\""))}, folder.path());
    QCOMPARE(result.failed, QStringList());
    QCOMPARE(result.written, QStringList({folder.filePath(QStringLiteral("Door.png")),
                                          folder.filePath(QStringLiteral("a b, \"c\".png"))}));
    for (const QString &path : result.written) {
        const QImage image(path);
        QCOMPARE(image.size(), QSize(4, 3));
        QCOMPARE(image.pixelColor(1, 1), QColor(Qt::blue));
    }
}

void TestAoiImages::refusesWhatLeavesTheFolder_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("up") << "../Door";
    QTest::newRow("far up") << "../../../../tmp/Door";
    QTest::newRow("below") << "folder/Door";
    QTest::newRow("absolute") << "/tmp/Door";
    QTest::newRow("empty") << "";
}

void TestAoiImages::refusesWhatLeavesTheFolder()
{
    QFETCH(QString, name);
    const QTemporaryDir root;
    const QString folder = root.filePath(QStringLiteral("inner"));
    QDir().mkpath(folder);
    const ExportResult result = exportAoiImages({area(name), area(QStringLiteral("good"))}, folder);
    QCOMPARE(result.written.size(), 1); // the others go on
    QCOMPARE(result.failed.size(), 1);
    QVERIFY(result.problems.first().contains(QStringLiteral("give the area another one")));
    QCOMPARE(QDir(root.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList(QStringLiteral("inner")));
    QCOMPARE(QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList(QStringLiteral("good.png")));
}

void TestAoiImages::refusesAnAreaWithoutSize()
{
    const QTemporaryDir folder;
    AreaOfInterest empty(QStringLiteral("Door"), {});
    const ExportResult result = exportAoiImages({empty}, folder.path());
    QVERIFY(result.written.isEmpty());
    QVERIFY(result.problems.first().endsWith(QStringLiteral("could not be written: the area has no size")));
}

QTEST_GUILESS_MAIN(TestAoiImages)
#include "TestAoiImages.moc"
