// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/panel/GroupComparisonWidget.h"
#include "ExportSamples.h"
#include "model/DataModel.h"
#include "TestMessages.h"
#include "TestSettings.h"

#include <QComboBox>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>

class TestGroupComparisonWidget : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void showsARowForEachGroup();
    void offersTheEntriesOfTheRecordings();
    void withoutGroupsTheUserIsTold();
    void withoutModelNothingHappens();

private:
    const TemporarySettings m_settings;
};

void TestGroupComparisonWidget::showsARowForEachGroup()
{
    DataModel model;
    for (int number = 0; number < 4; ++number) {
        Examination examination = samples::examination(QString::number(number), QString());
        examination.properties.insert(QStringLiteral("sex"), number % 2 ? QStringLiteral("f") : QStringLiteral("m"));
        for (int i = 0; i <= number; ++i)
            examination.leftEye.scanpath << samples::fixation({100 * i, 100 * i + 50}, {100 * i, 0});
        model.examinations() << examination;
    }
    model.setTimeFrame({0, 1000});
    GroupComparisonWidget widget;
    widget.setModel(&model);
    widget.show();
    auto *columns = widget.findChild<QComboBox *>();
    QTest::keyClick(columns, Qt::Key_S); // as typed: the choice goes to the model, which the exported table follows
    QCOMPARE(columns->currentText(), QStringLiteral("sex"));
    QCOMPARE(model.comparedBy, QStringLiteral("sex"));
    widget.findChild<QPushButton *>()->click();
    const auto *table = widget.findChild<QTableWidget *>();
    QCOMPARE(table->horizontalHeaderItem(3)->text(), QStringLiteral("group"));
    QCOMPARE(table->item(0, 1)->text(), QStringLiteral("fixations"));
    QCOMPARE(table->item(0, 3)->text(), QStringLiteral("f"));
    QCOMPARE(table->item(0, 5)->text(), QStringLiteral("3")); // 2 and 4
    QCOMPARE(table->item(1, 5)->text(), QStringLiteral("2")); // 1 and 3
}

void TestGroupComparisonWidget::offersTheEntriesOfTheRecordings()
{
    DataModel model;
    GroupComparisonWidget widget;
    widget.setModel(&model);
    const auto *columns = widget.findChild<QComboBox *>();
    QCOMPARE(columns->currentText(), QStringLiteral("group"));
    Examination examination;
    examination.properties.insert(QStringLiteral("age"), QStringLiteral("31"));
    model.examinations() << examination;
    widget.show();
    QCOMPARE(columns->count(), 2);
    QCOMPARE(columns->itemText(0), QStringLiteral("age"));
    QCOMPARE(columns->currentText(), QStringLiteral("group")); // the choice stays
}

void TestGroupComparisonWidget::withoutGroupsTheUserIsTold()
{
    const RecordedMessages messages;
    DataModel model;
    model.examinations() << samples::examination(QStringLiteral("1"), QString());
    GroupComparisonWidget widget;
    widget.setModel(&model);
    widget.findChild<QPushButton *>()->click();
    QCOMPARE(messages.texts(), QStringList(QStringLiteral("Comparison of groups|No checked examination has an entry "
                                                          "\"group\": there are no groups to compare.")));
}

void TestGroupComparisonWidget::withoutModelNothingHappens()
{
    GroupComparisonWidget widget;
    widget.findChild<QPushButton *>()->click();
    QCOMPARE(widget.findChild<QTableWidget *>()->rowCount(), 0);
}

QTEST_MAIN(TestGroupComparisonWidget)
#include "TestGroupComparisonWidget.moc"
