#include "import/panel/CorrectionControl.h"

#include "import/ilmenau/CorrectionIni.h"
#include "import/scene/interactiv_eli.h"
#include "import/scene/pixelitem.h"
#include "import/scene/QGraphicSceneOverlay.h"

#include "import/FakeWindow.h"
#include "import/ImportFiles.h"
#include "TestMessages.h"
#include "TestSettings.h"

#include <QCheckBox>
#include <QDir>
#include <QGraphicsView>
#include <QListWidget>
#include <QProgressDialog>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>
#include <QTextBrowser>
#include <QTimer>

#include <cmath>
#include <deque>
#include <numbers>

using namespace Qt::StringLiterals;

namespace {

struct Answers : ICorrectionQuestions {
    QString folder() override { return folderPath; }
    QString saveName(const QString &title, const QString &proposal) override
    {
        asked << title + u' ' + QFileInfo(proposal).fileName();
        const QString name = names.empty() ? QString() : names.front();
        if (!names.empty())
            names.pop_front();
        return name;
    }
    QString iniFile(const QString &title) override
    {
        asked << title;
        const QString name = inis.empty() ? QString() : inis.front();
        if (!inis.empty())
            inis.pop_front();
        return name;
    }
    QColor color(const QColor &initial) override
    {
        asked << initial.name();
        return chosen;
    }

    QString folderPath;
    std::deque<QString> names;
    std::deque<QString> inis;
    QColor chosen;
    QStringList asked;
};

class TellingWindow : public FakeWindow {
public:
    void tell(const Notice &notice) override { told << notice.text; }

    QStringList told;
};

} // namespace

/// The page of gaze correction with a scene and a view of its own.
class TestCorrectionControl : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void form();
    void nothingDrawnYet();
    void aStrokeMakesAnEllipse();
    void aShortStrokeMakesNone();
    void theLeftButtonDrawsNothing();
    void removing();
    void settingPoints();
    void settingWithoutSelection();
    void rowsOfAnIni();
    void itemsInTheScene();
    void draggingAnEllipse();
    void immediateChanges();
    void colours();
    void quality_data();
    void quality();
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

private:
    template <class Widget>
    Widget *child(const char *name) const
    {
        return m_control->findChild<Widget *>(QLatin1StringView(name));
    }
    void click(const char *name) const { QTest::mouseClick(child<QPushButton>(name), Qt::LeftButton); }
    QListWidget &list() const { return *child<QListWidget>("ellipses_list"); }
    /// Draws around a place of the scene.
    void drawStroke(QPointF center, double radius, int moves, Qt::MouseButton button = Qt::RightButton) const;
    void mouse(QEvent::Type type, QPointF scenePlace, Qt::MouseButton button, Qt::MouseButtons held) const;
    void addRecording(const QString &name) const;
    /// An ellipse around the points of the recordings, which are at (500, 400), selected and with its points.
    void addSetEllipse() const
    {
        drawStroke({500, 400}, 50, 40);
        click("set_ellipses");
    }
    void writeProgram(const QString &name, const QByteArray &lines) const
    {
        QFile file(QDir(m_files->path(u"correctionmodule"_s)).filePath(name));
        QDir().mkpath(QFileInfo(file).path());
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("#!/bin/sh\n" + lines) > 0);
        file.close();
        file.setPermissions(file.permissions() | QFile::ExeOwner);
    }
    /// Items of a kind; the scene holds them from back to front.
    template <class Item>
    QList<Item *> items() const
    {
        QList<Item *> found;
        for (QGraphicsItem *item : m_scene->items(Qt::AscendingOrder)) {
            if (auto *each = dynamic_cast<Item *>(item))
                found << each;
        }
        return found;
    }

    std::unique_ptr<TemporarySettings> m_settings;
    std::unique_ptr<ImportFiles> m_files;
    std::unique_ptr<RecordedMessages> m_messages;
    std::unique_ptr<DataModel> m_model;
    std::unique_ptr<TellingWindow> m_window;
    std::unique_ptr<QGraphicSceneOverlay> m_scene;
    std::unique_ptr<QGraphicsView> m_view;
    std::unique_ptr<CorrectionControl> m_control;
    Answers *m_answers = nullptr;
};

void TestCorrectionControl::init()
{
    m_settings = std::make_unique<TemporarySettings>();
    m_files = std::make_unique<ImportFiles>();
    m_messages = std::make_unique<RecordedMessages>();
    m_model = std::make_unique<DataModel>();
    m_model->setTimeFrame({0, 1000});
    m_window = std::make_unique<TellingWindow>();
    m_scene = std::make_unique<QGraphicSceneOverlay>(0, 0, 1000, 800);
    m_view = std::make_unique<QGraphicsView>(m_scene.get());
    m_view->resize(1020, 820);
    m_view->setDragMode(QGraphicsView::ScrollHandDrag);
    m_view->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_view.get()));
    m_control = std::make_unique<CorrectionControl>();
    m_control->setModel(m_model.get());
    m_control->setMainWindow(m_window.get());
    m_control->setScene(m_scene.get());
    m_control->setProgramFolder(m_files->path(u"correctionmodule"_s));
    auto answers = std::make_unique<Answers>();
    m_answers = answers.get();
    m_answers->folderPath = m_files->path(QString());
    m_control->setQuestions(std::move(answers));
    connect(m_scene.get(), &QGraphicSceneOverlay::sigEllipsesdone, m_control.get(), &CorrectionControl::sltAddEllipsis);
    connect(m_control.get(), &CorrectionControl::sigGraphicsParametersChanged, m_scene.get(), [this] {
        m_scene->clear();
        if (m_control->isUsed())
            addCorrectionItems(*m_scene, m_control->overlay());
    });
}

void TestCorrectionControl::cleanup()
{
    m_control.reset();
    m_view.reset();
    m_scene.reset();
    m_messages.reset();
    m_settings.reset();
}

void TestCorrectionControl::mouse(QEvent::Type type, QPointF scenePlace, Qt::MouseButton button,
                                  Qt::MouseButtons held) const
{
    const QPoint place = m_view->mapFromScene(scenePlace);
    QMouseEvent event(type, place, m_view->viewport()->mapToGlobal(place), button, held, Qt::NoModifier);
    QCoreApplication::sendEvent(m_view->viewport(), &event);
}

void TestCorrectionControl::drawStroke(QPointF center, double radius, int moves, Qt::MouseButton button) const
{
    const auto at = [&](int i) {
        const double angle = 2 * std::numbers::pi * i / std::max(moves, 1);
        return center + QPointF(radius * std::cos(angle), radius * std::sin(angle));
    };
    mouse(QEvent::MouseButtonPress, at(0), button, button);
    for (int i = 0; i < moves; ++i)
        mouse(QEvent::MouseMove, at(i), Qt::NoButton, button);
    mouse(QEvent::MouseButtonRelease, at(0), button, Qt::NoButton);
}

void TestCorrectionControl::addRecording(const QString &name) const
{
    Examination examination;
    examination.number = int(m_model->examinations().size()) + 1;
    examination.baseName = m_files->write(name, "sits\tLspx\tLspy\tRspx\tRspy\n10:00:00.001\t0\t100\t0\t100\n");
    examination.iniPath = m_files->write(u"cal.ini"_s, "m_left_phi=4\nother=1\n");
    examination.imagePath = u"picture.png"_s;
    examination.imageWidthPx = 1000;
    examination.imageHeightPx = 800;
    examination.imageWidthMm = 500;
    examination.imageHeightMm = 200;
    examination.leftEye.gazePoints = {GazePoint(1, 500, 400, 1, 1, 1), GazePoint(2, 502, 404, 1, 1, 1),
                                      GazePoint(3, 900, 700, 1, 1, 1), GazePoint(4, 500, 400, 1, 1, 0)};
    examination.rightEye = examination.leftEye;
    m_model->examinations() << examination;
}

void TestCorrectionControl::form()
{
    QCOMPARE(child<QCheckBox>("use_correction")->text(), u"Use correction module"_s);
    const auto *size = child<QSpinBox>("spinBox_corr_gp_size");
    QCOMPARE(size->suffix(), u"px"_s);
    QCOMPARE(size->minimum(), 1);
    QCOMPARE(size->maximum(), 50);
    QCOMPARE(size->value(), 5);
    for (const auto &[name, text] : {std::pair("colorgp", "Color GP"),
                                     {"colorel", "Color Ellipse"},
                                     {"colorelcorr", "Color Elipse Correction"},
                                     {"add_elipse", "Add ellipse"},
                                     {"remove_ellipse", "Remove Ellipse"},
                                     {"set_ellipses", "Set points to ellipses"},
                                     {"export_corr_points", "Export Points"},
                                     {"calc_corr_value", "Calculate correction quality"},
                                     {"avg2cor", "Avarage two corrections"}})
        QCOMPARE(child<QPushButton>(name)->text(), QLatin1StringView(text));
    QCOMPARE(child<QPushButton>("colorgp")->styleSheet(), u"background-color:#ff0000"_s);
    QCOMPARE(child<QPushButton>("colorel")->styleSheet(), u"background-color:#00ff00"_s);
    QCOMPARE(child<QPushButton>("colorelcorr")->styleSheet(), u"background-color:#0000ff"_s);
    QVERIFY(!child<QTextBrowser>("textBrowser")->toPlainText().isEmpty());
}

void TestCorrectionControl::nothingDrawnYet()
{
    click("add_elipse");
    QCOMPARE(list().count(), 0);
    QCOMPARE(m_window->told,
             QStringList{u"No ellipse has been drawn yet: draw around points with the right mouse button"_s});
}

void TestCorrectionControl::aStrokeMakesAnEllipse()
{
    drawStroke({500, 400}, 80, 40);
    QCOMPARE(list().count(), 1);
    QCOMPARE(list().item(0)->text(), u"Ellipse 1:time(ms):0-1000"_s);
    QVERIFY(list().item(0)->isSelected());
    const CorrectionEllipse &original = m_control->pairs().constFirst().original;
    QVERIFY(std::abs(original.centerX - 500) < 3 && std::abs(original.centerY - 400) < 3);
    QVERIFY(std::abs(original.width - 160) < 6 && std::abs(original.height - 160) < 6);
    QCOMPARE(m_control->pairs().constFirst().corrected.centerX, original.centerX + 100);
    QCOMPARE(m_control->pairs().constFirst().corrected.centerY, original.centerY + 100);
    click("add_elipse"); // once more
    QCOMPARE(list().count(), 2);
    QCOMPARE(list().item(1)->text(), u"Ellipse 2:time(ms):0-1000"_s);
    QVERIFY(!list().item(0)->isSelected() && list().item(1)->isSelected());
}

void TestCorrectionControl::aShortStrokeMakesNone()
{
    drawStroke({500, 400}, 80, 10);
    QCOMPARE(list().count(), 0);
    QVERIFY(m_scene->lastFit().isEmpty());
    drawStroke({500, 400}, 80, 11);
    QCOMPARE(list().count(), 1);
}

void TestCorrectionControl::theLeftButtonDrawsNothing()
{
    drawStroke({500, 400}, 80, 40, Qt::LeftButton);
    QCOMPARE(list().count(), 0);
    drawStroke({500, 400}, 80, 40); // and takes nothing from the next stroke
    QCOMPARE(list().count(), 1);
}

void TestCorrectionControl::removing()
{
    for (int i = 0; i < 4; ++i)
        drawStroke({300.0 + 100 * i, 400}, 50, 40);
    list().clearSelection();
    click("remove_ellipse");
    QCOMPARE(list().count(), 4);
    list().item(0)->setSelected(true);
    list().item(2)->setSelected(true);
    click("remove_ellipse");
    QCOMPARE(list().count(), 2);
    QCOMPARE(list().item(0)->text(), u"Ellipse 2:time(ms):0-1000"_s);
    QVERIFY(std::abs(m_control->pairs()[0].original.centerX - 400) < 3);
    QVERIFY(std::abs(m_control->pairs()[1].original.centerX - 600) < 3);
    drawStroke({500, 400}, 50, 40);
    QCOMPARE(list().item(2)->text(), u"Ellipse 5:time(ms):0-1000"_s); // the number only grows
}

void TestCorrectionControl::settingPoints()
{
    addRecording(u"a.txt"_s);
    drawStroke({500, 400}, 50, 40);
    m_model->setTimeFrame({1, 1});
    click("set_ellipses");
    QCOMPARE(list().item(0)->text(), u"Ellipse 1:time(ms):1-1"_s);
    QCOMPARE(m_control->pairs()[0].original.points.size(), 2); // one sample, both eyes
    QCOMPARE(m_control->pairs()[0].corrected.points[0].x, 600.0);
    m_model->setTimeFrame({0, 1000});
    click("set_ellipses");
    QCOMPARE(m_control->pairs()[0].original.points.size(), 4);
    QCOMPARE(m_window->told.last(), u"4 points lie in the selected ellipses"_s);
}

void TestCorrectionControl::settingWithoutSelection()
{
    addRecording(u"a.txt"_s);
    drawStroke({500, 400}, 50, 40);
    list().clearSelection();
    m_model->setTimeFrame({5, 6});
    click("set_ellipses");
    QCOMPARE(list().item(0)->text(), u"Ellipse 1:time(ms):0-1000"_s);
    QVERIFY(m_control->pairs()[0].original.points.isEmpty());
}

void TestCorrectionControl::rowsOfAnIni()
{
    m_control->sltAddEllipsesINI(
        {ellipseHeader(), u"first;1;2;3;4;5;6;7;8;9;10"_s, u"too;short"_s, u"second;11;12;13;14;15;16;17;18;19;20"_s});
    QCOMPARE(list().count(), 2);
    QCOMPARE(list().item(0)->text(), u"first"_s);
    QVERIFY(list().item(1)->isSelected());
    QCOMPARE(m_control->pairs()[1].corrected.rotation, 20.0);
    m_control->sltAddEllipsesINI({});
    QCOMPARE(list().count(), 2);
    drawStroke({500, 400}, 50, 40);
    QCOMPARE(list().item(2)->text(), u"Ellipse 3:time(ms):0-1000"_s);
}

void TestCorrectionControl::itemsInTheScene()
{
    addRecording(u"a.txt"_s);
    addSetEllipse();
    QVERIFY(m_scene->items().isEmpty()); // the module is not used
    child<QCheckBox>("use_correction")->click();
    QCOMPARE(items<QGraphicsEllipseItem>().size(), 2);
    QCOMPARE(items<interactiv_eli>().size(), 1);
    QCOMPARE(items<pixelitem>().size(), 4); // two places, and where they belong; both eyes are there at one
    QCOMPARE(items<QGraphicsEllipseItem>()[0]->pen().color(), QColor(0, 255, 0));
    QCOMPARE(items<interactiv_eli>()[0]->pen().color(), QColor(0, 0, 255));
    QCOMPARE(items<interactiv_eli>()[0]->pos().x(), m_control->pairs()[0].corrected.centerX);
    QCOMPARE(items<pixelitem>()[0]->boundingRect().size(), QSizeF(5, 5));
    QVERIFY(items<pixelitem>()[0]->boundingRect().contains(QPointF(500.5, 400.5)));
    list().clearSelection();
    QCOMPARE(items<pixelitem>().size(), 0);
    QCOMPARE(items<QGraphicsEllipseItem>().size(), 2);
}

void TestCorrectionControl::draggingAnEllipse()
{
    addRecording(u"a.txt"_s);
    addSetEllipse();
    child<QCheckBox>("use_correction")->click();
    const CorrectionEllipse before = m_control->pairs()[0].corrected;
    const QPointF grip(before.centerX + 10, before.centerY);
    mouse(QEvent::MouseButtonPress, grip, Qt::LeftButton, Qt::LeftButton);
    mouse(QEvent::MouseMove, grip + QPointF(-50, 30), Qt::NoButton, Qt::LeftButton);
    mouse(QEvent::MouseButtonRelease, grip + QPointF(-50, 30), Qt::LeftButton, Qt::NoButton);
    QTRY_VERIFY(m_control->pairs()[0].corrected.centerX != before.centerX);
    const CorrectionEllipse &after = m_control->pairs()[0].corrected;
    QVERIFY(std::abs(after.centerX - before.centerX + 50) < 1.5);
    QVERIFY(std::abs(after.centerY - before.centerY - 30) < 1.5);
    QVERIFY(std::abs(after.points[0].x - before.points[0].x + 50) < 1.5);
    QCOMPARE(items<interactiv_eli>()[0]->pos().x(), after.centerX); // drawn anew
    drawStroke({after.centerX, after.centerY}, 20, 30); // the right button still draws, over an ellipse, too
    QCOMPARE(list().count(), 2);
}

void TestCorrectionControl::immediateChanges()
{
    const QSignalSpy redraws(m_control.get(), &CorrectionControl::sigGraphicsParametersChanged);
    child<QCheckBox>("use_correction")->click();
    QCOMPARE(redraws.size(), 1);
    child<QSpinBox>("spinBox_corr_gp_size")->setValue(9);
    QCOMPARE(redraws.size(), 2);
    QCOMPARE(m_control->overlay().pointSizePx, 9);
    drawStroke({500, 400}, 50, 40);
    QCOMPARE(redraws.size(), 3);
    list().clearSelection();
    QCOMPARE(redraws.size(), 4);
}

void TestCorrectionControl::colours()
{
    click("colorel"); // the answer is no colour
    QCOMPARE(m_control->overlay().original, QColor(0, 255, 0));
    m_answers->chosen = QColor(1, 2, 3);
    const QSignalSpy redraws(m_control.get(), &CorrectionControl::sigGraphicsParametersChanged);
    click("colorgp");
    click("colorel");
    click("colorelcorr");
    QCOMPARE(m_answers->asked, (QStringList{u"#00ff00"_s, u"#ff0000"_s, u"#00ff00"_s, u"#0000ff"_s}));
    QCOMPARE(redraws.size(), 3);
    QCOMPARE(m_control->overlay().points, QColor(1, 2, 3));
    QCOMPARE(m_control->overlay().corrected, QColor(1, 2, 3));
    QCOMPARE(child<QPushButton>("colorel")->styleSheet(), u"background-color:#010203"_s);
}

void TestCorrectionControl::quality_data()
{
    QTest::addColumn<int>("recordings");
    QTest::addColumn<QString>("box");
    const QString refused = u"Please select only two examinations|Please select only two examinations"_s;
    QTest::newRow("one") << 1 << refused;
    QTest::newRow("three") << 3 << refused;
    QTest::newRow("two")
        << 2
        << u"Quality meassure|Quality value (left):2.5\n Amount of equal timestamps (left):4\n Quality "
           "value (right):0\n Amount of equal timestamps (right):4"_s;
}

void TestCorrectionControl::quality()
{
    QFETCH(int, recordings);
    QFETCH(QString, box);
    for (int i = 0; i < recordings; ++i)
        addRecording(u"%1.txt"_s.arg(i));
    for (GazePoint &point : m_model->examinations().last().leftEye.gazePoints)
        point.y += point.time > 2 ? 0 : 5; // of four samples two
    click("calc_corr_value");
    QCOMPARE(m_messages->texts(), QStringList{box});
}

void TestCorrectionControl::exporting()
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

void TestCorrectionControl::exportOfTwoRecordings()
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

void TestCorrectionControl::theNameOfTheTableIsRefused()
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

void TestCorrectionControl::anExaminationThatIsGone()
{
    addRecording(u"a.txt"_s);
    addSetEllipse();
    m_model->examinations().clear();
    m_answers->names = {m_files->path(u"a_cor.txt"_s)};
    click("export_corr_points");
    QCOMPARE(m_messages->texts(),
             QStringList{u"Could not find ini|Could not find ini for "_s + m_files->path(u"a.txt"_s)});
}

void TestCorrectionControl::exportWithoutPoints()
{
    addRecording(u"a.txt"_s);
    drawStroke({500, 400}, 50, 40);
    click("export_corr_points");
    QCOMPARE(m_window->told.last(),
             u"The selected ellipses have no points: \"Set points to ellipses\" gives them some"_s);
    QCOMPARE(m_messages->texts(), QStringList());
}

void TestCorrectionControl::cancelledQuestions()
{
    addRecording(u"a.txt"_s);
    addSetEllipse();
    m_answers->folderPath.clear();
    click("export_corr_points");
    QCOMPARE(m_answers->asked, QStringList());
}

void TestCorrectionControl::aFolderThatCannotBeWritten()
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

void TestCorrectionControl::aMissingProgram()
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

void TestCorrectionControl::aProgramThatFails()
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

void TestCorrectionControl::waitingNoLonger()
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

void TestCorrectionControl::averaging()
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

void TestCorrectionControl::averagingCancelled()
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

QTEST_MAIN(TestCorrectionControl)
#include "TestCorrectionControl.moc"
