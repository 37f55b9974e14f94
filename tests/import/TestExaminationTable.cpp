#include "commands/CommandStack.h"
#include "commands/IMainWindow.h"
#include "import/panel/CommandTabelCheckbox.h"
#include "import/panel/ExaminationTable.h"
#include "model/DataModel.h"

#include <QCheckBox>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

class Window : public IMainWindow {
public:
    void addTableRow(const Examination &) override {}
    void removeTableRows(const QList<int> &) override {}
    void refreshPlainBackground() override {}
    void showImported() override {}
    int stimulusWidthPx() const override { return 0; }
    void redraw() override { ++redraws; }
    void updateAndRedraw() override { ++updates; }

    int redraws = 0;
    int updates = 0;
};

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
    void anImportInOrderVanishesAtItsUndo();
    void rowsOutOfOrderStay();
    void numbersSortAsNumbers();
    void undoOfACheckBoxLeavesTheImportedStateChanged();
    void checkSelectedSignalsEachRowOnce();
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
    Window window;
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

QTEST_MAIN(TestExaminationTable)
#include "TestExaminationTable.moc"
