// SPDX-License-Identifier: GPL-3.0-or-later
#include "comparison/panel/SimilarityPanel.h"

#include "comparison/panel/SimilarityHeatmap.h"
#include "comparison/ScanpathSamples.h"
#include "TestMessages.h"
#include "TestSettings.h"

#include <QComboBox>
#include <QDir>
#include <QDoubleSpinBox>
#include <QPushButton>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

using namespace Qt::StringLiterals;

class TestSimilarityPanel : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void nothingIsShownAtFirst();
    void nothingToCompare();
    void aMeasureAsTable();
    void anotherMeasureAndPicture();
    void cellsOfTheHeatmap();
    void coloursFollowTheScale();
    void parametersAreUsed();
    void groups();
    void exporting();

private:
    template <class Widget>
    Widget *child(const QString &name) const
    {
        return m_panel->findChild<Widget *>(name);
    }
    void compare() const { QTest::mouseClick(child<QPushButton>(u"similarity_Button"_s), Qt::LeftButton); }
    void choose(const QString &measure) const
    {
        auto *box = child<QComboBox>(u"similarityMeasureComboBox"_s);
        box->setCurrentIndex(box->findText(measure, Qt::MatchStartsWith));
    }
    QString cell(int row, int column) const
    {
        const QTableWidgetItem *item = child<QTableWidget>(u"similarityTable"_s)->item(row, column);
        return item ? item->text() : QString();
    }

    std::unique_ptr<TemporarySettings> m_settings;
    std::unique_ptr<RecordedMessages> m_messages;
    std::unique_ptr<DataModel> m_model;
    std::unique_ptr<SimilarityPanel> m_panel;
};

void TestSimilarityPanel::init()
{
    m_settings = std::make_unique<TemporarySettings>();
    m_messages = std::make_unique<RecordedMessages>();
    m_model = std::make_unique<DataModel>();
    addRecordings(*m_model, {{{0, 0, 100}}, {{3, 4, 100}}, {{0, 100, 100}}}, u"a.png"_s);
    addRecordings(*m_model, {{{0, 0, 100}}, {{60, 80, 100}}}, u"b.png"_s);
    m_panel = std::make_unique<SimilarityPanel>();
    m_panel->setModel(m_model.get());
    m_panel->resize(420, 1200);
    m_panel->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_panel.get()));
}

void TestSimilarityPanel::cleanup()
{
    m_panel.reset();
    m_messages.reset();
    m_settings.reset();
}

void TestSimilarityPanel::nothingIsShownAtFirst()
{
    QVERIFY(!m_panel->findChild<SimilarityHeatmap *>()->isVisible());
    QVERIFY(!child<QPushButton>(u"exportSimilarity_Button"_s)->isVisible());
    QVERIFY(!child<QDoubleSpinBox>(u"recurrence-radius"_s)->isVisible());
    QTest::mouseClick(child<QToolButton>(u"similarityParametersButton"_s), Qt::LeftButton);
    QVERIFY(child<QDoubleSpinBox>(u"recurrence-radius"_s)->isVisible());
    QCOMPARE(m_panel->parameters(), SimilarityParameters());
}

void TestSimilarityPanel::nothingToCompare()
{
    for (Examination &examination : m_model->examinations())
        examination.checked = false;
    compare();
    QCOMPARE(m_messages->texts(),
             QStringList{u"Nothing to compare|At least two checked examinations of one picture are needed, with "
                         "fixations."_s});
}

void TestSimilarityPanel::aMeasureAsTable()
{
    compare();
    choose(u"Time warping: distance"_s);
    QCOMPARE(child<QTableWidget>(u"similarityTable"_s)->rowCount(), 3);
    QCOMPARE(cell(0, 1), u"5"_s);
    QCOMPARE(cell(2, 0), u"100"_s);
    QCOMPARE(cell(1, 1), QString());
    QCOMPARE(child<QTableWidget>(u"similarityTable"_s)->horizontalHeaderItem(2)->text(), u"3: r3"_s);
    QVERIFY(m_panel->findChild<SimilarityHeatmap *>()->isVisible());
}

void TestSimilarityPanel::anotherMeasureAndPicture()
{
    compare();
    auto *sets = child<QComboBox>(u"similaritySetComboBox"_s);
    QCOMPARE(sets->count(), 4); // two pictures, two eyes
    QCOMPARE(sets->itemText(3), u"b.png, right eye"_s);
    sets->setCurrentIndex(3);
    choose(u"Time warping: distance"_s);
    QCOMPARE(child<QTableWidget>(u"similarityTable"_s)->rowCount(), 2);
    QCOMPARE(cell(0, 1), u"100"_s);
    choose(u"Recurrence"_s);
    QCOMPARE(cell(0, 1), u"0"_s);
    choose(u"Areas: Levenshtein"_s); // there are no areas
    QCOMPARE(cell(0, 1), QString());
}

void TestSimilarityPanel::cellsOfTheHeatmap()
{
    compare();
    choose(u"Time warping: distance"_s);
    auto *heatmap = m_panel->findChild<SimilarityHeatmap *>();
    const double side = std::min(heatmap->width() - 26, heatmap->height() - 60) / 3.0;
    const auto at = [&](double row, double column) {
        return heatmap->textAt({24 + (column + 0.5) * side, 24 + (row + 0.5) * side});
    };
    QCOMPARE(at(0, 1), u"r1, r2: 5"_s);
    QCOMPARE(at(2, 0), u"r3, r1: 100"_s);
    QCOMPARE(at(1, 1), u"r2"_s);
    QCOMPARE(heatmap->textAt({1, 1}), QString());
    const QImage picture = heatmap->grab().toImage();
    const auto pixel = [&](int row, int column) {
        return picture.pixelColor(int(24 + (column + 0.5) * side), int(24 + (row + 0.5) * side));
    };
    QCOMPARE(pixel(0, 1), heatmap->colorOf(5));
    QCOMPARE(pixel(0, 2), heatmap->colorOf(100));
    QCOMPARE(pixel(1, 0), pixel(0, 1));
}

void TestSimilarityPanel::coloursFollowTheScale()
{
    SimilarityHeatmap heatmap;
    heatmap.show({}, 0); // 0 to 1
    QCOMPARE(heatmap.colorOf(0), QColor(0x44, 0x01, 0x54));
    QCOMPARE(heatmap.colorOf(0.5), QColor(0x21, 0x91, 0x8c));
    QCOMPARE(heatmap.colorOf(1), QColor(0xfd, 0xe7, 0x25));
    QCOMPARE(heatmap.colorOf(-3), heatmap.colorOf(0));
    QCOMPARE(heatmap.colorOf(undefined), heatmap.palette().color(QPalette::Mid));
}

void TestSimilarityPanel::parametersAreUsed()
{
    child<QDoubleSpinBox>(u"recurrence-radius"_s)->setValue(4);
    compare();
    choose(u"Recurrence"_s);
    QCOMPARE(cell(0, 1), u"0"_s); // 5 px apart
    child<QDoubleSpinBox>(u"recurrence-radius"_s)->setValue(5);
    compare();
    choose(u"Recurrence"_s);
    QCOMPARE(cell(0, 1), u"100"_s);
}

void TestSimilarityPanel::groups()
{
    for (int i = 0; i < 3; ++i)
        m_model->examinations()[i].properties[u"task"_s] = i < 2 ? u"read"_s : u"search"_s;
    m_panel->hide();
    m_panel->show(); // lists the entries anew
    child<QComboBox>(u"similarityGroupComboBox"_s)->setCurrentText(u"task"_s);
    compare();
    choose(u"Time warping: distance"_s);
    const auto *table = child<QTableWidget>(u"similarityGroupTable"_s);
    QVERIFY(table->isVisible());
    QCOMPARE(table->item(0, 0)->text(), u"within"_s);
    QCOMPARE(table->item(0, 4)->text(), u"5"_s);
    QCOMPARE(table->rowCount(), 5);                                   // read, read to search, and the three of all
    child<QComboBox>(u"similaritySetComboBox"_s)->setCurrentIndex(2); // the other picture has no groups
    QVERIFY(!table->isVisible());
}

void TestSimilarityPanel::exporting()
{
    const QTemporaryDir folder;
    QStringList asked;
    m_panel->setFolderChooser([&](const QString &from) {
        asked << from;
        return folder.path();
    });
    compare();
    QTest::mouseClick(child<QPushButton>(u"exportSimilarity_Button"_s), Qt::LeftButton);
    QTest::mouseClick(child<QPushButton>(u"exportSimilarity_Button"_s), Qt::LeftButton);
    QCOMPARE(asked, (QStringList{QString(), folder.path()}));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList{u"vistrum_scanpath_similarity.csv"_s});
    QCOMPARE(m_messages->texts().size(), 2);
}

QTEST_MAIN(TestSimilarityPanel)
#include "TestSimilarityPanel.moc"
