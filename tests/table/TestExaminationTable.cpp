// SPDX-License-Identifier: GPL-3.0-or-later
#include "commands/CommandStack.h"
#include "model/DataModel.h"
#include "table/panel/CommandTabelCheckbox.h"
#include "table/panel/ExaminationTable.h"

#include "import/FakeWindow.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

namespace {

Examination examination(int number, const QHash<QString, QString> &properties = {})
{
    Examination examination;
    examination.number = number;
    examination.properties.insert(properties);
    return examination;
}

QStringList headers(const ExaminationTable &table)
{
    QStringList labels;
    for (int column = 0; column < table.columnCount(); ++column)
        labels << table.horizontalHeaderItem(column)->text();
    return labels;
}

} // namespace

class TestExaminationTable : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void columnsGrowWithTheProperties();
    void aRecordingWithoutSubjectIsNamed();
    void anImportInOrderVanishesAtItsUndo();
    void rowsOutOfOrderStay();
    void numbersSortAsNumbers();
    void undoOfACheckBoxLeavesTheImportedStateChanged();
    void checkSelectedSignalsEachRowOnce();
    void settings();
    void groupByNamesLeaveOutTheGroup();
    void allRowsAnew();
    void columnsStayWithoutRows();
    void groupsOfARow();
    void aPropertyDoesNotReplaceTheNumber();
    void theWheelChangesNoGroup();
    void theCellOfAColor();
};

void TestExaminationTable::columnsGrowWithTheProperties()
{
    ExaminationTable table;
    table.addExamination(examination(1, {{u"subjectID"_s, u"a"_s}, {u"age"_s, u"30"_s}}), {});
    table.addExamination(examination(2, {{u"sex"_s, u"f"_s}, {u"age"_s, u"31"_s}}), {});
    QCOMPARE(headers(table),
             QStringList({QString(), u"#"_s, u"subjectID"_s, u"image"_s, u"group"_s, u"age"_s, u"sex"_s}));
    QCOMPARE(table.item(0, ExaminationTable::SubjectColumn)->text(), QStringLiteral("a"));
    QCOMPARE(table.item(1, 5)->text(), QStringLiteral("31"));
    QVERIFY(!table.item(0, 6));
}

void TestExaminationTable::aRecordingWithoutSubjectIsNamed()
{
    Examination nameless = examination(1);
    nameless.baseName = u"p17_calm"_s;
    ExaminationTable table;
    table.addExamination(nameless, {});
    QCOMPARE(table.item(0, ExaminationTable::NumberColumn)->toolTip(), u"Recording p17_calm"_s);
}

void TestExaminationTable::anImportInOrderVanishesAtItsUndo()
{
    ExaminationTable table;
    for (const int number : {1, 2, 3, 4})
        table.addExamination(examination(number), {});
    table.removeExaminations({2, 3, 4});
    QCOMPARE(table.rowCount(), 1);
    QCOMPARE(table.numberOfRow(0), 1);
}

void TestExaminationTable::rowsOutOfOrderStay()
{
    // Rows 3, 2: at row 0 the numbers 2 and 3 are tried in turn, 3 matches and goes; row 0 is then 2, but no number is
    // left to try, and the walk goes on at row 1, which is no more.
    ExaminationTable table;
    for (const int number : {3, 2})
        table.addExamination(examination(number), {});
    table.removeExaminations({2, 3});
    QCOMPARE(table.rowCount(), 1);
    QCOMPARE(table.numberOfRow(0), 2);
}

void TestExaminationTable::numbersSortAsNumbers()
{
    ExaminationTable table;
    for (const int number : {10, 9, 100})
        table.addExamination(examination(number), {});
    table.sortItems(ExaminationTable::NumberColumn);
    QCOMPARE(table.numberOfRow(0), 9);
    QCOMPARE(table.numberOfRow(2), 100);
}

void TestExaminationTable::undoOfACheckBoxLeavesTheImportedStateChanged()
{
    DataModel model;
    model.examinations() = {examination(1)};
    model.allExaminations() = model.examinations();
    ExaminationTable table;
    table.addExamination(model.examinations().constFirst(), {});
    FakeWindow window;
    CommandTabelCheckbox command(0, true, model, table, window);
    QCOMPARE(command.text(), QStringLiteral("Check Tabel Item"));

    command.redo();
    QVERIFY(!model.examinations().constFirst().checked);
    QVERIFY(!model.allExaminations().constFirst().checked);
    QVERIFY(!table.isChecked(0));

    command.undo();
    QVERIFY(model.examinations().constFirst().checked);
    QVERIFY(!model.allExaminations().constFirst().checked);
    QVERIFY(table.isChecked(0));
    QCOMPARE(window.updates, 2);
}

void TestExaminationTable::checkSelectedSignalsEachRowOnce()
{
    ExaminationTable table;
    for (const int number : {1, 2, 3})
        table.addExamination(examination(number), {});
    table.selectAll();
    QList<int> clicked;
    connect(&table, &ExaminationTable::checkBoxClicked, &table, [&](int row) { clicked << row; });
    table.resize(400, 300);
    table.show();
    QVERIFY(QTest::qWaitForWindowExposed(&table));
    table.setSelectedChecked(false);
    QCOMPARE(clicked, QList<int>({0, 1, 2}));
    table.setSelectedChecked(false);
    QCOMPARE(clicked.size(), 3);
}

void TestExaminationTable::settings()
{
    ExaminationTable table;
    QCOMPARE(table.rowCount(), 0);
    QVERIFY(!table.verticalHeader()->isHidden());
    QCOMPARE(table.editTriggers(), QAbstractItemView::NoEditTriggers);
    QCOMPARE(table.selectionBehavior(), QAbstractItemView::SelectRows);
    QCOMPARE(table.horizontalHeader()->sectionResizeMode(0), QHeaderView::ResizeToContents);
    QVERIFY(table.showGrid());
    QCOMPARE(table.styleSheet(), u"QTableView {selection-background-color: grey;}"_s);
    QVERIFY(table.isSortingEnabled());
}

void TestExaminationTable::groupByNamesLeaveOutTheGroup()
{
    ExaminationTable table;
    table.addExamination(examination(1, {{u"age"_s, u"30"_s}}), {});
    QCOMPARE(table.properties(), QStringList({u"subjectID"_s, u"image"_s, u"group"_s, u"age"_s}));
    QCOMPARE(table.groupByNames(), QStringList({u"subjectID"_s, u"image"_s, u"age"_s}));
}

void TestExaminationTable::allRowsAnew()
{
    ExaminationTable table;
    QList<Examination> list{examination(2), examination(1)};
    list[1].checked = false;
    table.addExamination(examination(7), {});
    table.sortItems(ExaminationTable::NumberColumn);
    table.setExaminations(list, {});
    QCOMPARE(table.rowCount(), 2);
    QCOMPARE(table.numberOfRow(0), 2);
    QVERIFY(table.isChecked(0));
    QVERIFY(!table.isChecked(1));
    QVERIFY(table.isSortingEnabled());
    table.sortItems(ExaminationTable::NumberColumn);
    QCOMPARE(table.numberOfRow(0), 1);
    QVERIFY(!table.isChecked(0)); // the box goes with its row
}

void TestExaminationTable::columnsStayWithoutRows()
{
    ExaminationTable table;
    table.addExamination(examination(1, {{u"age"_s, u"30"_s}}), {});
    table.setExaminations({}, {});
    QCOMPARE(table.rowCount(), 0);
    QCOMPARE(headers(table).constLast(), u"age"_s);
}

void TestExaminationTable::groupsOfARow()
{
    ExaminationTable table;
    Examination member = examination(1, {{u"group"_s, u"expert"_s}});
    member.groupName = u"b"_s;
    Examination stranger = examination(2);
    stranger.groupName = u"gone"_s;
    QSignalSpy chosen(&table, &ExaminationTable::groupChosen);
    table.setExaminations({member, stranger}, {Group(u"a"_s, {}), Group(u"b"_s, {})});
    QCOMPARE(table.groupBox(0)->count(), 3);
    QCOMPARE(table.groupBox(0)->itemText(0), u"None"_s);
    QCOMPARE(table.groupBox(0)->currentIndex(), 2);
    QCOMPARE(table.groupBox(1)->currentIndex(), 0);
    QVERIFY(!table.groupBox(2));
    QVERIFY(!table.item(0, ExaminationTable::GroupColumn)); // so that a double click there does nothing
    QVERIFY(!table.item(0, ExaminationTable::CheckBoxColumn));
    QCOMPARE(chosen.size(), 0);
    qobject_cast<QComboBox *>(table.cellWidget(1, ExaminationTable::GroupColumn))->setCurrentIndex(1);
    QCOMPARE(chosen.size(), 1);
    QCOMPARE(chosen[0][0].toInt(), 1);
}

void TestExaminationTable::aPropertyDoesNotReplaceTheNumber()
{
    ExaminationTable table;
    table.addExamination(examination(7, {{u"#"_s, u"12"_s}, {QString(), u"x"_s}}), {});
    QCOMPARE(table.numberOfRow(0), 7);
    QVERIFY(!table.item(0, ExaminationTable::CheckBoxColumn));
    QCOMPARE(table.columnCount(), 5);
}

void TestExaminationTable::theWheelChangesNoGroup()
{
    ExaminationTable table;
    table.setExaminations({examination(1)}, {Group(u"a"_s, {})});
    QWidget *box = table.cellWidget(0, ExaminationTable::GroupColumn);
    QWheelEvent down(QPointF(5, 5), box->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, {}, {}, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(box, &down);
    QCOMPARE(table.groupBox(0)->currentIndex(), 0);
}

void TestExaminationTable::theCellOfAColor()
{
    ExaminationTable table;
    table.addExamination(examination(1, {{u"Color"_s, u"4294901760"_s}}), {}); // 0xffff0000
    QTableWidgetItem *cell = table.item(0, 5);
    QCOMPARE(cell->background().color(), QColor(255, 0, 0));
    ExaminationTable::showColor(*cell, qRgba(0, 0, 255, 255));
    QCOMPARE(cell->background().color(), QColor(0, 0, 255));
    QCOMPARE(cell->text(), u"4278190335"_s); // 0xff0000ff
}

QTEST_MAIN(TestExaminationTable)
#include "TestExaminationTable.moc"
