// SPDX-License-Identifier: GPL-3.0-or-later
#include "ChordSamples.h"
#include "diagram/ChordFiles.h"
#include "diagram/panel/add_diagram.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>
#include <QWebEngineView>

/// The page of the diagram in the web engine, with pixels and a pointer as users have them.
class TestWebChordPage : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void showsEachArea_data();
    void showsEachArea();
    void pointerOnAnAreaFadesTheOthers();
    void namesAreText();
    void laterDiagramReplacesTheEarlier();
    void missingPageIsDrawnAllTheSame();

private:
    void show(const ChordData &chords)
    {
        QVERIFY(!writeChordFiles(chords, m_folder->path()));
        m_window->showDiagram(chords, page());
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
        QTRY_VERIFY(evaluated(QStringLiteral("document.querySelectorAll('svg').length")).toInt() == 1);
    }
    QUrl page() const { return QUrl::fromLocalFile(m_folder->filePath(QStringLiteral("index.htm"))); }
    QWebEngineView *view() const { return m_window->findChild<QWebEngineView *>(); }

    QVariant evaluated(const QString &script) const
    {
        QVariant result;
        bool done = false;
        view()->page()->runJavaScript(script, [&](const QVariant &value) {
            result = value;
            done = true;
        });
        [[maybe_unused]] const bool answered = QTest::qWaitFor([&] { return done; });
        return result;
    }

    /// Whether at least 100 pixels of the window have the colour of each area.
    bool showsColors(const ChordData &chords) const
    {
        const QImage image = view()->grab().toImage().convertToFormat(QImage::Format_RGB32);
        QHash<QRgb, int> counts;
        for (int y = 0; y < image.height(); ++y) {
            const auto *line = reinterpret_cast<const QRgb *>(image.constScanLine(y));
            for (int x = 0; x < image.width(); ++x)
                ++counts[line[x]];
        }
        return std::ranges::all_of(chords.areas,
                                   [&](const ChordData::Area &area) { return counts[area.color.rgb()] >= 100; });
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<add_diagram> m_window;
};

void TestWebChordPage::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_window = std::make_unique<add_diagram>();
}

void TestWebChordPage::showsEachArea_data()
{
    QTest::addColumn<int>("areas");
    for (const int areas : {2, 12, 30})
        QTest::addRow("%d areas", areas) << areas;
}

void TestWebChordPage::showsEachArea()
{
    QFETCH(int, areas);
    const ChordData chords = ringChords(areas);
    show(chords);
    QCOMPARE(evaluated(QStringLiteral("document.querySelectorAll('.group').length")).toInt(), areas);
    QTRY_VERIFY(showsColors(chords));
}

void TestWebChordPage::pointerOnAnAreaFadesTheOthers()
{
    show(ringChords(4));
    QTRY_VERIFY(showsColors(ringChords(4)));
    const QString told = QStringLiteral("document.getElementById('told').textContent");
    const QString faded = QStringLiteral("document.querySelectorAll('.chord.faded').length");
    QCOMPARE(evaluated(told).toString(), QString());
    QCOMPARE(evaluated(faded).toInt(), 0);
    const QVariantList arc = evaluated(QStringLiteral("(function () { var p = document.querySelector('.group path');"
                                                      "var at = p.getPointAtLength(3), m = p.getScreenCTM();"
                                                      "var q = new DOMPoint(at.x, at.y).matrixTransform(m);"
                                                      "return [q.x - 1, q.y + 4]; })()"))
                                 .toList();
    QCOMPARE(arc.size(), 2);
    const QImage before = view()->grab().toImage();
    QCursor::setPos(view()->mapToGlobal(QPoint(2, 2)));
    QCursor::setPos(view()->mapToGlobal(QPoint(arc[0].toInt(), arc[1].toInt())));
    QTRY_VERIFY(evaluated(told).toString().startsWith(QStringLiteral("Area 1: ")));
    QVERIFY(evaluated(faded).toInt() > 0);
    QTRY_VERIFY(view()->grab().toImage() != before);
    QCursor::setPos(view()->mapToGlobal(QPoint(2, 2)));
    QTRY_COMPARE(evaluated(told).toString(), QString());
}

void TestWebChordPage::namesAreText()
{
    show(sampleChords());
    QCOMPARE(evaluated(QStringLiteral("document.querySelectorAll('.group b').length")).toInt(), 0);
    QCOMPARE(evaluated(QStringLiteral("document.querySelectorAll('.group text')[1].firstChild.data")).toString(),
             QStringLiteral("</script><b>"));
}

void TestWebChordPage::laterDiagramReplacesTheEarlier()
{
    show(ringChords(2));
    show(ringChords(5));
    QTRY_COMPARE(evaluated(QStringLiteral("document.querySelectorAll('.group').length")).toInt(), 5);
    QCOMPARE(m_window->findChildren<QWebEngineView *>().size(), 1);
}

void TestWebChordPage::missingPageIsDrawnAllTheSame()
{
    m_window->showDiagram(sampleChords(), page());
    QVERIFY(m_window->isVisible() && !view()->isVisible());
}

int main(int argc, char *argv[])
{
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QApplication application(argc, argv);
    TestWebChordPage test;
    return QTest::qExec(&test, argc, argv);
}
#include "TestWebChordPage.moc"
