// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/panel/ExportWidget.h"
#include "model/DataModel.h"
#include "settings/StoredKeys.h"
#include "TestMessages.h"
#include "TestPanel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>

class TestVisualizationExportBox : public PanelTest<ExportWidget> {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void pictureIsAskedForWhereTheLastOneWent();
    void cancelledChoiceWritesNothing();
    void controlsMakeTheSettings();
    void eachChartHasItsSignal_data();
    void eachChartHasItsSignal();
    void areasAreWrittenInPlace();
    void whatIsMissingIsToldBeforeAPlaceIsAskedFor();
    void videoIsAskedForWithItsStep();

private:
    void click(const char *name) { child<QAbstractButton>(name)->click(); } // not all of the long form is seen

    std::unique_ptr<RecordedMessages> m_messages;
    DataModel m_model;
    QString m_answer;
    QStringList m_asked; ///< title, folder and filter
};

void TestVisualizationExportBox::init()
{
    openSettings();
    m_messages = std::make_unique<RecordedMessages>();
    openPanel();
    m_model = {};
    m_panel->setModel(&m_model);
    m_asked.clear();
    m_panel->visualizationBox().setFileChooser(
        [this](const QString &title, const QString &folder, const QString &filter) {
            m_asked = {title, folder, filter};
            return m_answer;
        });
    m_panel->visualizationBox().setFolderChooser([this](const QString &title, const QString &folder) {
        m_asked = {title, folder};
        return m_answer;
    });
    m_panel->show();
}

void TestVisualizationExportBox::cleanup()
{
    closePanel();
    m_messages.reset();
}

void TestVisualizationExportBox::pictureIsAskedForWhereTheLastOneWent()
{
    QSignalSpy wanted(m_panel.get(), &ExportWidget::sigExportVisualization);
    writeStored(keys::visualizationExportFolder, QStringLiteral("/before"));
    m_answer = QStringLiteral("/some/where/picture.svg");
    click("visualizationExportButton");
    QCOMPARE(m_asked,
             QStringList({QStringLiteral("Save Visualization"), QStringLiteral("/before"),
                          QStringLiteral("PNG (*.png);;Vector Graphics (*.svg);; TIFF(*.tiff);; JPEG(*.jpg)")}));
    QCOMPARE(wanted.size(), 1);
    QCOMPARE(wanted[0][0].toString(), m_answer);
    QCOMPARE(readStored(keys::visualizationExportFolder), QStringLiteral("/some/where"));
}

void TestVisualizationExportBox::cancelledChoiceWritesNothing()
{
    QSignalSpy picture(m_panel.get(), &ExportWidget::sigExportVisualization);
    QSignalSpy chart(m_panel.get(), &ExportWidget::sigExportSaccadenHistogram);
    writeStored(keys::visualizationExportFolder, QStringLiteral("/before"));
    m_answer.clear();
    m_model.insertAoi(AreaOfInterest(QStringLiteral("Door"), QPolygon(QRect(0, 0, 5, 5))));
    click("visualizationExportButton");
    click("chartExportButton");
    click("aoiImageExportButton");
    QCOMPARE(picture.size() + chart.size(), 0);
    QCOMPARE(readStored(keys::visualizationExportFolder), QStringLiteral("/before"));
    QCOMPARE(m_messages->texts(), QStringList());
}

void TestVisualizationExportBox::controlsMakeTheSettings()
{
    QVERIFY(m_panel->pictureSettings() == PictureSettings{});
    for (const char *name : {"appendColormapCheckBox", "appendParametersCheckBox", "legendCheckBox", "numbersCheckBox",
                             "cropCheckBox", "whiteGroundCheckBox"})
        child<QCheckBox>(name)->click();
    child<QSpinBox>("scaleSpinBox")->setValue(3);
    const PictureSettings all{.appended = {.legends = true, .parameters = true},
                              .area = PictureArea::Stimulus,
                              .scale = 3,
                              .ground = Qt::white,
                              .legend = true,
                              .labelFixations = true};
    QVERIFY(m_panel->pictureSettings() == all);
    QCOMPARE(child<QCheckBox>("appendColormapCheckBox")->text(), QStringLiteral("append colormap from heatmaps"));
    QCOMPARE(child<QCheckBox>("appendParametersCheckBox")->text(), QStringLiteral("append calculation parameters"));
}

void TestVisualizationExportBox::eachChartHasItsSignal_data()
{
    using Wanted = void (ExportWidget::*)(const QString &);
    using Slot = void (ExportWidget::*)();
    QTest::addColumn<int>("row");
    QTest::addColumn<Wanted>("wanted");
    QTest::addColumn<Slot>("slot");
    const std::pair<Wanted, Slot> charts[] = {
        {&ExportWidget::sigExportSaccadenHistogram, &ExportWidget::sltExportSaccadenHistogram},
        {&ExportWidget::sigExportSaccadenHistogramsep, &ExportWidget::sltExportSaccadenHistogramsep},
        {&ExportWidget::sigExportSaccadenFixationenHistogramsep, &ExportWidget::sltExportSaccadenFixationHistogram},
        {&ExportWidget::sigExportFixationHistogram, &ExportWidget::sltExportFixationHistogram},
        {&ExportWidget::sigExportFixationHistogramsep, &ExportWidget::sltExportFixationHistogramsep},
        {&ExportWidget::sigExportTimeTransHistogram, &ExportWidget::sltExportTimeTransHistogram},
        {&ExportWidget::sigExportAOIFixationHistogram, &ExportWidget::sltExportAOIFixationHistogram},
        {&ExportWidget::sigExportAOITransitionHistogram, &ExportWidget::sltExportAOITransitionHistogram},
    };
    for (int row = 0; row < static_cast<int>(std::size(charts)); ++row)
        QTest::addRow("chart %d", row) << row << charts[row].first << charts[row].second;
}

void TestVisualizationExportBox::eachChartHasItsSignal()
{
    using Wanted = void (ExportWidget::*)(const QString &);
    using Slot = void (ExportWidget::*)();
    QFETCH(int, row);
    QFETCH(Wanted, wanted);
    QFETCH(Slot, slot);
    QSignalSpy spy(m_panel.get(), wanted);
    m_answer = QStringLiteral("/charts/a.png");
    child<QComboBox>("chartComboBox")->setCurrentIndex(row);
    click("chartExportButton");
    QCOMPARE(spy.size(), 1);
    (m_panel.get()->*slot)();
    QCOMPARE(spy.size(), 2);
    QCOMPARE(spy[1][0].toString(), m_answer);
    QVERIFY(m_asked[2].startsWith(QStringLiteral("PNG (*.png);; JPEG(*.jpg)")));
}

void TestVisualizationExportBox::areasAreWrittenInPlace()
{
    const QTemporaryDir folder;
    m_answer = folder.path();
    AreaOfInterest area(QStringLiteral("Door"), QPolygon(QRect(0, 0, 5, 5)));
    area.thumbnail = QImage(6, 6, QImage::Format_RGB32);
    area.thumbnail.fill(Qt::red);
    m_model.insertAoi(area);
    click("aoiImageExportButton");
    QCOMPARE(m_asked.first(), QStringLiteral("Save AOI Images"));
    QCOMPARE(QImage(folder.filePath(QStringLiteral("Door.png"))).size(), QSize(6, 6));
    QCOMPARE(readStored(keys::aoiImageExportFolder), folder.path());
    QCOMPARE(m_messages->texts(),
             QStringList(QStringLiteral("AOI Images exported|AOI Images exported to: ") + folder.path()));
}

/// Nobody chooses a place for nothing.
void TestVisualizationExportBox::whatIsMissingIsToldBeforeAPlaceIsAskedFor()
{
    QSignalSpy wanted(m_panel.get(), &ExportWidget::sigExport_aoi_trans_Visualization);
    m_answer = QStringLiteral("/some/where/diagram.png");
    click("aoiImageExportButton");
    m_panel->visualizationBox().setDiagramCheck([] { return QStringLiteral("No fixations available"); });
    click("diagramExportButton");
    QCOMPARE(m_asked, QStringList());
    QCOMPARE(wanted.size(), 0);
    QCOMPARE(m_messages->texts(), (QStringList{QStringLiteral("Save AOI Images|There is no area of interest."),
                                               QStringLiteral("Transition diagramm export|No fixations available")}));
}

void TestVisualizationExportBox::videoIsAskedForWithItsStep()
{
    QSignalSpy wanted(m_panel.get(), &ExportWidget::sigExport_video);
    m_answer = QStringLiteral("/videos/a.avi");
    child<QSpinBox>("videoTimespanSpinBox")->setValue(40);
    click("videoExportButton");
    m_panel->sltExportVideo();
    QCOMPARE(wanted.size(), 2);
    QCOMPARE(wanted[0][0].toString(), m_answer);
    QCOMPARE(m_panel->videoStepMs(), 40);
    QCOMPARE(readStored(keys::videoExportFolder), QStringLiteral("/videos"));
    m_answer.clear();
    click("videoExportButton");
    QCOMPARE(wanted.size(), 2);
}

QTEST_MAIN(TestVisualizationExportBox)
#include "TestVisualizationExportBox.moc"
