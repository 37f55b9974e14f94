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
    void aChartThatComesIsSeen_data();
    void aChartThatComesIsSeen();
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
    QRectF seen() const
    {
        const auto *view = find<QGraphicsView>("visualization");
        return view->mapToScene(view->viewport()->rect()).boundingRect();
    }
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

    static constexpr QRectF picturePlace{0, 0, 2560, 1600};
    static constexpr QRectF chart{2560, 0, 2401, 1000};

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

void TestChartsInWindow::aChartThatComesIsSeen_data()
{
    QTest::addColumn<QString>("panel");
    QTest::addColumn<int>("mode");
    const auto rows = [](const char *panel, std::initializer_list<int> modes) {
        for (const int mode : modes)
            QTest::addRow("%s, mode %d", panel, mode) << QString::fromLatin1(panel) << mode;
    };
    rows("fixation_widget", {5, 6});
    rows("saccade_widget", {5, 6, 7});
    rows("visAOIWidget", {4, 5, 6, 7});
}

/// It comes beside the picture, where nobody looks.
void TestChartsInWindow::aChartThatComesIsSeen()
{
    QFETCH(QString, panel);
    QFETCH(int, mode);
    importExamples();
    calculateFixations();
    makeAreas();
    const auto draw = [&](int number) {
        auto *form = find<QWidget>(panel.toLatin1());
        form->findChild<QComboBox *>(QStringLiteral("comboBox_vismode"))->setCurrentIndex(number);
        const bool isOfAreas = panel == QStringLiteral("visAOIWidget");
        form->findChild<QAbstractButton *>(isOfAreas ? QStringLiteral("stat_calc") : QStringLiteral("start_calc"))
            ->click();
    };
    draw(0);
    find<QAbstractButton>("fitToScreenButton")->click();
    const QRectF before = seen();
    QVERIFY(!seen().contains(chart));
    draw(mode);
    QVERIFY(seen().contains(chart) && seen().contains(picturePlace));
    draw(0);
    QVERIFY(seen().contains(picturePlace));
    QCOMPARE(seen().size(), before.size()); // as it was

    draw(mode);
    auto *view = find<QGraphicsView>("visualization");
    view->scale(5, 5);
    const QTransform own = view->transform();
    draw(mode);
    QCOMPARE(view->transform(), own); // only once
    draw(0);
    QCOMPARE(view->transform(), own);
    draw(mode);
    find<QAbstractButton>("fitToScreenButton")->click();
    QVERIFY(seen().contains(chart) && seen().contains(picturePlace));
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
