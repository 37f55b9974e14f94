// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/panel/DataWidget.h"

#include "commands/CommandStack.h"
#include "import/ilmenau/CorrectionIni.h"
#include "settings/SettingsStore.h"

#include "FakeWindow.h"
#include "ImportFiles.h"
#include "TestMessages.h"
#include "TestSettings.h"

#include <QImage>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// Gives prepared answers and keeps what was asked.
struct Answers : IMillimetreQuestions {
    bool useLastSettings() override
    {
        asked << u"last settings"_s;
        return last;
    }
    QString image(const QString &folder) override
    {
        asked << u"image in "_s + folder;
        return imagePath;
    }
    std::optional<int> length(const QString &label, int preset) override
    {
        asked << label + u' ' + QString::number(preset);
        return lengths.isEmpty() ? std::nullopt : std::optional(lengths.takeFirst());
    }
    QString calibration(const QString &folder) override
    {
        asked << u"calibration in "_s + folder;
        return iniPath;
    }
    QStringList recordings(const QString &folder) override
    {
        asked << u"recordings in "_s + folder;
        return paths;
    }
    QString correctionIni(const QString &) override { return correction; }

    bool last = true;
    QString imagePath;
    QList<int> lengths{96, 27};
    QString iniPath;
    QStringList paths;
    QString correction;
    QStringList asked;
};

class TellingWindow : public FakeWindow {
public:
    void addTableRow(const Examination &examination) override { rows << examination.number; }
    void tell(const Notice &notice) override { told << notice.text; }

    QList<int> rows;
    QStringList told;
};

const QByteArray recording = "sits\tLspx\tLspy\tRspx\tRspy\n"
                             "10:00:00.000\t10\t2\t-3\t5\n"
                             "10:00:00.004\t10\t2\t-3\t5\n";

QVariant stored(const char *key)
{
    return SettingsStore().value(u"CorrectionModule/"_s + QLatin1StringView(key));
}

} // namespace

/// The two red buttons of the panel of the files.
class TestMillimetreImport : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void anExamination();
    void askedAnew();
    void lastSettings();
    void anEmptyStore();
    void cancelling_data();
    void cancelling();
    void aPictureThatIsNone();
    void aCalibrationThatIsNotThere();
    void doubtsOfAllFilesInOneBox();
    void missingAndUnreadable();
    void itCannotBeUndone();
    void correctedPair();
    void aPairWithDoubtsIsOneBox();
    void anIncompleteIni();
    void aMissingIni();

private:
    void click(const char *name) const
    {
        QTest::mouseClick(m_widget->findChild<QPushButton *>(QLatin1StringView(name)), Qt::LeftButton);
    }
    void useStored() const
    {
        for (const auto &[key, value] : {std::pair("width", 960), {"height", 1080}, {"widthmm", 96}, {"heightmm", 27}})
            SettingsStore().setValue(u"CorrectionModule/"_s + QLatin1StringView(key), value);
        SettingsStore().setValue(u"CorrectionModule/imgpath"_s, m_files->path(u"bild.png"_s));
        SettingsStore().setValue(u"CorrectionModule/inipath"_s, m_files->path(u"cal.ini"_s));
    }
    const QList<Examination> &examinations() const { return std::as_const(*m_model).examinations(); }

    std::unique_ptr<TemporarySettings> m_settings;
    std::unique_ptr<ImportFiles> m_files;
    std::unique_ptr<RecordedMessages> m_messages;
    std::unique_ptr<DataModel> m_model;
    std::unique_ptr<TellingWindow> m_window;
    std::unique_ptr<DataWidget> m_widget;
    Answers *m_answers = nullptr;
};

void TestMillimetreImport::init()
{
    m_files = std::make_unique<ImportFiles>();
    m_messages = std::make_unique<RecordedMessages>();
    m_settings = std::make_unique<TemporarySettings>();
    m_model = std::make_unique<DataModel>();
    m_window = std::make_unique<TellingWindow>();
    m_widget = std::make_unique<DataWidget>();
    m_widget->setModel(m_model.get());
    m_widget->setMainWindow(m_window.get());
    auto answers = std::make_unique<Answers>();
    m_answers = answers.get();
    m_widget->setMillimetreQuestions(std::move(answers));
    QImage picture(960, 1080, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QVERIFY(picture.save(m_files->path(u"bild.png"_s)));
    m_files->write(u"cal.ini"_s, "LEye_correction_phi=1\n");
}

void TestMillimetreImport::cleanup()
{
    m_messages.reset();
    CommandStack::instance().clear();
    m_settings.reset();
}

void TestMillimetreImport::anExamination()
{
    useStored();
    m_answers->paths = {m_files->write(u"p01.txt"_s, recording)};
    const QSignalSpy loaded(m_widget.get(), &DataWidget::sigLoadTimeline);
    click("ilmenau_import");
    QCOMPARE(examinations().size(), 1);
    const Examination &examination = examinations().constFirst();
    QCOMPARE(examination.baseName, m_files->path(u"p01.txt"_s));
    QCOMPARE(examination.subjectId, u"ilmenau_import: p01.txt"_s);
    QCOMPARE(examination.imagePath, m_files->path(u"bild.png"_s));
    QCOMPARE(examination.iniPath, m_files->path(u"cal.ini"_s));
    QCOMPARE(examination.missingImagePath, QString());
    QVERIFY(examination.image);
    QCOMPARE(examination.image->path, m_files->path(u"bild.png"_s));
    QCOMPARE(examination.image->name, u"bild"_s);
    QCOMPARE(examination.properties, (QHash<QString, QString>{{u"group"_s, u"None"_s},
                                                              {u"image"_s, u"bild.png"_s},
                                                              {u"Color"_s, u"4294901760"_s},
                                                              {u"subjectID"_s, u"ilmenau_import: p01.txt"_s}}));
    QVERIFY(!examination.isLeftDominant());
    QVERIFY(examination.checked && examination.importOk);
    QCOMPARE(examination.number, 1);
    QCOMPARE(examination.imageWidthPx, 960.0F);
    QCOMPARE(examination.imageHeightPx, 1080.0F);
    QCOMPARE(examination.imageWidthMm, 96.0F);
    QCOMPARE(examination.imageHeightMm, 27.0F);
    QCOMPARE(examination.leftEye.gazePoints[1], GazePoint(4, 580, 1000, 2, 2, 1));
    QCOMPARE(std::as_const(*m_model).allExaminations().size(), 1);
    QCOMPARE(m_window->rows, QList<int>{1});
    QCOMPARE(loaded.size(), 1);
    QCOMPARE(m_messages->texts(), QStringList());
    QCOMPARE(stored("lastbasepath").toString(), QFileInfo(m_files->path(u"p01.txt"_s)).path());
}

void TestMillimetreImport::askedAnew()
{
    SettingsStore().setValue(u"CorrectionModule/lastbasepath"_s, u"/before"_s);
    SettingsStore().setValue(u"CorrectionModule/widthmm"_s, 11);
    m_answers->last = false;
    m_answers->imagePath = m_files->path(u"bild.png"_s);
    m_answers->iniPath = m_files->path(u"cal.ini"_s);
    m_answers->paths = {m_files->write(u"p01.txt"_s, recording)};
    const QString folder = QFileInfo(m_answers->imagePath).path();
    click("ilmenau_import");
    QCOMPARE(m_answers->asked,
             (QStringList{u"last settings"_s, u"image in /before"_s, u"Input Width in mm 11"_s,
                          u"Input Height in mm 0"_s, u"calibration in "_s + folder, u"recordings in "_s + folder}));
    QCOMPARE(stored("width").toInt(), 960);
    QCOMPARE(stored("height").toInt(), 1080);
    QCOMPARE(stored("widthmm").toInt(), 96);
    QCOMPARE(stored("heightmm").toInt(), 27);
    QCOMPARE(stored("imgpath").toString(), m_answers->imagePath);
    QCOMPARE(stored("inipath").toString(), m_answers->iniPath);
    QCOMPARE(examinations().size(), 1);
}

void TestMillimetreImport::lastSettings()
{
    useStored();
    m_answers->paths = {m_files->write(u"b.txt"_s, recording), m_files->write(u"a.txt"_s, recording)};
    click("ilmenau_import");
    QCOMPARE(m_answers->asked.size(), 2); // whether, and which recordings
    QCOMPARE(examinations().size(), 2);
    QCOMPARE(examinations()[0].subjectId, u"ilmenau_import: b.txt"_s);
    QCOMPARE(examinations()[1].number, 2);
    QCOMPARE(examinations()[0].image, examinations()[1].image);
}

void TestMillimetreImport::anEmptyStore()
{
    click("ilmenau_import");
    QCOMPARE(m_messages->texts(), QStringList{u"Invalid values|Invalid values"_s});
    QVERIFY(examinations().isEmpty());
}

void TestMillimetreImport::cancelling_data()
{
    QTest::addColumn<int>("answers"); // that are given before the user cancels
    QTest::newRow("at the picture") << 0;
    QTest::newRow("at the width") << 1;
    QTest::newRow("at the height") << 2;
    QTest::newRow("at the calibration") << 3;
    QTest::newRow("at the recordings") << 4;
}

void TestMillimetreImport::cancelling()
{
    QFETCH(int, answers);
    m_answers->last = false;
    m_answers->imagePath = answers > 0 ? m_files->path(u"bild.png"_s) : QString();
    m_answers->lengths = QList<int>{96, 27}.first(std::clamp(answers - 1, 0, 2));
    m_answers->iniPath = answers > 3 ? m_files->path(u"cal.ini"_s) : QString();
    const QSignalSpy loaded(m_widget.get(), &DataWidget::sigLoadTimeline);
    click("ilmenau_import");
    QCOMPARE(m_answers->asked.size(), answers + 2);
    QVERIFY(examinations().isEmpty());
    QCOMPARE(loaded.size(), 0);
    QCOMPARE(m_messages->texts(), QStringList());
}

void TestMillimetreImport::aPictureThatIsNone()
{
    m_answers->last = false;
    m_answers->imagePath = m_files->write(u"bad.png"_s, "no picture");
    m_answers->iniPath = m_files->path(u"cal.ini"_s);
    click("ilmenau_import");
    QCOMPARE(stored("width").toInt(), 0);
    QCOMPARE(m_answers->asked.size(), 4); // the sizes are asked for; then it ends
    QCOMPARE(m_window->told, QStringList{u"The picture cannot be read: bad.png"_s});
}

void TestMillimetreImport::aCalibrationThatIsNotThere()
{
    m_answers->last = false;
    m_answers->imagePath = m_files->path(u"bild.png"_s);
    m_answers->iniPath = u"/no/such.ini"_s;
    click("ilmenau_import");
    QCOMPARE(m_answers->asked.size(), 5);
    QCOMPARE(stored("inipath").toString(), QString());
}

void TestMillimetreImport::doubtsOfAllFilesInOneBox()
{
    useStored();
    m_answers->paths = {m_files->write(u"a.txt"_s, recording + "short\n"), m_files->write(u"b.txt"_s, recording),
                        m_files->write(u"c.txt"_s, "x\ty\n1\t2\n")};
    click("ilmenau_import");
    QCOMPARE(examinations().size(), 3);
    QVERIFY(examinations()[2].leftEye.gazePoints.isEmpty());
    QCOMPARE(m_messages->texts().size(), 1);
    const QStringList lines = m_messages->texts().constFirst().split(u'\n');
    QCOMPARE(lines.size(), 3);
    QCOMPARE(lines[0], u"Import|Some recordings hold what is doubtful. They were loaded all the same."_s);
    QVERIFY(lines[1].startsWith(u"a.txt: lines with another number of fields than the header, left out: 1; the "
                                "first is line 4."_s));
    QVERIFY(lines[2].startsWith(u"c.txt: no sample was read, since the first line lacks the columns sits"_s));
}

void TestMillimetreImport::missingAndUnreadable()
{
    useStored();
    QVERIFY(QDir().mkdir(m_files->path(u"folder.txt"_s)));
    m_answers->paths = {u"/no/such.txt"_s, m_files->path(u"folder.txt"_s), m_files->write(u"a.txt"_s, recording)};
    click("ilmenau_import");
    QCOMPARE(examinations().size(), 1);
    QCOMPARE(m_messages->texts().size(), 1);
    QVERIFY(m_messages->texts().constFirst().startsWith(u"Can not open file|File could not be opened:"_s +
                                                        m_files->path(u"folder.txt"_s)));
    QCOMPARE(m_window->told, QStringList{u"No such file: such.txt"_s});
}

void TestMillimetreImport::itCannotBeUndone()
{
    useStored();
    m_answers->paths = {m_files->write(u"a.txt"_s, recording)};
    const int before = CommandStack::instance().count();
    click("ilmenau_import");
    QCOMPARE(CommandStack::instance().count(), before);
}

void TestMillimetreImport::correctedPair()
{
    const QString lines = ellipseHeader() + u"\nEllipse 1:time(ms):0-4;1;2;3;4;5;6;7;8;9;10\n"_s;
    const CorrectionIni ini{m_files->write(u"a.txt"_s, recording),
                            m_files->write(u"a_cor.txt"_s, recording),
                            {{960, 1080, 96, 27}, u"p.png"_s, u"cal.ini"_s},
                            lines.split(u'\n', Qt::SkipEmptyParts)};
    m_answers->correction = m_files->write(u"a_cor.txt.ini"_s, correctionIniText(ini).toUtf8());
    const QSignalSpy loaded(m_widget.get(), &DataWidget::sigLoadTimeline);
    const QSignalSpy ellipses(m_widget.get(), &DataWidget::sigAddEllipses);
    click("ilmenau_ini_import");
    QCOMPARE(examinations().size(), 2);
    QCOMPARE(examinations()[0].subjectId, u"ilmenau_import: a.txt"_s);
    QCOMPARE(examinations()[1].subjectId, u"ilmenau_import: a_cor.txt"_s);
    QCOMPARE(examinations()[1].imageHeightMm, 27.0F);
    QCOMPARE(loaded.size(), 2);
    QCOMPARE(ellipses.size(), 1);
    QCOMPARE(ellipses[0][0].value<QList<QString>>(), ini.ellipseLines);
}

void TestMillimetreImport::aPairWithDoubtsIsOneBox()
{
    const CorrectionIni ini{m_files->write(u"a.txt"_s, recording + "x\n"),
                            m_files->write(u"b.txt"_s, recording + "x\n"),
                            {{960, 1080, 96, 27}, u"p.png"_s, u"cal.ini"_s},
                            {}};
    m_answers->correction = m_files->write(u"c.ini"_s, correctionIniText(ini).toUtf8());
    const QSignalSpy ellipses(m_widget.get(), &DataWidget::sigAddEllipses);
    click("ilmenau_ini_import");
    QCOMPARE(m_messages->texts().size(), 1);
    QVERIFY(m_messages->texts().constFirst().contains(u"a.txt: "_s));
    QVERIFY(m_messages->texts().constFirst().contains(u"b.txt: "_s));
    QCOMPARE(ellipses.size(), 1); // an empty list is sent all the same
    QVERIFY(ellipses[0][0].value<QList<QString>>().isEmpty());
}

void TestMillimetreImport::anIncompleteIni()
{
    m_answers->correction = m_files->write(u"c.ini"_s, "#EXAMINATION:a.txt\n#ALL-ELLIPSES-START\n1\n");
    const QSignalSpy ellipses(m_widget.get(), &DataWidget::sigAddEllipses);
    click("ilmenau_ini_import");
    QVERIFY(examinations().isEmpty());
    QCOMPARE(ellipses.size(), 1);
    QCOMPARE(m_window->told, QStringList{u"No recording was loaded: c.ini lacks entries"_s});
}

void TestMillimetreImport::aMissingIni()
{
    m_answers->correction = u"/no/such.ini"_s;
    const QSignalSpy ellipses(m_widget.get(), &DataWidget::sigAddEllipses);
    click("ilmenau_ini_import");
    QCOMPARE(ellipses.size(), 0);
    QVERIFY(m_messages->texts().constFirst().startsWith(u"Can not open file|File could not be opened:/no/such.ini"_s));
}

QTEST_MAIN(TestMillimetreImport)
#include "TestMillimetreImport.moc"
