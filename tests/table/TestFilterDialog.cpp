// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/panel/filterDialog.h"

#include "TableFixture.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>

using namespace Qt::StringLiterals;

class TestFilterDialog : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void form();
    void linesStartWithTheCurrentFilter();
    void okPushesACommand();
    void enterConfirms();
    void emptyLinesAskForNothing();
    void allLinesEmptiedClearsTheFilter();
    void cancelDestroysTheDialogAndNothingElse();
    void escapeCancels();
    void undoBringsTheFilterBackButNoCheckMark();

private:
    filterDialog *open();
    static QLineEdit *line(const filterDialog *dialog, const QString &label);
    static QPushButton *button(const filterDialog *dialog, const char *name)
    {
        return dialog->findChild<QPushButton *>(QLatin1StringView(name));
    }
    static QStringList captions(const filterDialog *dialog);

    std::unique_ptr<TableFixture> m_table;
};

void TestFilterDialog::init()
{
    m_table = std::make_unique<TableFixture>();
    m_table->add({{u"subjectID"_s, u"Ann"_s}, {u"age"_s, u"30"_s}}, 500);
    m_table->add({{u"subjectID"_s, u"Bob"_s}, {u"age"_s, u"40"_s}}, 1500);
}

void TestFilterDialog::cleanup()
{
    m_table.reset();
}

filterDialog *TestFilterDialog::open()
{
    m_table->control.sltShowFilterDialog();
    const auto dialogs = m_table->widget.findChildren<filterDialog *>();
    return dialogs.size() == 1 && QTest::qWaitForWindowExposed(dialogs.first()) ? dialogs.first() : nullptr;
}

QLineEdit *TestFilterDialog::line(const filterDialog *dialog, const QString &label)
{
    const auto *form = dialog->findChild<QFormLayout *>();
    for (int row = 0; row < form->rowCount(); ++row) {
        const auto *caption = qobject_cast<QLabel *>(form->itemAt(row, QFormLayout::LabelRole)->widget());
        if (caption->text() == label)
            return qobject_cast<QLineEdit *>(form->itemAt(row, QFormLayout::FieldRole)->widget());
    }
    return nullptr;
}

QStringList TestFilterDialog::captions(const filterDialog *dialog)
{
    QStringList texts;
    const auto *form = dialog->findChild<QFormLayout *>();
    for (int row = 0; row < form->rowCount(); ++row)
        texts << qobject_cast<QLabel *>(form->itemAt(row, QFormLayout::LabelRole)->widget())->text();
    return texts;
}

void TestFilterDialog::form()
{
    m_table->add({{u"a & <b>c</b>"_s, u"1"_s}});
    const filterDialog *dialog = open();
    QVERIFY(dialog);
    QCOMPARE(dialog->windowTitle(), u"Filter"_s);
    QCOMPARE(captions(dialog), QStringList({u"subjectID"_s, u"image"_s, u"group"_s, u"age"_s, u"a & <b>c</b>"_s,
                                            u"Time (<Value or >Value):"_s}));
    for (const QLabel *caption : dialog->findChildren<QLabel *>())
        QCOMPARE(caption->textFormat(), Qt::PlainText);
    QCOMPARE(dialog->findChildren<QLineEdit *>().size(), 6);
    QCOMPARE(button(dialog, "okButton")->text(), u"OK"_s);
    QCOMPARE(button(dialog, "cancelButton")->text(), u"Cancel"_s);
    QVERIFY(dialog->testAttribute(Qt::WA_DeleteOnClose));
}

void TestFilterDialog::linesStartWithTheCurrentFilter()
{
    m_table->control.sltRefreshTable({{u"age"_s, u"40"_s}, {u"duration_filter_flag"_s, u">7"_s}});
    const filterDialog *dialog = open();
    QVERIFY(dialog);
    QCOMPARE(line(dialog, u"age"_s)->text(), u"40"_s);
    QCOMPARE(line(dialog, u"Time (<Value or >Value):"_s)->text(), u">7"_s);
    QCOMPARE(line(dialog, u"subjectID"_s)->text(), QString());
}

void TestFilterDialog::okPushesACommand()
{
    QPointer<filterDialog> dialog = open();
    QVERIFY(dialog);
    QTest::keyClicks(line(dialog, u"subjectID"_s), u"Bob"_s);
    QTest::keyClicks(line(dialog, u"Time (<Value or >Value):"_s), u">1000"_s);
    QTest::mouseClick(button(dialog, "okButton"), Qt::LeftButton);
    QTRY_VERIFY(!dialog);
    QCOMPARE(m_table->stack().count(), 1);
    QCOMPARE(m_table->stack().undoText(), u"Filter"_s);
    QCOMPARE(m_table->control.filter(),
             ExaminationFilter({{u"subjectID"_s, u"Bob"_s}, {u"duration_filter_flag"_s, u">1000"_s}}));
    QCOMPARE(m_table->checks(), QList<bool>({false, true}));
    QCOMPARE(m_table->shownChecks(), QList<bool>({false, true}));
}

void TestFilterDialog::enterConfirms()
{
    QPointer<filterDialog> dialog = open();
    QVERIFY(dialog);
    QTest::keyClicks(line(dialog, u"age"_s), u"30"_s);
    QTest::keyClick(line(dialog, u"age"_s), Qt::Key_Return);
    QTRY_VERIFY(!dialog);
    QCOMPARE(m_table->stack().count(), 1);
    QCOMPARE(m_table->checks(), QList<bool>({true, false}));
}

void TestFilterDialog::emptyLinesAskForNothing()
{
    QPointer<filterDialog> dialog = open();
    QVERIFY(dialog);
    QTest::mouseClick(button(dialog, "okButton"), Qt::LeftButton);
    QTRY_VERIFY(!dialog);
    QCOMPARE(m_table->stack().undoText(), u"Filter"_s);
    QVERIFY(m_table->control.filter().isEmpty());
    QCOMPARE(m_table->checks(), QList<bool>({true, true}));
}

void TestFilterDialog::allLinesEmptiedClearsTheFilter()
{
    m_table->control.sltRefreshTable({{u"age"_s, u"40"_s}});
    QPointer<filterDialog> dialog = open();
    QVERIFY(dialog);
    line(dialog, u"age"_s)->clear();
    QTest::mouseClick(button(dialog, "okButton"), Qt::LeftButton);
    QTRY_VERIFY(!dialog);
    QVERIFY(m_table->control.filter().isEmpty());
    QCOMPARE(m_table->checks(), QList<bool>({false, true}));
}

void TestFilterDialog::cancelDestroysTheDialogAndNothingElse()
{
    QPointer<filterDialog> dialog = open();
    QVERIFY(dialog);
    QTest::keyClicks(line(dialog, u"subjectID"_s), u"Bob"_s);
    QTest::mouseClick(button(dialog, "cancelButton"), Qt::LeftButton);
    QTRY_VERIFY(!dialog);
    QCOMPARE(m_table->stack().count(), 0);
    QVERIFY(m_table->control.filter().isEmpty());
    QCOMPARE(m_table->checks(), QList<bool>({true, true}));
}

void TestFilterDialog::escapeCancels()
{
    QPointer<filterDialog> dialog = open();
    QVERIFY(dialog);
    QTest::keyClick(dialog.data(), Qt::Key_Escape);
    QTRY_VERIFY(!dialog);
    QCOMPARE(m_table->stack().count(), 0);
}

void TestFilterDialog::undoBringsTheFilterBackButNoCheckMark()
{
    m_table->control.sltRefreshTable({{u"age"_s, u"30"_s}});
    QPointer<filterDialog> dialog = open();
    QVERIFY(dialog);
    line(dialog, u"age"_s)->setText(u"50"_s);
    QTest::mouseClick(button(dialog, "okButton"), Qt::LeftButton);
    QCOMPARE(m_table->checks(), QList<bool>({false, false}));
    m_table->stack().undo();
    QCOMPARE(m_table->control.filter(), ExaminationFilter({{u"age"_s, u"30"_s}}));
    QCOMPARE(m_table->checks(), QList<bool>({false, false}));
    m_table->stack().redo();
    QCOMPARE(m_table->control.filter(), ExaminationFilter({{u"age"_s, u"50"_s}}));
}

QTEST_MAIN(TestFilterDialog)
#include "TestFilterDialog.moc"
