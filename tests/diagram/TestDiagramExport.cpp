// SPDX-License-Identifier: GPL-3.0-or-later
#include "ChordSamples.h"
#include "diagram/ChordFiles.h"
#include "diagram/scene/DiagramExport.h"

#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>

class TestDiagramExport : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void picture();
    void vectorGraphics();
    void page();
    void failure();

private:
    QByteArray exported(const char *name)
    {
        const QString path = m_folder.filePath(QLatin1StringView(name));
        if (const auto problem = exportDiagram(sampleChords(), path))
            qFatal("%s", qPrintable(*problem));
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir m_folder;
};

void TestDiagramExport::picture()
{
    const QImage image = QImage::fromData(exported("a.png"));
    QVERIFY(image.width() >= 1600 && image.height() >= 1040);
    QCOMPARE(image.pixelColor(5, 5), QColor(Qt::white));
    QCOMPARE(image.pixelColor(520 + 300, 520 - 372), QColor(255, 0, 0)); // the first arc goes right from the top
}

void TestDiagramExport::vectorGraphics()
{
    const QByteArray svg = exported("a.svg");
    QVERIFY(svg.contains("<title>Vistrum 2014 transition diagramm</title>"));
    QVERIFY(svg.contains("<desc>An Eye-Tracking recording transition diagramm by Vistrum 2014</desc>"));
    QVERIFY(!svg.contains("<image"));
}

void TestDiagramExport::page()
{
    QCOMPARE(exported("a.html"), standalonePage(sampleChords()));
}

void TestDiagramExport::failure()
{
    for (const char *name : {"no/a.html", "no/a.png"}) {
        const auto problem = exportDiagram(sampleChords(), m_folder.filePath(QLatin1StringView(name)));
        QVERIFY(problem && problem->contains(QStringLiteral("could not be written")));
    }
}

QTEST_MAIN(TestDiagramExport)
#include "TestDiagramExport.moc"
