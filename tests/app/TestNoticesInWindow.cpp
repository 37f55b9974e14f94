// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/NoticeLine.h"
#include "clustering/panel/SaccadeClusterControl.h"
#include "clustering/SaccadeClusterModel.h"
#include "WindowTest.h"

#include <QComboBox>
#include <QFile>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>

/// The line in the status bar: what came of a click, as long as it is so.
class TestNoticesInWindow : public WindowTest {
    Q_OBJECT
private Q_SLOTS:
    void init() { openWindow(); }
    void cleanup() { closeWindow(); }
    void saccadeClustersAreTold();
    void saccadeClustersOfNothingAreNot();
    void anUndoneImportIsTold();
    void whatIsDrawnMeanwhileIsNotMissed();
    void aPictureThatIsShownIsNotMissed();
    void anotherNoticeOutlivesThePicture();
    void oneRecordingIsOne();
    void anEmptyListIsTold();

private:
    QString notice() const { return m_window->findChild<NoticeLine *>()->text(); }
    QString path(const char *name) const { return m_folder->filePath(QString::fromLatin1(name)); }
    void write(const char *name, const QByteArray &content) const
    {
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    void calculateFixations() const { find<QAbstractButton>("fixationsPage", "toolButton")->click(); }
    /// A recording with a picture that cannot be shown, which is chosen, and one that can.
    void importWithPictures() const
    {
        QImage good(640, 480, QImage::Format_RGB32);
        good.fill(Qt::blue);
        QVERIFY(good.save(path("good.png")));
        write("bad.png", "this is no picture");
        for (const char *name : {"good", "bad"}) {
            const QString data = path(name) + QStringLiteral(".data");
            QFile::copy(exampleRecordings().constFirst(), data);
            write((name + QByteArray(".set")).constData(),
                  QByteArray("picturename=%.png\npicturepath=%.png\n[subject]\nsubjectID=%\n").replace('%', name));
        }
        m_window->importFiles({path("bad.data"), path("good.data")});
        find<QComboBox>("image_comboBox")->setCurrentText(QStringLiteral("bad.png"));
        QCOMPARE(notice(), QStringLiteral("The picture cannot be shown: bad.png; 1 warning"));
    }
};

void TestNoticesInWindow::saccadeClustersAreTold()
{
    importExamples();
    calculateFixations();
    find<QSpinBox>("minAngleQuantitySpinbox")->setValue(1);
    find<QAbstractButton>("clusterButton")->click();
    const auto clusters = find<SaccadeClusterControl>("saccadeClusterWidget")->saccadeClusterModel();
    QVERIFY(clusters->distanceClusters().size() > 0);
    QCOMPARE(notice(), QStringLiteral("Saccade clusters in %1 recordings: %2, from %3 movements")
                           .arg(exampleRecordings().size())
                           .arg(clusters->distanceClusters().size())
                           .arg(clusters->vectors().size()));
}

void TestNoticesInWindow::saccadeClustersOfNothingAreNot()
{
    find<QAbstractButton>("clusterButton")->click();
    QCOMPARE(notice(), QString());
}

void TestNoticesInWindow::anUndoneImportIsTold()
{
    importExamples();
    calculateFixations();
    CommandStack::instance().undo();
    QVERIFY(notice().startsWith(QStringLiteral("Undone: the fixations stay")));
    CommandStack::instance().undo();
    const QString recordings = QStringLiteral("%1 recordings").arg(exampleRecordings().size());
    QCOMPARE(notice(), QStringLiteral("Undone: the import of ") + recordings);
    CommandStack::instance().redo();
    QCOMPARE(notice(), QStringLiteral("Redone: the import of ") + recordings);
}

void TestNoticesInWindow::whatIsDrawnMeanwhileIsNotMissed()
{
    importExamples();
    calculateFixations();
    auto *mode = find<QComboBox>("fixationcluster_widget", "comboBox_vismode");
    mode->setCurrentIndex(0);
    find<QAbstractButton>("calculateClusters_button")->click();
    const QString missed = QStringLiteral("; not drawn: mode none");
    QVERIFY2(notice().startsWith(QStringLiteral("Clusters in ")) && notice().endsWith(missed), qPrintable(notice()));
    const QString text = notice().chopped(missed.size());
    mode->setCurrentIndex(1);
    m_window->redraw();
    QCOMPARE(notice(), text);
    mode->setCurrentIndex(0);
    m_window->redraw();
    QCOMPARE(notice(), text + missed);
}

void TestNoticesInWindow::aPictureThatIsShownIsNotMissed()
{
    importWithPictures();
    find<QComboBox>("image_comboBox")->setCurrentText(QStringLiteral("good.png"));
    QCOMPARE(m_window->stimulusWidthPx(), 640);
    QCOMPARE(notice(), QString());
    find<QComboBox>("image_comboBox")->setCurrentText(QStringLiteral("bad.png"));
    QCOMPARE(notice(), QStringLiteral("The picture cannot be shown: bad.png; 1 warning"));
    find<QComboBox>("image_comboBox")->setCurrentIndex(0);
    QCOMPARE(notice(), QString());
}

void TestNoticesInWindow::anotherNoticeOutlivesThePicture()
{
    importWithPictures();
    calculateFixations();
    const QString fixations = notice();
    QVERIFY2(fixations.startsWith(QStringLiteral("Fixations in 2 recordings")), qPrintable(fixations));
    find<QComboBox>("image_comboBox")->setCurrentText(QStringLiteral("good.png"));
    QCOMPARE(notice(), fixations);
}

void TestNoticesInWindow::oneRecordingIsOne()
{
    m_window->importFiles({exampleRecordings().constFirst()});
    find<QPushButton>("generalButton")->click();
    QCOMPARE(notice(), QStringLiteral("General statistics in 1 recording; \"Export statistics\" writes them"));
}

void TestNoticesInWindow::anEmptyListIsTold()
{
    importExamples();
    QCOMPARE(find<QListWidget>("listView")->count(), 0); // what was imported leaves it
    click("SM_importButton");
    QCOMPARE(notice(), QStringLiteral("Nothing was imported: the list of data files is empty"));
}

QTEST_MAIN(TestNoticesInWindow)
#include "TestNoticesInWindow.moc"
