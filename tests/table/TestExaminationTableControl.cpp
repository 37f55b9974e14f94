// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/panel/ExaminationTableControl.h"

#include "model/OutlierCut.h"

#include "TableFixture.h"
#include "TestMessages.h"

#include <QColorDialog>
#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTimer>

using namespace Qt::StringLiterals;

class TestExaminationTableControl : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void aNewRowRefreshesTheLists();
    void aClickIsACommand();
    void aClickAsksForTheTimeSpan_data();
    void aClickAsksForTheTimeSpan();
    void undoLeavesTheImportedState();
    void undoAfterSortingHitsItsOwnExamination();
    void aClickAfterSortingChangesItsOwnExamination();
    void checkingSelectedRowsIsACommandEach();
    void manyCheckMarksAreDrawnOnce();
    void aClickSharesTheSamples();

    void aFilterNobodyMeetsUnchecksForGood();
    void whatAFilterTookComesBackByHand();
    void aFilterEndsSorting();
    void aFilterWithoutExaminations();
    void aFilterSetsBackTheSaccadeClusters();
    void aFilterReachesNotTheImportedState();
    void clearingIsNoCommand();

    void groupingByAProperty();
    void groupingIsUndone();
    void groupsOfOthersOutliveTheUndo();
    void groupingAppliesTheFilterOnceMore();
    void choosingNothingGroupsNothing();
    void aGroupChosenInTheRow();
    void managingRefreshesGroupLists();
    void newGroupsKeepTheFilter();

    void theColorOfARow();
    void theColorOfARowThatMovesBehindTheDialog();
    void noColorChosen();
    void theColorDialog();
    void theReportOfARow();
    void hundredRows();

private:
    QTableWidgetItem *item(int row, const QString &label) const
    {
        return m_table->table->item(row, static_cast<int>(m_table->table->labels().indexOf(label)));
    }
    void click(int row) const
    {
        QCheckBox *box = m_table->checkBox(row);
        QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2));
    }

    std::unique_ptr<TableFixture> m_table;
};

void TestExaminationTableControl::init()
{
    m_table = std::make_unique<TableFixture>();
    m_table->add({{u"subjectID"_s, u"Cid"_s}, {u"dominant"_s, u"left"_s}}, 3000);
    m_table->add({{u"subjectID"_s, u"Bob"_s}, {u"dominant"_s, u"right"_s}}, 2000);
    m_table->add({{u"subjectID"_s, u"Ann"_s}, {u"dominant"_s, u"invalid"_s}}, 500);
    QVERIFY(QTest::qWaitForWindowExposed(&m_table->widget));
}

void TestExaminationTableControl::cleanup()
{
    m_table.reset();
}

void TestExaminationTableControl::aNewRowRefreshesTheLists()
{
    QSignalSpy images(&m_table->control, &ExaminationTableControl::rowsAdded);
    QSignalSpy status(&m_table->control, &ExaminationTableControl::sigSetSaccadeClusterStatusNone);
    m_table->add({{u"age"_s, u"30"_s}});
    QCOMPARE(images.size(), 1);
    QCOMPARE(status.size(), 1);
    QStringList names;
    for (int i = 0; i < m_table->groupBy->count(); ++i)
        names << m_table->groupBy->itemText(i);
    QCOMPARE(names, QStringList({QString(), u"subjectID"_s, u"image"_s, u"dominant"_s, u"age"_s}));
    QCOMPARE(m_table->groupBy->currentIndex(), 0);
}

// ---- check marks

void TestExaminationTableControl::aClickIsACommand()
{
    QSignalSpy status(&m_table->control, &ExaminationTableControl::sigSetSaccadeClusterStatusNone);
    click(1);
    QCOMPARE(m_table->stack().undoText(), u"Check Tabel Item"_s);
    QCOMPARE(m_table->checks(), QList<bool>({true, false, true}));
    QCOMPARE(TableFixture::checks(m_table->model.allExaminations()), QList<bool>({true, false, true}));
    QCOMPARE(m_table->window.updates, 1);
    QCOMPARE(status.size(), 1);
    m_table->stack().undo();
    QCOMPARE(m_table->stack().count(), 1); // the box that it sets makes no command
    QCOMPARE(m_table->shownChecks(), QList<bool>({true, true, true}));
    QCOMPARE(m_table->window.updates, 2);
}

void TestExaminationTableControl::aClickAsksForTheTimeSpan_data()
{
    QTest::addColumn<QList<int>>("unchecked");
    QTest::addColumn<qint64>("spanMs");
    QTest::newRow("the longest of what is left") << QList<int>{0} << qint64(2000);
    QTest::newRow("the longest is still there") << QList<int>{1} << qint64(3000);
    QTest::newRow("a second at least") << QList<int>{0, 1} << qint64(1000);
    QTest::newRow("a second for nothing") << QList<int>{0, 1, 2} << qint64(1000);
}

void TestExaminationTableControl::aClickAsksForTheTimeSpan()
{
    QFETCH(QList<int>, unchecked);
    QSignalSpy wanted(&m_table->control, &ExaminationTableControl::timeSpanWanted);
    for (const int row : unchecked)
        click(row);
    QCOMPARE(wanted.size(), unchecked.size());
    QTEST(wanted.constLast()[0].toLongLong(), "spanMs");
}

/// The imported examinations keep the new state, but what the table shows is what takes part, after outliers too.
void TestExaminationTableControl::undoLeavesTheImportedState()
{
    click(1);
    m_table->stack().undo();
    QCOMPARE(TableFixture::checks(m_table->model.allExaminations()), QList<bool>({true, false, true}));
    restoreOutliers(m_table->model);
    QCOMPARE(m_table->checks(), QList<bool>({true, true, true}));
    QCOMPARE(m_table->shownChecks(), m_table->checks());
}

void TestExaminationTableControl::undoAfterSortingHitsItsOwnExamination()
{
    click(0); // number 1
    m_table->table->sortItems(ExaminationTable::SubjectColumn);
    QCOMPARE(m_table->shownNumbers(), QList<int>({3, 2, 1}));
    m_table->stack().undo();
    QCOMPARE(m_table->checks(), QList<bool>({true, true, true}));
    m_table->stack().redo();
    QCOMPARE(m_table->checks(), QList<bool>({false, true, true}));
    QCOMPARE(m_table->shownChecks(), QList<bool>({true, true, false}));
}

void TestExaminationTableControl::aClickAfterSortingChangesItsOwnExamination()
{
    m_table->table->sortItems(ExaminationTable::SubjectColumn);
    QCOMPARE(m_table->shownNumbers(), QList<int>({3, 2, 1}));
    click(0);
    QCOMPARE(m_table->checks(), QList<bool>({true, true, false}));
}

void TestExaminationTableControl::checkingSelectedRowsIsACommandEach()
{
    m_table->table->selectAll();
    click(0);
    m_table->table->selectAll();
    m_table->control.sltUncheck();
    QCOMPARE(m_table->checks(), QList<bool>({false, false, false}));
    QCOMPARE(m_table->stack().count(), 3);
    m_table->control.sltCheck();
    QCOMPARE(m_table->stack().count(), 6);
    m_table->control.sltCheck();
    QCOMPARE(m_table->stack().count(), 6);
    m_table->table->clearSelection();
    m_table->control.sltUncheck();
    QCOMPARE(m_table->checks(), QList<bool>({true, true, true}));
}

void TestExaminationTableControl::manyCheckMarksAreDrawnOnce()
{
    m_table->table->selectAll();
    m_table->control.sltUncheck();
    QCOMPARE(m_table->window.updates, 3);
    QCOMPARE(m_table->window.drawings, 1);
    m_table->control.sltUncheck(); // nothing is left to uncheck
    QCOMPARE(m_table->window.drawings, 1);
    m_table->control.sltCheck();
    QCOMPARE(m_table->window.drawings, 2);
    QCOMPARE(m_table->window.holds, 0);
}

void TestExaminationTableControl::aClickSharesTheSamples()
{
    const QList<Examination> before = std::as_const(m_table->model).examinations();
    click(1);
    m_table->stack().undo();
    m_table->control.sltRefreshTable({{u"subjectID"_s, u"Ann"_s}});
    const DataModel &model = m_table->model;
    for (const QList<Examination> *list : {&model.examinations(), &model.allExaminations()}) {
        for (qsizetype i = 0; i < list->size(); ++i)
            QCOMPARE(list->at(i).leftEye.gazePoints.constData(), before[i].leftEye.gazePoints.constData());
    }
}

// ---- filter

void TestExaminationTableControl::aFilterNobodyMeetsUnchecksForGood()
{
    m_table->control.sltRefreshTable({{u"subjectID"_s, u"Zoe"_s}});
    QCOMPARE(m_table->checks(), QList<bool>({false, false, false}));
    QCOMPARE(m_table->shownChecks(), QList<bool>({false, false, false}));
    QCOMPARE(m_table->shownNumbers(), QList<int>({1, 2, 3})); // all rows are still there
    m_table->control.sltClearFilter();
    QVERIFY(m_table->control.filter().isEmpty());
    QCOMPARE(m_table->shownChecks(), QList<bool>({false, false, false}));
}

void TestExaminationTableControl::whatAFilterTookComesBackByHand()
{
    m_table->control.sltRefreshTable({{u"subjectID"_s, u"Zoe"_s}});
    m_table->table->selectRow(1);
    m_table->control.sltCheck();
    QCOMPARE(m_table->checks(), QList<bool>({false, true, false}));
    QCOMPARE(m_table->control.filter().size(), 1);
}

void TestExaminationTableControl::aFilterEndsSorting()
{
    m_table->table->sortItems(ExaminationTable::SubjectColumn);
    QCOMPARE(m_table->shownNumbers(), QList<int>({3, 2, 1}));
    m_table->control.sltRefreshTable({{u"dominant"_s, u"left"_s}});
    QCOMPARE(m_table->shownNumbers(), QList<int>({1, 2, 3}));
    QCOMPARE(m_table->shownChecks(), QList<bool>({true, false, false}));
    m_table->add({{u"subjectID"_s, u"Abe"_s}});
    QCOMPARE(m_table->shownNumbers(), QList<int>({1, 2, 3, 4}));
}

void TestExaminationTableControl::aFilterWithoutExaminations()
{
    m_table->model.examinations().clear();
    QSignalSpy status(&m_table->control, &ExaminationTableControl::sigSetSaccadeClusterStatusNone);
    m_table->control.sltRefreshTable({{u"subjectID"_s, u"Ann"_s}});
    QCOMPARE(m_table->table->rowCount(), 0);
    QCOMPARE(m_table->window.updates, 0);
    QCOMPARE(status.size(), 0);
    QCOMPARE(m_table->control.filter().size(), 1);
}

void TestExaminationTableControl::aFilterSetsBackTheSaccadeClusters()
{
    QSignalSpy status(&m_table->control, &ExaminationTableControl::sigSetSaccadeClusterStatusNone);
    m_table->control.sltRefreshTable({{u"subjectID"_s, u"Ann"_s}});
    QCOMPARE(status.size(), 1);
    m_table->control.sltClearFilter();
    QCOMPARE(status.size(), 2);
}

void TestExaminationTableControl::aFilterReachesNotTheImportedState()
{
    m_table->control.sltRefreshTable({{u"subjectID"_s, u"Ann"_s}});
    QCOMPARE(TableFixture::checks(m_table->model.allExaminations()), QList<bool>({true, true, true}));
}

void TestExaminationTableControl::clearingIsNoCommand()
{
    m_table->control.sltRefreshTable({{u"subjectID"_s, u"Ann"_s}});
    const int updates = m_table->window.updates;
    m_table->control.sltClearFilter();
    QCOMPARE(m_table->stack().count(), 0);
    QCOMPARE(m_table->window.updates, updates + 1);
}

// ---- groups

void TestExaminationTableControl::groupingByAProperty()
{
    m_table->control.setColorTable([] { return Group::ColorTable{{u"saccadesLeft"_s, QColor(Qt::magenta)}}; });
    QSignalSpy changed(&m_table->control, &ExaminationTableControl::groupsChanged);
    m_table->groupBy->setCurrentText(u"dominant"_s);
    QCOMPARE(m_table->groupNames(), QStringList({u"left"_s, u"right"_s, u"invalid"_s}));
    QCOMPARE(m_table->model.groups()[2].colorsLeft.value(u"SaccadeVisualization"_s), QColor(Qt::magenta));
    QCOMPARE(m_table->memberships(), QStringList({u"left 0"_s, u"right 1"_s, u"invalid 2"_s}));
    for (int row = 0; row < 3; ++row)
        QCOMPARE(m_table->groupBox(row)->currentIndex(), row + 1); // behind "None"
    QCOMPARE(m_table->groupBy->currentIndex(), 0);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(m_table->stack().count(), 1);
    QCOMPARE(m_table->stack().undoText(), u"Group by: dominant"_s);
    QCOMPARE(m_table->window.updates, 1);
    m_table->groupBy->setCurrentText(u"dominant"_s);
    QCOMPARE(m_table->groupNames().size(), 3);
}

void TestExaminationTableControl::groupingIsUndone()
{
    m_table->groupBy->setCurrentText(u"subjectID"_s);
    const QStringList bySubject = m_table->memberships();
    m_table->groupBy->setCurrentText(u"dominant"_s);
    const QStringList names = m_table->groupNames();
    const QStringList byEye = m_table->memberships();
    QVERIFY(byEye != bySubject);
    const auto shown = [this] { return m_table->groupBox(0)->currentText(); };
    m_table->stack().undo();
    QCOMPARE(m_table->memberships(), bySubject);
    QCOMPARE(m_table->groupNames(), QStringList({u"Cid"_s, u"Bob"_s, u"Ann"_s}));
    QCOMPARE(shown(), u"Cid"_s);
    m_table->stack().undo();
    QCOMPARE(m_table->memberships(), QStringList(3, u"None 0"_s));
    QCOMPARE(m_table->groupNames(), QStringList());
    QCOMPARE(shown(), u"None"_s);
    m_table->stack().setIndex(2);
    QCOMPARE(m_table->memberships(), byEye);
    QCOMPARE(m_table->groupNames(), names);
    QCOMPARE(shown(), u"left"_s);
}

/// The dialog of groups makes no command.
void TestExaminationTableControl::groupsOfOthersOutliveTheUndo()
{
    m_table->groupBy->setCurrentText(u"dominant"_s);
    QList<Group> groups = m_table->model.groups();
    groups[0].colorsLeft[u"FixationVisualization"_s] = Qt::cyan;
    groups << Group(u"mine"_s, {});
    m_table->control.sltRefreshTable(groups);
    m_table->stack().undo();
    QCOMPARE(m_table->groupNames(), QStringList(u"mine"_s));
    m_table->stack().redo();
    QCOMPARE(m_table->groupNames(), QStringList({u"mine"_s, u"left"_s, u"right"_s, u"invalid"_s}));
    QCOMPARE(m_table->model.groups()[1].colorsLeft.value(u"FixationVisualization"_s), QColor(Qt::cyan));
    QCOMPARE(m_table->memberships(), QStringList({u"left 1"_s, u"right 2"_s, u"invalid 3"_s}));
}

void TestExaminationTableControl::groupingAppliesTheFilterOnceMore()
{
    m_table->control.sltRefreshTable({{u"subjectID"_s, u"Ann"_s}});
    click(0);
    QCOMPARE(m_table->checks(), QList<bool>({true, false, true}));
    m_table->control.sltGroupBy(u"dominant"_s);
    QCOMPARE(m_table->checks(), QList<bool>({false, false, true}));
}

void TestExaminationTableControl::choosingNothingGroupsNothing()
{
    m_table->control.sltGroupBy(QString());
    QVERIFY(m_table->model.groups().isEmpty());
    QCOMPARE(m_table->window.updates, 0);
}

void TestExaminationTableControl::aGroupChosenInTheRow()
{
    m_table->model.setGroups({Group(u"a"_s, {}), Group(u"b"_s, {})});
    m_table->control.sltClearFilter();
    m_table->table->sortItems(ExaminationTable::SubjectColumn);
    const int updates = m_table->window.updates;
    QSignalSpy changed(&m_table->control, &ExaminationTableControl::groupsChanged);
    QTest::keyClick(m_table->groupBox(0), Qt::Key_End); // examination 3
    QCOMPARE(m_table->memberships(), QStringList({u"None 0"_s, u"None 0"_s, u"b 2"_s}));
    QCOMPARE(m_table->model.allExaminations()[2].groupName, u"None"_s);
    QCOMPARE(m_table->stack().count(), 0);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(m_table->window.updates, updates + 1);
}

void TestExaminationTableControl::managingRefreshesGroupLists()
{
    QSignalSpy changed(&m_table->control, &ExaminationTableControl::groupsChanged);
    m_table->control.sltManageGroups();
    QCOMPARE(changed.size(), 1);
}

void TestExaminationTableControl::newGroupsKeepTheFilter()
{
    m_table->control.sltRefreshTable({{u"subjectID"_s, u"Ann"_s}});
    m_table->control.sltRefreshTable(QList<Group>{Group(u"a"_s, {})});
    QCOMPARE(m_table->control.filter(), ExaminationFilter({{u"subjectID"_s, u"Ann"_s}}));
    QCOMPARE(m_table->groupBox(0)->count(), 2);
}

// ---- colour and report

void TestExaminationTableControl::theColorOfARow()
{
    const QColor teal(0, 128, 128);
    m_table->add({{u"Color"_s, QString::number(qRgba(255, 0, 0, 255))}});
    QCOMPARE(item(3, u"Color"_s)->background().color(), QColor(255, 0, 0));
    QColor offered;
    m_table->control.setColorChooser([&](const QColor &start) {
        offered = start;
        return teal;
    });
    m_table->table->itemDoubleClicked(item(3, u"Color"_s));
    QCOMPARE(offered, QColor(255, 0, 0));
    QCOMPARE(item(3, u"Color"_s)->background().color(), teal);
    QCOMPARE(item(3, u"Color"_s)->text(), QString::number(teal.rgba()));
    const Examination &examination = m_table->model.examinations()[3];
    QCOMPARE(examination.leftEye.gazePoints[1].color, teal.rgba());
    QCOMPARE(examination.properties.value(u"Color"_s), QString::number(teal.rgba()));
    QCOMPARE(m_table->model.allExaminations()[3].leftEye.gazePoints[1].color, qRgba(255, 0, 0, 255));
    QCOMPARE(m_table->window.updates, 1);
}

/// The examination is sought when the dialog has closed: an import behind it moves all of them.
void TestExaminationTableControl::theColorOfARowThatMovesBehindTheDialog()
{
    m_table->add({{u"Color"_s, QString::number(qRgba(255, 0, 0, 255))}});
    const QList<Examination> before = m_table->model.examinations();
    m_table->control.setColorChooser([&](const QColor &) {
        for (int i = 0; i < 100; ++i)
            m_table->add({});
        return QColor(Qt::blue);
    });
    m_table->table->itemDoubleClicked(item(3, u"Color"_s));
    QCOMPARE(m_table->model.examinations()[3].leftEye.gazePoints[0].color, QColor(Qt::blue).rgba());
    QCOMPARE(before[3].leftEye.gazePoints[0].color, qRgba(255, 0, 0, 255));
}

void TestExaminationTableControl::noColorChosen()
{
    const QString red = QString::number(qRgba(255, 0, 0, 255));
    m_table->add({{u"Color"_s, red}});
    m_table->control.setColorChooser([](const QColor &) { return QColor(); });
    m_table->table->itemDoubleClicked(item(3, u"Color"_s));
    QCOMPARE(item(3, u"Color"_s)->text(), red);
    QCOMPARE(m_table->window.updates, 0);
}

void TestExaminationTableControl::theColorDialog()
{
    m_table->add({{u"Color"_s, QString::number(qRgba(9, 8, 7, 255))}});
    bool seen = false;
    QTimer::singleShot(0, this, [&] {
        auto *dialog = qobject_cast<QColorDialog *>(QApplication::activeModalWidget());
        QVERIFY(dialog);
        QCOMPARE(dialog->windowTitle(), u"GP Color"_s);
        QCOMPARE(dialog->currentColor(), QColor(9, 8, 7));
        QVERIFY(dialog->testOption(QColorDialog::DontUseNativeDialog));
        dialog->setCurrentColor(QColor(1, 2, 3));
        QTest::keyClick(dialog, Qt::Key_Return);
        seen = true;
    });
    QTableWidgetItem *cell = item(3, u"Color"_s);
    m_table->table->scrollToItem(cell);
    const QPoint middle = m_table->table->visualItemRect(cell).center();
    QTest::mouseClick(m_table->table->viewport(), Qt::LeftButton, {}, middle);
    QTest::mouseDClick(m_table->table->viewport(), Qt::LeftButton, {}, middle);
    QVERIFY(seen);
    QCOMPARE(m_table->model.examinations()[3].leftEye.gazePoints[0].color, qRgb(1, 2, 3));
}

void TestExaminationTableControl::theReportOfARow()
{
    m_table->model.examinations()[1].calculationInfo.fixationCalculationInfo = u"radius 50\n"_s;
    RecordedMessages shown;
    m_table->table->sortItems(ExaminationTable::SubjectColumn, Qt::DescendingOrder);
    const QPoint middle = m_table->table->visualItemRect(item(1, u"dominant"_s)).center();
    QTest::mouseClick(m_table->table->viewport(), Qt::LeftButton, {}, middle);
    QTest::mouseDClick(m_table->table->viewport(), Qt::LeftButton, {}, middle);
    QCOMPARE(shown.texts(), QStringList{u"Information|"_s + m_table->model.examinations()[1].calculationInfo.report()});
    QVERIFY(shown.texts()[0].contains(u"FixationCalculationInfo:\nradius 50\n"_s));
}

// ---- size

void TestExaminationTableControl::hundredRows()
{
    constexpr int rows = 100;
    QElapsedTimer timer;
    for (int row = 3; row < rows; ++row)
        m_table->add({{u"subjectID"_s, u"s%1"_s.arg(row)}, {u"age"_s, u"30"_s}}, 2000);
    timer.start();
    m_table->control.sltRefreshTable({{u"subjectID"_s, u"s50"_s}});
    QCoreApplication::processEvents();
    qInfo("a filter over %d rows took %lld ms", rows, timer.elapsed());
    QCOMPARE(m_table->table->rowCount(), rows);
    QCOMPARE(m_table->checks().count(true), 1);
    QCOMPARE(m_table->window.updates, 1);
    timer.start();
    m_table->table->selectAll();
    m_table->control.sltCheck();
    qInfo("checking %d rows took %lld ms", rows, timer.elapsed());
    QCOMPARE(m_table->stack().count(), rows - 1);
    QCOMPARE(m_table->checks().count(true), rows);
}

QTEST_MAIN(TestExaminationTableControl)
#include "TestExaminationTableControl.moc"
