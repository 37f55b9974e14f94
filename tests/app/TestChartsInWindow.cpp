// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/NoticeLine.h"
#include "diagram/panel/add_diagram.h"
#include "export/panel/VisualizationExportBox.h"
#include "WindowTest.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QGraphicsScene>
#include <QProgressDialog>
#include <QPushButton>
#include <QSpinBox>
#include <QTimer>
#include <QToolButton>
#include <QUrl>

/// Charts over time, the chord diagram and videos in the window.
class TestChartsInWindow : public WindowTest {
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        openWindow();
        m_pages.clear();
        m_window->setPageOpener([this](const QUrl &page) { m_pages << page; });
    }
    void cleanup() { closeWindow(); }

    void chartStandsBesideTheCanvas_data();
    void chartStandsBesideTheCanvas();
    void emptyChartIsToldOnDemandOnly();
    void diagramIsShownAndWritten();
    void savedPictureIsTold();
    void diagramOfNothingIsTold();
    void diagramGoesWithTheNextDrawing();
    void videoLeavesTheViewAlone();
    void videoIsStoppedByItsButton();
    void videoThatFailsTellsWhereAndWhy();

private:
    void calculateFixations() const
    {
        find<QWidget>("fixationsPage")->findChild<QToolButton *>(QStringLiteral("toolButton"))->click();
    }
    void drawAreas(int mode) const
    {
        find<QComboBox>("visAOIWidget", "comboBox_vismode")->setCurrentIndex(mode);
        find<QAbstractButton>("visAOIWidget", "stat_calc")->click();
    }
    void makeAreas() const { find<QAbstractButton>("addAOI_grid")->click(); }
    double rightEdge() const { return find<QGraphicsView>("visualization")->scene()->itemsBoundingRect().right(); }
    static add_diagram *shownDiagram()
    {
        for (QWidget *widget : QApplication::topLevelWidgets()) {
            auto *diagram = qobject_cast<add_diagram *>(widget);
            if (diagram && diagram->isVisible())
                return diagram;
        }
        return nullptr;
    }

    QList<QUrl> m_pages;
};

void TestChartsInWindow::chartStandsBesideTheCanvas_data()
{
    QTest::addColumn<int>("mode");
    for (const int mode : {4, 5, 6, 7})
        QTest::addRow("areas, mode %d", mode) << mode;
}

void TestChartsInWindow::chartStandsBesideTheCanvas()
{
    QFETCH(int, mode);
    importExamples();
    calculateFixations();
    makeAreas();
    drawAreas(0);
    QVERIFY(rightEdge() < 2600);
    drawAreas(mode);
    QVERIFY(rightEdge() > 4900);
    QVERIFY(!m_messages->texts().contains(QStringLiteral("|No fixations available")));
}

void TestChartsInWindow::emptyChartIsToldOnDemandOnly()
{
    importExamples();
    drawAreas(5);
    QCOMPARE(m_messages->texts().last(), QStringLiteral("|No AOIs available"));
    makeAreas();
    drawAreas(5);
    QCOMPARE(m_messages->texts().last(), QStringLiteral("|No fixations available"));
    const qsizetype told = m_messages->texts().size();
    m_window->redraw();
    QCOMPARE(m_messages->texts().size(), told);
}

void TestChartsInWindow::diagramIsShownAndWritten()
{
    importExamples();
    calculateFixations();
    makeAreas();
    drawAreas(2);
    QVERIFY(shownDiagram());
    QCOMPARE(m_pages.size(), 1);
    const QFileInfo page(m_pages.first().toLocalFile());
    QCOMPARE(page.fileName(), QStringLiteral("index.htm"));
    for (const char *name : {"index.htm", "matrix.json", "cities.csv", "chord.js", "d3.min.js"})
        QVERIFY2(QFileInfo::exists(page.path() + u'/' + QLatin1StringView(name)), name);

    find<VisualizationExportBox>("visualizationBox")
        ->setFileChooser([this](const QString &, const QString &, const QString &) {
            return m_folder->filePath(QStringLiteral("d.png"));
        });
    find<QAbstractButton>("diagramExportButton")->click();
    QVERIFY(QImage(m_folder->filePath(QStringLiteral("d.png"))).width() >= 1600);
    QCOMPARE(m_messages->texts().last(),
             QStringLiteral("Transition diagramm export|Displayed transition diagramm exported to: ") +
                 m_folder->filePath(QStringLiteral("d.png")));
}

void TestChartsInWindow::savedPictureIsTold()
{
    const QString path = m_folder->filePath(QStringLiteral("drawn & seen.png"));
    find<VisualizationExportBox>("visualizationBox")
        ->setFileChooser([&](const QString &, const QString &, const QString &) { return path; });
    find<QAbstractButton>("visualizationExportButton")->click();
    QVERIFY(QFile::exists(path));
    QCOMPARE(m_messages->texts(), QStringList());
    QCOMPARE(m_window->findChild<NoticeLine *>()->text(),
             QStringLiteral("Visualization saved to: ") + m_folder->filePath(QStringLiteral("drawn && seen.png")));
}

void TestChartsInWindow::diagramOfNothingIsTold()
{
    bool isAsked = false;
    find<VisualizationExportBox>("visualizationBox")
        ->setFileChooser([&](const QString &, const QString &, const QString &) {
            isAsked = true;
            return QString();
        });
    find<QAbstractButton>("diagramExportButton")->click();
    QCOMPARE(m_messages->texts().last(), QStringLiteral("Transition diagramm export|No AOIs available"));
    QVERIFY(!isAsked);
    drawAreas(2);
    QCOMPARE(m_messages->texts().last(), QStringLiteral("|No AOIs available"));
    makeAreas();
    drawAreas(2);
    QCOMPARE(m_messages->texts().last(), QStringLiteral("|No examination selected"));
    importExamples();
    drawAreas(2);
    QCOMPARE(m_messages->texts().last(), QStringLiteral("|No fixations available"));
    QVERIFY(m_pages.isEmpty() && !shownDiagram());
}

void TestChartsInWindow::diagramGoesWithTheNextDrawing()
{
    importExamples();
    calculateFixations();
    makeAreas();
    drawAreas(2);
    QVERIFY(shownDiagram());
    m_window->redraw();
    QVERIFY(!shownDiagram());
    QCOMPARE(m_pages.size(), 1);
}

void TestChartsInWindow::videoLeavesTheViewAlone()
{
    importExamples();
    const QImage before = picture();
    const QString path = m_folder->filePath(QStringLiteral("a.avi"));
    find<VisualizationExportBox>("visualizationBox")
        ->setFileChooser([&](const QString &, const QString &, const QString &) { return path; });
    find<QSpinBox>("videoTimespanSpinBox")->setValue(4000);
    find<QAbstractButton>("videoExportButton")->click();
    QCOMPARE(m_messages->texts().last(), QStringLiteral("Save Video|Writing video is done!!!"));
    QCOMPARE(m_window->findChild<NoticeLine *>()->text(), QStringLiteral("Video saved to: ") + path);
    QVERIFY(QFileInfo(path).size() > 10000);
    QVERIFY(picture() == before);
}

/// The button is pressed while the images are drawn: no file is left, and the older one stays as it was.
void TestChartsInWindow::videoIsStoppedByItsButton()
{
    importExamples();
    const QString path = m_folder->filePath(QStringLiteral("a.avi"));
    QFile older(path);
    QVERIFY(older.open(QIODevice::WriteOnly) && older.write("older") == 5);
    older.close();
    find<VisualizationExportBox>("visualizationBox")
        ->setFileChooser([&](const QString &, const QString &, const QString &) { return path; });
    find<QSpinBox>("videoTimespanSpinBox")->setValue(100);
    QTimer press;
    bool isPressed = false;
    connect(&press, &QTimer::timeout, this, [&] {
        auto *dialog = m_window->findChild<QProgressDialog *>();
        if (!dialog || dialog->value() < 2)
            return;
        QTest::mouseClick(dialog->findChild<QPushButton *>(), Qt::LeftButton);
        isPressed = true;
        press.stop();
    });
    press.start(1);
    find<QAbstractButton>("videoExportButton")->click();
    QVERIFY(isPressed);
    QCOMPARE(m_messages->texts().last(), QStringLiteral("Save Video|The video was stopped, no file was written."));
    QVERIFY(older.open(QIODevice::ReadOnly));
    QCOMPARE(older.readAll(), "older");
    QCOMPARE(QDir(m_folder->path()).entryList({QStringLiteral(".video*")}, QDir::AllEntries | QDir::Hidden), {});
}

void TestChartsInWindow::videoThatFailsTellsWhereAndWhy()
{
    importExamples();
    const QString path = m_folder->filePath(QStringLiteral("no/a.avi"));
    find<VisualizationExportBox>("visualizationBox")
        ->setFileChooser([&](const QString &, const QString &, const QString &) { return path; });
    find<QSpinBox>("videoTimespanSpinBox")->setValue(4000);
    find<QAbstractButton>("videoExportButton")->click();
    QCOMPARE(m_messages->texts().last(),
             QStringLiteral("Save Video|Can't create video!!!\n%1 could not be written: its "
                            "folder cannot be written")
                 .arg(path));
}

QTEST_MAIN(TestChartsInWindow)
#include "TestChartsInWindow.moc"
