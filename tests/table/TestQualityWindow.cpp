// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/panel/QualityWindow.h"
#include "table/QualityLimits.h"
#include "TableFixture.h"
#include "TestSettings.h"

#include <QDoubleSpinBox>
#include <QLabel>
#include <QPushButton>

using Column = QualityTable::Column;

class TestQualityWindow : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void worstFirst();
    void columnsSort();
    void anEyeThatWasNotRecordedIsLast();
    void marks();
    void marksAreReadableInADarkPalette();
    void limitsAreKept();
    void usualLimitsComeBack();
    void uncheckingIsUndone();
    void staleDataAreTold();
    void withoutRecordings();
    void buttonOpensOneWindow();

private:
    /// A recording of 20 samples at 100 Hz, so many of which are usable.
    void add(int valid)
    {
        Examination examination;
        for (int i = 0; i < 20; ++i) {
            examination.leftEye.gazePoints << GazePoint(10 * i, 5, 5, 1, 1, i < valid);
            examination.rightEye.gazePoints << GazePoint(10 * i, 8, 9, 1, 1, i < valid);
        }
        examination.number = static_cast<int>(m_fixture->model.examinations().size()) + 1;
        examination.baseName = QStringLiteral("r%1").arg(examination.number);
        m_fixture->model.examinations() << examination;
        m_fixture->model.allExaminations() = m_fixture->model.examinations();
        m_fixture->control.addExamination(examination);
    }
    void open()
    {
        m_window = std::make_unique<QualityWindow>(
            m_fixture->model,
            [this](const QList<int> &numbers) {
                for (const int number : numbers)
                    m_fixture->table->setChecked(m_fixture->table->rowOfNumber(number), false);
            },
            nullptr);
        m_window->show();
    }
    /// The texts of a column from the top.
    QStringList texts(int column) const
    {
        QStringList all;
        for (int row = 0; row < m_window->table().rowCount(); ++row)
            all << m_window->table().item(row, column)->text();
        return all;
    }
    int columnOf(const char *measure) const
    {
        for (int column = 0; column < m_window->table().columnCount(); ++column) {
            if (m_window->table().horizontalHeaderItem(column)->text() == QLatin1StringView(measure))
                return column;
        }
        return -1;
    }
    QDoubleSpinBox *limit(const char *measure) const
    {
        return m_window->findChild<QDoubleSpinBox *>(QString::fromLatin1(measure));
    }
    void click(const char *name) const
    {
        QTest::mouseClick(m_window->findChild<QPushButton *>(QString::fromLatin1(name)), Qt::LeftButton);
    }

    std::unique_ptr<TemporarySettings> m_settings;
    std::unique_ptr<TableFixture> m_fixture;
    std::unique_ptr<QualityWindow> m_window;
};

void TestQualityWindow::init()
{
    m_settings = std::make_unique<TemporarySettings>();
    m_fixture = std::make_unique<TableFixture>();
    for (const int valid : {20, 4, 18, 10})
        add(valid);
    m_fixture->model.setTimeFrame({0, 1000});
    open();
}

void TestQualityWindow::cleanup()
{
    m_window.reset();
    m_fixture.reset();
    m_settings.reset();
}

void TestQualityWindow::worstFirst()
{
    const QStringList expected{QStringLiteral("r2"), QStringLiteral("r2"), QStringLiteral("r4"), QStringLiteral("r4"),
                               QStringLiteral("r3"), QStringLiteral("r3"), QStringLiteral("r1"), QStringLiteral("r1")};
    QCOMPARE(texts(Column::RecordingColumn), expected);
    QCOMPARE(texts(Column::BeyondColumn).first(), QStringLiteral("1"));
    QCOMPARE(texts(Column::BeyondColumn).last(), QStringLiteral("0"));
    QCOMPARE(texts(columnOf("valid_sample_share")).mid(0, 6),
             (QStringList{QStringLiteral("0.2 !"), QStringLiteral("0.2 !"), QStringLiteral("0.5 !"),
                          QStringLiteral("0.5 !"), QStringLiteral("0.9"), QStringLiteral("0.9")}));
    QCOMPARE(texts(columnOf("rate_hz")).first(), QStringLiteral("100"));
    QCOMPARE(texts(columnOf("eye_distance_px")).first(), QStringLiteral("5"));
    QCOMPARE(texts(columnOf("fixation_sd_px")).first(), QStringLiteral("-")); // none were calculated
}

void TestQualityWindow::columnsSort()
{
    auto &table = const_cast<QualityTable &>(m_window->table());
    table.sortByColumn(Column::NumberColumn, Qt::AscendingOrder);
    QCOMPARE(texts(Column::NumberColumn).first(), QStringLiteral("1"));
    table.sortByColumn(columnOf("losses"), Qt::AscendingOrder);
    QCOMPARE(texts(Column::RecordingColumn).first(), QStringLiteral("r1"));
    table.sortByColumn(columnOf("longest_loss_ms"), Qt::AscendingOrder); // r1 has none: it stands last
    QCOMPARE(texts(columnOf("longest_loss_ms")),
             (QStringList{QStringLiteral("10"), QStringLiteral("10"), QStringLiteral("90"), QStringLiteral("90"),
                          QStringLiteral("150"), QStringLiteral("150"), QStringLiteral("-"), QStringLiteral("-")}));
}

void TestQualityWindow::anEyeThatWasNotRecordedIsLast()
{
    for (GazePoint &sample : m_fixture->model.examinations()[1].leftEye.gazePoints)
        sample.validFlag = false;
    click("measureButton");
    QCOMPARE(texts(Column::RecordingColumn).first(), QStringLiteral("r2")); // its right eye
    QCOMPARE(texts(Column::EyeColumn).first(), QStringLiteral("right"));
    QCOMPARE(texts(Column::BeyondColumn).last(), QStringLiteral("not recorded"));
    QCOMPARE(texts(columnOf("valid_sample_share")).last(), QStringLiteral("0"));
    click("selectMarkedButton");
    QCOMPARE(m_window->table().selectionModel()->selectedRows().size(), 3);
}

void TestQualityWindow::marks()
{
    const int column = columnOf("valid_sample_share");
    const QTableWidgetItem *marked = m_window->table().item(0, column);
    QCOMPARE(marked->toolTip(), QStringLiteral("Valid samples: at least 80 %"));
    QVERIFY(m_window->table().item(7, column)->toolTip().isEmpty());
    limit("valid_sample_share")->setValue(15);
    QCOMPARE(texts(column).filter(QStringLiteral("!")), QStringList());
    limit("eye_distance_px")->setValue(4);
    QCOMPARE(texts(columnOf("eye_distance_px")).filter(QStringLiteral("!")).size(), 8);
}

void TestQualityWindow::marksAreReadableInADarkPalette()
{
    QPalette dark;
    dark.setColor(QPalette::Base, Qt::black);
    dark.setColor(QPalette::Text, Qt::white);
    m_window->setPalette(dark);
    const QTableWidgetItem *marked = m_window->table().item(0, columnOf("valid_sample_share"));
    // Both are set, so that neither comes of the palette; at least 7 to 1 by WCAG 2.1.
    const auto luminance = [](const QColor &color) {
        const auto linear = [](double c) { return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4); };
        return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
    };
    QCOMPARE(marked->background().style(), Qt::SolidPattern);
    QVERIFY((luminance(marked->background().color()) + 0.05) / (luminance(marked->foreground().color()) + 0.05) > 7);
}

void TestQualityWindow::limitsAreKept()
{
    limit("valid_sample_share")->setValue(42.5);
    open();
    QCOMPARE(limit("valid_sample_share")->value(), 42.5);
    QCOMPARE(limit("outside_share")->value(), 20.0);
    QCOMPARE(texts(columnOf("valid_sample_share")).filter(QStringLiteral("!")).size(), 2);
}

void TestQualityWindow::usualLimitsComeBack()
{
    limit("valid_sample_share")->setValue(1);
    click("usualLimitsButton");
    const auto limits = qualityLimits();
    for (const QualityLimit &each : limits)
        QCOMPARE(limit(each.measure.data())->value(), each.usual);
    QCOMPARE(texts(columnOf("valid_sample_share")).filter(QStringLiteral("!")).size(), 4);
}

void TestQualityWindow::uncheckingIsUndone()
{
    QVERIFY(!m_window->findChild<QPushButton *>(QStringLiteral("uncheckSelectedButton"))->isEnabled());
    click("selectMarkedButton");
    QCOMPARE(m_window->table().selectedNumbers(), (QList<int>{2, 4}));
    click("uncheckSelectedButton");
    QCOMPARE(m_fixture->checks(), (QList<bool>{true, false, true, false}));
    QCOMPARE(m_fixture->shownChecks(), (QList<bool>{true, false, true, false}));
    QCOMPARE(texts(Column::CheckedColumn).count(QStringLiteral("no")), 4);
    m_fixture->stack().undo();
    m_fixture->stack().undo();
    QCOMPARE(m_fixture->checks(), (QList<bool>{true, true, true, true}));
}

void TestQualityWindow::staleDataAreTold()
{
    const auto *state = m_window->findChild<QLabel *>(QStringLiteral("stateLabel"));
    QVERIFY(state->text().startsWith(QStringLiteral("Recordings: 4, from 0 to 1000 ms.")));
    m_fixture->table->setChecked(0, false);
    QVERIFY(state->text().contains(QStringLiteral("Measure again")));
    m_fixture->model.examinations().removeLast();
    limit("valid_sample_share")->setValue(1); // what was measured is shown on
    QCOMPARE(texts(Column::NumberColumn).size(), 8);
    click("measureButton");
    QVERIFY(state->text().startsWith(QStringLiteral("Recordings: 3, ")));
    QCOMPARE(texts(Column::NumberColumn).size(), 6);
}

void TestQualityWindow::withoutRecordings()
{
    m_fixture->model.examinations().clear();
    click("measureButton");
    QCOMPARE(m_window->table().rowCount(), 0);
    QVERIFY(
        m_window->findChild<QLabel *>(QStringLiteral("stateLabel"))->text().contains(QStringLiteral("no recordings")));
    click("selectMarkedButton");
    QCOMPARE(m_window->table().selectedNumbers(), QList<int>());
}

void TestQualityWindow::buttonOpensOneWindow()
{
    m_fixture->control.sltShowQuality();
    m_fixture->control.sltShowQuality();
    const auto windows = m_fixture->widget.findChildren<QualityWindow *>();
    QCOMPARE(windows.size(), 1);
    QVERIFY(windows[0]->isVisible());
    windows[0]->findChild<QPushButton *>(QStringLiteral("selectMarkedButton"))->click();
    windows[0]->findChild<QPushButton *>(QStringLiteral("uncheckSelectedButton"))->click();
    QCOMPARE(m_fixture->checks(), (QList<bool>{true, false, true, false}));
    QCOMPARE(m_fixture->window.drawings, 1); // for both together
}

QTEST_MAIN(TestQualityWindow)
#include "TestQualityWindow.moc"
