// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/panel/editGroupsDialog.h"

#include "table/Grouping.h"

#include "TableFixture.h"

#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

/// Two examinations: the first in group "b", which stands behind "a"; the second in none.
class TestEditGroupsDialog : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void form();
    void showsTheGroups();
    void createsGroups();
    void enterCreatesAndStays();
    void anEmptyNameCreatesNothing();
    void removingAGroupSetsItsMembersToNone();
    void membersOfOtherGroupsGetTheirIndexInTheList();
    void doublesVanishTogetherButOneByOneFromTheList();
    void removingWithoutGroups();
    void cancelChangesNothing();
    void worksOnTheGroupsOfItsBeginning();
    void keepsCheckMarksAndResultsMadeMeanwhile();
    void recordingsMayHaveGone();
    void samplesStayShared();
    void tellsWhoListens();

private:
    template <class Widget>
    Widget *child(const char *name) const
    {
        return m_dialog->findChild<Widget *>(QLatin1StringView(name));
    }
    void click(const char *name) const { QTest::mouseClick(child<QPushButton>(name), Qt::LeftButton); }
    void create(const QString &name) const
    {
        QTest::keyClicks(child<QLineEdit>("newGroupLineEdit"), name);
        click("addGroupButton");
    }
    void remove(const QString &name) const
    {
        child<QComboBox>("removeGroupComboBox")->setCurrentText(name);
        click("removeGroupButton");
    }
    QStringList listed() const;

    std::unique_ptr<TableFixture> m_table;
    QPointer<editGroupsDialog> m_dialog;
};

void TestEditGroupsDialog::init()
{
    m_table = std::make_unique<TableFixture>();
    m_table->add({});
    m_table->add({});
    m_table->model.setGroups({Group(u"a"_s, {}), Group(u"b"_s, {})});
    assignGroup(m_table->model.examinations()[0], u"b"_s, 2);
    m_table->control.setColorTable([] { return Group::ColorTable{{u"fixationsRight"_s, QColor(Qt::cyan)}}; });
    m_table->control.sltManageGroups();
    m_dialog = m_table->widget.findChild<editGroupsDialog *>();
    QVERIFY(m_dialog);
    QVERIFY(QTest::qWaitForWindowExposed(m_dialog));
}

void TestEditGroupsDialog::cleanup()
{
    m_table.reset();
}

QStringList TestEditGroupsDialog::listed() const
{
    QStringList names;
    const auto *box = child<QComboBox>("removeGroupComboBox");
    for (int i = 0; i < box->count(); ++i)
        names << box->itemText(i);
    return names;
}

void TestEditGroupsDialog::form()
{
    QCOMPARE(m_dialog->windowTitle(), u"Dialog"_s);
    QCOMPARE(child<QPushButton>("addGroupButton")->text(), u"Add Group"_s);
    QCOMPARE(child<QPushButton>("removeGroupButton")->text(), u"Remove Group"_s);
    QVERIFY(child<QPushButton>("okButton"));
    QVERIFY(child<QPushButton>("cancelButton"));
    QVERIFY(!m_dialog->isModal());
}

void TestEditGroupsDialog::showsTheGroups()
{
    QCOMPARE(listed(), QStringList({u"a"_s, u"b"_s}));
    QCOMPARE(child<QLineEdit>("newGroupLineEdit")->text(), QString());
}

void TestEditGroupsDialog::createsGroups()
{
    create(u"new"_s);
    QCOMPARE(listed(), QStringList({u"a"_s, u"b"_s, u"new"_s}));
    QCOMPARE(child<QLineEdit>("newGroupLineEdit")->text(), QString());
    QCOMPARE(m_table->groupNames(), QStringList({u"a"_s, u"b"_s})); // not yet
    click("okButton");
    QTRY_VERIFY(!m_dialog);
    QCOMPARE(m_table->groupNames(), QStringList({u"a"_s, u"b"_s, u"new"_s}));
    QCOMPARE(m_table->model.groups()[2].colorsRight.value(u"FixationVisualization"_s), QColor(Qt::cyan));
    QCOMPARE(m_table->groupBox(0)->count(), 4); // "None", and the three
    QCOMPARE(m_table->groupBox(0)->currentText(), u"b"_s);
    QCOMPARE(m_table->groupBox(1)->currentText(), u"None"_s);
}

void TestEditGroupsDialog::enterCreatesAndStays()
{
    auto *line = child<QLineEdit>("newGroupLineEdit");
    QTest::keyClicks(line, u"one"_s);
    QTest::keyClick(line, Qt::Key_Return);
    QTest::keyClicks(line, u"two"_s);
    QTest::keyClick(line, Qt::Key_Return);
    QCOMPARE(listed(), QStringList({u"a"_s, u"b"_s, u"one"_s, u"two"_s}));
    QVERIFY(m_dialog->isVisible());
}

void TestEditGroupsDialog::anEmptyNameCreatesNothing()
{
    click("addGroupButton");
    QCOMPARE(listed(), QStringList({u"a"_s, u"b"_s}));
    click("okButton");
    QCOMPARE(m_table->groupNames(), QStringList({u"a"_s, u"b"_s}));
}

void TestEditGroupsDialog::removingAGroupSetsItsMembersToNone()
{
    remove(u"b"_s);
    QCOMPARE(listed(), QStringList{u"a"_s});
    click("okButton");
    QCOMPARE(m_table->groupNames(), QStringList{u"a"_s});
    QCOMPARE(m_table->memberships(), QStringList({u"None 0"_s, u"None 0"_s}));
    QCOMPARE(m_table->groupBox(0)->currentText(), u"None"_s);
}

void TestEditGroupsDialog::membersOfOtherGroupsGetTheirIndexInTheList()
{
    click("okButton");
    QCOMPARE(m_table->memberships(), QStringList({u"b 1"_s, u"None 0"_s}));
}

void TestEditGroupsDialog::doublesVanishTogetherButOneByOneFromTheList()
{
    create(u"b"_s);
    remove(u"b"_s);
    QCOMPARE(listed(), QStringList({u"a"_s, u"b"_s}));
    click("okButton");
    QCOMPARE(m_table->groupNames(), QStringList{u"a"_s});
    QCOMPARE(m_table->memberships(), QStringList({u"b 1"_s, u"None 0"_s})); // as the list had the name
    QCOMPARE(m_table->groupBox(0)->currentText(), u"None"_s);
}

void TestEditGroupsDialog::removingWithoutGroups()
{
    remove(u"a"_s);
    remove(u"b"_s);
    click("removeGroupButton");
    QCOMPARE(listed(), QStringList());
    click("okButton");
    QVERIFY(m_table->model.groups().isEmpty());
}

void TestEditGroupsDialog::cancelChangesNothing()
{
    create(u"new"_s);
    remove(u"b"_s);
    click("cancelButton");
    QTRY_VERIFY(!m_dialog);
    QCOMPARE(m_table->groupNames(), QStringList({u"a"_s, u"b"_s}));
    QCOMPARE(m_table->memberships(), QStringList({u"b 2"_s, u"None 0"_s}));
}

void TestEditGroupsDialog::worksOnTheGroupsOfItsBeginning()
{
    m_table->model.setGroups({Group(u"later"_s, {})});
    assignGroup(m_table->model.examinations()[0], u"later"_s, 1);
    click("okButton");
    QCOMPARE(m_table->groupNames(), QStringList({u"a"_s, u"b"_s}));
    QCOMPARE(m_table->memberships(), QStringList({u"b 1"_s, u"None 0"_s}));
}

void TestEditGroupsDialog::keepsCheckMarksAndResultsMadeMeanwhile()
{
    QTest::mouseClick(m_table->checkBox(1), Qt::LeftButton, {}, QPoint(8, m_table->checkBox(1)->height() / 2));
    m_table->model.examinations()[0].leftEye.scanpath = {Fixation()};
    click("okButton");
    QCOMPARE(m_table->checks(), QList<bool>({true, false}));
    QCOMPARE(m_table->model.examinations()[0].leftEye.scanpath.size(), 1);
}

void TestEditGroupsDialog::recordingsMayHaveGone()
{
    m_table->model.examinations().removeLast();
    click("okButton");
    QCOMPARE(m_table->memberships(), QStringList{u"b 1"_s});
    QCOMPARE(m_table->table->rowCount(), 1);
}

void TestEditGroupsDialog::samplesStayShared()
{
    remove(u"b"_s);
    click("okButton");
    const DataModel &model = m_table->model;
    QCOMPARE(model.examinations()[0].leftEye.gazePoints.constData(),
             model.allExaminations()[0].leftEye.gazePoints.constData());
}

void TestEditGroupsDialog::tellsWhoListens()
{
    QSignalSpy changed(&m_table->control, &ExaminationTableControl::groupsChanged);
    QSignalSpy updated(m_dialog.data(), &editGroupsDialog::sigUpdateTable);
    const int updates = m_table->window.updates;
    click("okButton");
    QCOMPARE(updated.size(), 1);
    QCOMPARE(updated[0][0].value<QList<Group>>(), m_table->model.groups());
    QCOMPARE(changed.size(), 1);
    QCOMPARE(m_table->window.updates, updates + 1);
}

QTEST_MAIN(TestEditGroupsDialog)
#include "TestEditGroupsDialog.moc"
