// SPDX-License-Identifier: GPL-3.0-or-later
#include "commands/panel/SaveDialog.h"

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

/// Names as users type them, and what becomes of them.
class TestSaveDialog : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { QApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }
    void endings_data();
    void endings();
    void cancelledDialog();
    void aCompletedNameThatExistsIsAskedAbout();

private:
    /// Types the name in the next dialog; the filter has this place.
    static void typeInNextDialog(const QString &name, int filter = 0)
    {
        QTimer::singleShot(0, [name, filter] {
            auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
            QVERIFY(dialog);
            dialog->selectNameFilter(dialog->nameFilters().at(filter));
            dialog->findChild<QLineEdit *>()->setText(name);
            static_cast<QDialog *>(dialog)->accept();
        });
    }
    static QString choose(const QString &folder)
    {
        return chooseSaveFile(nullptr, QStringLiteral("Save"), folder,
                              QStringLiteral("PNG (*.png);;Vector Graphics (*.svg);; JPEG(*.jpg *.jpeg)"));
    }
};

void TestSaveDialog::endings_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("filter");
    QTest::addColumn<QString>("name");
    QTest::newRow("the first filter") << "drawn" << 0 << "drawn.png";
    QTest::newRow("another filter") << "drawn" << 1 << "drawn.svg";
    QTest::newRow("the first ending of a filter") << "drawn" << 2 << "drawn.jpg";
    QTest::newRow("a typed ending stays") << "drawn.tiff" << 0 << "drawn.tiff";
    QTest::newRow("a dot at the end") << "drawn." << 0 << "drawn.png";
    QTest::newRow("a dot in a folder is no ending") << "of.2026/drawn" << 0 << "of.2026/drawn.png";
}

void TestSaveDialog::endings()
{
    QFETCH(QString, typed);
    QFETCH(int, filter);
    QFETCH(QString, name);
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("of.2026")));
    typeInNextDialog(folder.filePath(typed), filter);
    QCOMPARE(choose(folder.path()), folder.filePath(name));
}

void TestSaveDialog::cancelledDialog()
{
    QTimer::singleShot(0, [] { qobject_cast<QDialog *>(QApplication::activeModalWidget())->reject(); });
    QCOMPARE(choose(QString()), QString());
}

/// After a no the dialog is there again.
void TestSaveDialog::aCompletedNameThatExistsIsAskedAbout()
{
    const QTemporaryDir folder;
    QFile older(folder.filePath(QStringLiteral("drawn.png")));
    QVERIFY(older.open(QIODevice::WriteOnly));
    QStringList asked;
    QTimer answers;
    connect(&answers, &QTimer::timeout, this, [&] {
        if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
            asked << box->text();
            box->button(asked.size() == 1 ? QMessageBox::No : QMessageBox::Yes)->click();
        } else if (auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget())) {
            dialog->findChild<QLineEdit *>()->setText(folder.filePath(QStringLiteral("drawn")));
            static_cast<QDialog *>(dialog)->accept();
        }
    });
    answers.start(1);
    QCOMPARE(choose(folder.path()), older.fileName());
    QCOMPARE(asked, QStringList(2, older.fileName() + QStringLiteral(" already exists.\nDo you want to replace it?")));
}

QTEST_MAIN(TestSaveDialog)
#include "TestSaveDialog.moc"
