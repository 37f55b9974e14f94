// SPDX-License-Identifier: GPL-3.0-or-later
#include "comparison/panel/ScanpathCompareControl.h"

#include "comparison/OutsideComparison.h"
#include "comparison/ScanpathSamples.h"
#include "TestMessages.h"

#include <QDir>
#include <QLabel>
#include <QProgressDialog>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

/// The bridge to the outside program, with a small program in its place.
class TestScanpathCompareControl : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void form();
    void fewerThanTwo_data();
    void fewerThanTwo();
    void eyeFiles();
    void anEyeFileWithoutFixations();
    void run();
    void plainNameIsTriedFirst();
    void missingProgram();
    void aProgramThatFails();
    void aProgramThatDoesNotStart();
    void cancelling();
    void sharedIdsAreNamed();
    void aFolderThatIsNotWritable();

private:
    void click() const
    {
        QTest::mouseClick(m_control->findChild<QPushButton *>(u"compareScanpaths_Button"_s), Qt::LeftButton);
    }
    void writeProgram(const QByteArray &lines, const QString &name = u"iComp.exe"_s) const
    {
        QDir().mkpath(u"external/afvis"_s);
        QFile file(u"external/afvis/"_s + name);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("#!/bin/sh\n" + lines) > 0);
        file.close();
        file.setPermissions(file.permissions() | QFile::ExeOwner);
    }
    static QByteArray contents(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<RecordedMessages> m_messages;
    std::unique_ptr<DataModel> m_model;
    std::unique_ptr<ScanpathCompareControl> m_control;
};

void TestScanpathCompareControl::init()
{
    m_folder = std::make_unique<QTemporaryDir>(QDir::tempPath() + u"/wörking \"folder\" XXXXXX"_s);
    QVERIFY(QDir::setCurrent(m_folder->path()));
    m_messages = std::make_unique<RecordedMessages>();
    m_model = std::make_unique<DataModel>();
    addRecordings(*m_model, {{{10, 20, 100}, {30, 40, 200}}, {{50, 60, 100}}});
    m_model->examinations()[0].subjectId = u"7"_s;
    m_model->examinations()[1].subjectId = u"8"_s;
    m_control = std::make_unique<ScanpathCompareControl>();
    m_control->setModel(m_model.get());
}

void TestScanpathCompareControl::cleanup()
{
    QDir::setCurrent(QDir::rootPath());
    m_messages.reset();
}

void TestScanpathCompareControl::form()
{
    QVERIFY(!m_control->findChild<QPushButton *>(u"compareScanpaths_Button"_s)->icon().isNull());
    QVERIFY(!m_control->findChild<QLabel *>(u"scancomp_label"_s)->text().isEmpty());
}

void TestScanpathCompareControl::fewerThanTwo_data()
{
    QTest::addColumn<int>("checked");
    QTest::newRow("none") << 0;
    QTest::newRow("one") << 1;
}

void TestScanpathCompareControl::fewerThanTwo()
{
    QFETCH(int, checked);
    for (int i = checked; i < 2; ++i)
        m_model->examinations()[i].checked = false;
    click();
    QCOMPARE(m_messages->texts(),
             QStringList{u"No two scanpaths specified for comparison!|At least two scanpaths must be specified for a "
                         "scanpath comparison."_s});
    QVERIFY(!QFile::exists(u"temp"_s));
}

void TestScanpathCompareControl::eyeFiles()
{
    m_model->examinations()[0].dominantEye = u"left"_s;
    m_model->examinations()[0].rightEye.scanpath.clear();
    const Examination &examination = std::as_const(*m_model).examinations()[0];
    QCOMPARE(outsidecomparison::eyeFileText(examination).toUtf8(),
             QByteArray("Data properties:\n\nRecording date: 6/30/2009\nRecording time : 11:14:51:000 (corresponds to "
                        "time 0)\nStudy: TMT\nSubject: R7\nRecording: R01\nScreen resolution: 2000 x 1000\nCoordinate "
                        "unit: Pixels\n\nTimestamp\tFound\tGazepointX\tGazepointY\n\n"
                        "1\t1\t2\t10\t20\n2\t2\t2\t30\t40\n"));
}

void TestScanpathCompareControl::anEyeFileWithoutFixations()
{
    Examination examination;
    examination.subjectId = u"P07"_s;
    QCOMPARE(outsidecomparison::idOf(examination), 0);
    QVERIFY(outsidecomparison::eyeFileText(examination).endsWith(u"Timestamp\tFound\tGazepointX\tGazepointY\n\n"_s));
    QVERIFY(outsidecomparison::eyeFileText(examination).contains(u"Subject: R0\n"_s));
}

void TestScanpathCompareControl::run()
{
    writeProgram("echo \"$# $1\"; cat \"$1\"\n");
    click();
    QCOMPARE(m_messages->texts(),
             QStringList{u"iComp finished!|You can find the results at directory 'temp/comparison.txt'."_s});
    QCOMPARE(contents(u"temp/comparison.txt"_s),
             QByteArray("1 temp/setfile.txt\ntemp/S7-R1-FXD.txt\ntemp/S8-R1-FXD.txt\n"));
    QVERIFY(contents(u"temp/S8-R1-FXD.txt"_s).endsWith("\n1\t1\t2\t50\t60\n"));
    click(); // what was there is overwritten
    QCOMPARE(m_messages->texts().size(), 2);
}

void TestScanpathCompareControl::plainNameIsTriedFirst()
{
    writeProgram("echo other\n");
    writeProgram("echo plain\n", u"iComp"_s);
    click();
    QCOMPARE(contents(u"temp/comparison.txt"_s), QByteArray("plain\n"));
}

void TestScanpathCompareControl::missingProgram()
{
    click();
    QCOMPARE(m_messages->texts(),
             (QStringList{u"iComp executable not found!|The external iComp executable could not be located at: "
                          "external/afvis/iComp.exe"_s,
                          u"Unable to call iComp!|An Error occurred while working with iComp."_s}));
    QVERIFY(QFile::exists(u"temp/setfile.txt"_s));
}

void TestScanpathCompareControl::aProgramThatFails()
{
    writeProgram("echo no licence >&2; exit 2\n");
    click();
    QCOMPARE(m_messages->texts(),
             (QStringList{u"iComp executable did not finish!|iComp does not work :(\nit ended with the error 2\nno "
                          "licence"_s,
                          u"Unable to call iComp!|An Error occurred while working with iComp."_s}));
}

void TestScanpathCompareControl::aProgramThatDoesNotStart()
{
    writeProgram("exit 0\n");
    QFile(u"external/afvis/iComp.exe"_s).setPermissions(QFile::ReadOwner);
    click();
    QVERIFY(m_messages->texts().value(0).startsWith(u"iComp executable did not start up!|iComp does not work :("_s));
    QCOMPARE(m_messages->texts().value(1), u"Unable to call iComp!|An Error occurred while working with iComp."_s);
}

void TestScanpathCompareControl::cancelling()
{
    writeProgram("sleep 1; echo late\n");
    bool wasShown = false;
    QTimer::singleShot(200, this, [&] {
        auto *dialog = m_control->findChild<QProgressDialog *>();
        wasShown = dialog && dialog->isVisible();
        if (dialog)
            dialog->cancel();
    });
    click();
    QVERIFY(wasShown);
    QCOMPARE(m_messages->texts(), QStringList());
    QTRY_COMPARE(contents(u"temp/comparison.txt"_s), QByteArray("late\n")); // it went on
}

void TestScanpathCompareControl::sharedIdsAreNamed()
{
    addRecordings(*m_model, {{{1, 1, 1}}, {{2, 2, 2}}});
    m_model->examinations()[2].subjectId = u"8"_s;
    m_model->examinations()[3].subjectId = u"P09"_s;
    writeProgram("cat \"$1\"\n");
    click();
    QCOMPARE(m_messages->texts().value(0),
             u"Scanpath comparison|iComp knows a subject by a number. Some examinations will be missed or mixed up.\n"
             "temp/S0-R1-FXD.txt: r4 (id \"P09\") is no number and counts as 0.\n"
             "temp/S8-R1-FXD.txt: only the last of r2 (id \"8\"), r3 (id \"8\") is compared."_s);
    QVERIFY(contents(u"temp/S8-R1-FXD.txt"_s).endsWith("\n1\t1\t2\t1\t1\n"));
    QCOMPARE(contents(u"temp/comparison.txt"_s),
             QByteArray("temp/S7-R1-FXD.txt\ntemp/S8-R1-FXD.txt\ntemp/S8-R1-FXD.txt\ntemp/S0-R1-FXD.txt\n"));
}

void TestScanpathCompareControl::aFolderThatIsNotWritable()
{
    QFile blocker(u"temp"_s); // a file where the folder should be
    QVERIFY(blocker.open(QIODevice::WriteOnly));
    blocker.close();
    writeProgram("echo never\n");
    click();
    QCOMPARE(m_messages->texts().size(), 2); // one for all eye files, one for the set file
    QVERIFY(m_messages->texts()[0].startsWith(
        u"Unable to write temporary file!|An Error occurred while trying to write a temporary file (eyefile) required "
        u"for "
        "iComp. Please check if you have writing privileges in the current folder."_s));
    QVERIFY(m_messages->texts()[1].startsWith(
        u"Unable to write temporary file!|An Error occurred while trying to write a temporary file (setfile) required "
        u"for "
        "iComp. Please check if you have writing privileges in the current folder."_s));
    for (const QString &text : m_messages->texts())
        QVERIFY2(text.endsWith(u"the folder cannot be made: Not a directory"_s), qPrintable(text));
}

QTEST_MAIN(TestScanpathCompareControl)
#include "TestScanpathCompareControl.moc"
