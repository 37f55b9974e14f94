// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/CorrectionPage.h"

#include <QProgressDialog>
#include <QTimer>

/// Export and average with small programs in the place of the outside ones.
class TestCorrectionPrograms : public CorrectionPage {
    Q_OBJECT
private Q_SLOTS:
    void init() { openPage(); }
    void cleanup() { closePage(); }
    void exporting();
    void exportOfTwoRecordings();
    void theNameOfTheTableIsRefused();
    void anExaminationThatIsGone();
    void exportWithoutPoints();
    void cancelledQuestions();
    void aFolderThatCannotBeWritten();
    void aMissingProgram();
    void aProgramThatFails();
    void waitingNoLonger();
    void averaging();
    void averagingCancelled();
};

void TestCorrectionPrograms::exporting()
{
    addRecording(u"a \"b\" ü.txt"_s);
    writeProgram(u"subsequent-gaze-correction"_s,
                 "cp \"$3\" \"$4\"; for a in \"$@\"; do echo \"$a\"; done > \"$4.args\"\n");
    addSetEllipse();
    const QString source = m_files->path(u"a \"b\" ü.txt"_s);
    const QString corrected = m_files->path(u"corrected $x.txt"_s);
    m_answers->names = {corrected};
    const QSignalSpy imports(m_control.get(), &CorrectionControl::sigImport);
    click("export_corr_points");
    QCOMPARE(m_answers->asked, QStringList{u"Save file a \"b\" ü.txt_cor.txt"_s});
    const QString table = m_files->path(u"a \"b\" ü.txt_correction.csv"_s);
    QCOMPARE(QString::fromUtf8(m_files->read(u"corrected $x.txt.args"_s)),
             QStringList({table, m_files->path(u"cal.ini"_s), source, corrected}).join(u'\n') + u'\n');
    const QByteArray rows = m_files->read(u"a \"b\" ü.txt_correction.csv"_s);
    QVERIFY(rows.startsWith("line;gp_original_x;gp_original_y;gp_corrected_x;gp_corrected_y\n"
                            "1;0;100;50;75\n2;1;99;51;74\n"));
    QCOMPARE(rows.count('\n'), 5);
    const CorrectionIni ini = parseCorrectionIni(m_files->read(u"corrected $x.txt.ini"_s));
    QVERIFY(ini.isComplete());
    QCOMPARE(ini.measuredPath, source);
    QCOMPARE(ini.correctedPath, corrected);
    QCOMPARE(ini.stimulus.size, (StimulusSize{1000, 800, 500, 200}));
    QCOMPARE(ini.ellipseLines.size(), 2);
    QCOMPARE(imports.size(), 1);
    QCOMPARE(imports[0], (QVariantList{corrected, 1000, 800, 500, 200, u"picture.png"_s, m_files->path(u"cal.ini"_s)}));
    QCOMPARE(m_messages->texts(),
             QStringList{u"Correction values|a \"b\" ü.txt:\nm_left_phi=4\n-------------------------------------\n"_s});
}

void TestCorrectionPrograms::exportOfTwoRecordings()
{
    addRecording(u"a.txt"_s);
    addRecording(u"b.txt"_s);
    writeProgram(u"subsequent-gaze-correction.exe"_s, "cp \"$3\" \"$4\"\n"); // the ending is tried, too
    addSetEllipse();
    m_answers->names = {QString(), m_files->path(u"b_cor.txt"_s)}; // the first is cancelled
    const QSignalSpy imports(m_control.get(), &CorrectionControl::sigImport);
    click("export_corr_points");
    QCOMPARE(m_answers->asked, (QStringList{u"Save file a.txt_cor.txt"_s, u"Save file b.txt_cor.txt"_s}));
    QCOMPARE(imports.size(), 1);
    QCOMPARE(imports[0][0].toString(), m_files->path(u"b_cor.txt"_s));
}

void TestCorrectionPrograms::theNameOfTheTableIsRefused()
{
    addRecording(u"a.txt"_s);
    addSetEllipse();
    m_answers->names = {m_files->path(u"A.TXT_correction.CSV"_s), QString()};
    click("export_corr_points");
    QCOMPARE(m_messages->texts(),
             QStringList{u"This is the output File please specify a different name!!!|This is the output File please "
                         "specify a different name!!!"_s});
    QCOMPARE(m_answers->asked.size(), 2);
}

void TestCorrectionPrograms::anExaminationThatIsGone()
{
    addRecording(u"a.txt"_s);
    addSetEllipse();
    m_model->examinations().clear();
    m_answers->names = {m_files->path(u"a_cor.txt"_s)};
    click("export_corr_points");
    QCOMPARE(m_messages->texts(),
             QStringList{u"Could not find ini|Could not find ini for "_s + m_files->path(u"a.txt"_s)});
}

void TestCorrectionPrograms::exportWithoutPoints()
{
    addRecording(u"a.txt"_s);
    drawStroke({500, 400}, 50, 40);
    click("export_corr_points");
    QCOMPARE(m_window->told.last(),
             u"The selected ellipses have no points: \"Set points to ellipses\" gives them some"_s);
    QCOMPARE(m_messages->texts(), QStringList());
}

void TestCorrectionPrograms::cancelledQuestions()
{
    addRecording(u"a.txt"_s);
    addSetEllipse();
    m_answers->folderPath.clear();
    click("export_corr_points");
    QCOMPARE(m_answers->asked, QStringList());
}

void TestCorrectionPrograms::aFolderThatCannotBeWritten()
{
    addRecording(u"a.txt"_s);
    writeProgram(u"subsequent-gaze-correction"_s, "exit 0\n");
    addSetEllipse();
    m_answers->names = {u"/no/such/folder/a.txt"_s};
    const QSignalSpy imports(m_control.get(), &CorrectionControl::sigImport);
    click("export_corr_points");
    QCOMPARE(m_messages->texts().size(), 1);
    QVERIFY(m_messages->texts()[0].startsWith(
        u"Correction data export|Could not open/create file: /no/such/folder/a.txt.ini"_s));
    QCOMPARE(imports.size(), 0);
}

void TestCorrectionPrograms::aMissingProgram()
{
    addRecording(u"a.txt"_s);
    addSetEllipse();
    m_answers->names = {m_files->path(u"a_cor.txt"_s)};
    const QSignalSpy imports(m_control.get(), &CorrectionControl::sigImport);
    click("export_corr_points");
    QCOMPARE(m_messages->texts().size(), 1);
    QVERIFY(m_messages->texts()[0].startsWith(u"Correction program|"_s +
                                              m_files->path(u"correctionmodule/subsequent-gaze-correction.exe"_s) +
                                              u" could not be started: "_s));
    QCOMPARE(imports.size(), 0);
}

void TestCorrectionPrograms::aProgramThatFails()
{
    addRecording(u"a.txt"_s);
    writeProgram(u"subsequent-gaze-correction"_s, "echo no eye; echo no model >&2; exit 4\n");
    addSetEllipse();
    m_answers->names = {m_files->path(u"a_cor.txt"_s)};
    const QSignalSpy imports(m_control.get(), &CorrectionControl::sigImport);
    click("export_corr_points");
    QCOMPARE(m_messages->texts(),
             QStringList{u"Correction program|%1 computed nothing: it ended with the error 4.\nno eye\nno model"_s.arg(
                 m_files->path(u"correctionmodule/subsequent-gaze-correction"_s))});
    QCOMPARE(imports.size(), 0);
}

void TestCorrectionPrograms::waitingNoLonger()
{
    addRecording(u"a.txt"_s);
    writeProgram(u"subsequent-gaze-correction"_s, "sleep 1; echo done > \"$4\"\n");
    addSetEllipse();
    m_answers->names = {m_files->path(u"a_cor.txt"_s)};
    const QSignalSpy imports(m_control.get(), &CorrectionControl::sigImport);
    QString label;
    QTimer::singleShot(300, this, [&] {
        auto *dialog = m_control->findChild<QProgressDialog *>();
        QVERIFY(dialog && dialog->isVisible());
        label = dialog->labelText();
        dialog->cancel();
    });
    click("export_corr_points");
    QCOMPARE(label, u"Please wait for external calc ..."_s);
    QCOMPARE(imports.size(), 0);
    QCOMPARE(m_window->told.last(), u"subsequent-gaze-correction goes on; its result is not loaded"_s);
    QTRY_COMPARE(m_files->read(u"a_cor.txt"_s), QByteArray("done\n"));
}

void TestCorrectionPrograms::averaging()
{
    writeProgram(u"gaze-corr-averaging"_s, "echo \"$1|$2|$3\" > \"$3\"\n");
    const QString first = m_files->write(
        u"1.ini"_s, correctionIniText({u"a"_s, u"b"_s, {{10, 20, 30, 40}, u"p.png"_s, u"c.ini"_s}, {}}).toUtf8());
    const QString output = m_files->path(u"mean.txt"_s);
    m_answers->inis = {first, u"2.ini"_s};
    m_answers->names = {output};
    const QSignalSpy imports(m_control.get(), &CorrectionControl::sigImport);
    click("avg2cor");
    QCOMPARE(m_answers->asked,
             (QStringList{u"Select ini file 1"_s, u"Select ini file 2"_s, u"Save correction file "_s}));
    QCOMPARE(m_files->read(u"mean.txt"_s), QString(first + u"|2.ini|"_s + output + u'\n').toUtf8());
    QCOMPARE(imports.size(), 1);
    QCOMPARE(imports[0], (QVariantList{output, 10, 20, 30, 40, u"p.png"_s, u"c.ini"_s}));
}

void TestCorrectionPrograms::averagingCancelled()
{
    click("avg2cor");
    QCOMPARE(m_answers->asked.size(), 1);
    m_answers->inis = {u"1.ini"_s};
    click("avg2cor");
    QCOMPARE(m_answers->asked.size(), 3);
    m_answers->inis = {u"1.ini"_s, u"2.ini"_s};
    click("avg2cor");
    QCOMPARE(m_answers->asked.size(), 6);
    QCOMPARE(m_messages->texts(), QStringList());
}

QTEST_MAIN(TestCorrectionPrograms)
#include "TestCorrectionPrograms.moc"
