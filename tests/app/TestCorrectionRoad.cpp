// SPDX-License-Identifier: GPL-3.0-or-later
#include "WindowTest.h"

#include "app/controlWidget.h"
#include "import/ilmenau/CorrectionIni.h"
#include "import/panel/CorrectionControl.h"
#include "visualization/panel/Timeline.h"

#include <QCheckBox>
#include <QListWidget>
#include <QMouseEvent>
#include <QPushButton>

#include <cmath>
#include <deque>
#include <numbers>

using namespace Qt::StringLiterals;

namespace {

struct ImportAnswers : IMillimetreQuestions {
    bool useLastSettings() override { return true; }
    QString image(const QString &) override { return {}; }
    std::optional<int> length(const QString &, int) override { return {}; }
    QString calibration(const QString &) override { return {}; }
    QStringList recordings(const QString &) override { return {recording}; }
    QString correctionIni(const QString &) override { return ini; }

    QString recording;
    QString ini;
};

struct PageAnswers : ICorrectionQuestions {
    QString folder() override { return path; }
    QString saveName(const QString &, const QString &) override { return corrected; }
    QString iniFile(const QString &) override { return corrected + u".ini"_s; }
    QColor color(const QColor &) override { return {}; }

    QString path;
    QString corrected;
};

} // namespace

/// Load, stroke, move, set points, export to the example program, reload, quality: in the real window.
class TestCorrectionRoad : public WindowTest {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { closeWindow(); }

    void wholeRoad();
    void aCorrectionIsLoadedAgain();
    void theRightButtonLeavesTheViewAlone();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }
    void write(const QString &name, const QByteArray &bytes) const
    {
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }
    void mouse(QEvent::Type type, QPointF scenePlace, Qt::MouseButton button, Qt::MouseButtons held) const
    {
        auto *view = find<QGraphicsView>("visualization");
        const QPoint place = view->mapFromScene(scenePlace);
        QMouseEvent event(type, place, view->viewport()->mapToGlobal(place), button, held, Qt::NoModifier);
        QCoreApplication::sendEvent(view->viewport(), &event);
    }
    void drawAround(QPointF center, double radius) const
    {
        constexpr int moves = 40;
        mouse(QEvent::MouseButtonPress, center + QPointF(radius, 0), Qt::RightButton, Qt::RightButton);
        for (int i = 0; i <= moves; ++i) {
            const double angle = 2 * std::numbers::pi * i / moves;
            mouse(QEvent::MouseMove, center + radius * QPointF(std::cos(angle), std::sin(angle)), Qt::NoButton,
                  Qt::RightButton);
        }
        mouse(QEvent::MouseButtonRelease, center + QPointF(radius, 0), Qt::RightButton, Qt::NoButton);
    }
    CorrectionControl &page() const { return *find<CorrectionControl>("correction_widget"); }
    void importRecording() const
    {
        showTab("tab_1");
        click("ilmenau_import");
        showTab("tab_4");
    }

    ImportAnswers *m_import = nullptr;
    PageAnswers *m_page = nullptr;
};

void TestCorrectionRoad::init()
{
    openWindow();
    QByteArray recording = "sits\tLspx\tLspy\tRspx\tRspy\n";
    for (int i = 0; i < 100; ++i) // at (700, 400) px: 2 px a mm, from 500 px, and 400 px above the bottom
        recording += "10:00:00." + QByteArray::number(i * 4).rightJustified(3, '0') + "\t100\t200\t100\t200\n";
    write(u"p 01.txt"_s, recording);
    write(u"cal.ini"_s, "m_left_phi=1\n");
    for (const auto &[key, value] : {std::pair("width", 1000), {"height", 800}, {"widthmm", 500}, {"heightmm", 400}})
        SettingsStore().setValue(u"CorrectionModule/"_s + QLatin1StringView(key), value);
    SettingsStore().setValue(u"CorrectionModule/imgpath"_s, path(u"picture.png"_s));
    SettingsStore().setValue(u"CorrectionModule/inipath"_s, path(u"cal.ini"_s));
    auto import = std::make_unique<ImportAnswers>();
    m_import = import.get();
    m_import->recording = path(u"p 01.txt"_s);
    find<DataWidget>("Data_Widget")->setMillimetreQuestions(std::move(import));
    auto answers = std::make_unique<PageAnswers>();
    m_page = answers.get();
    m_page->path = path(QString());
    m_page->corrected = path(u"p 01_cor.txt"_s);
    page().setQuestions(std::move(answers));
    page().setProgramFolder(QFileInfo(QStringLiteral(CORRECTION_PROGRAM)).path());
}

void TestCorrectionRoad::wholeRoad()
{
    importRecording();
    QCOMPARE(m_window->model().examinations().size(), 1);
    QCOMPARE(find<Timeline>("timeline_widget")->end(), 396);
    find<QCheckBox>("use_correction")->click();
    drawAround({700, 400}, 60);
    QCOMPARE(find<QListWidget>("ellipses_list")->count(), 1);
    const QImage before = picture();
    QVERIFY(before.pixelColor(640, 400).green() > 150); // the left end of the ellipse
    QVERIFY(before.pixelColor(740, 500).blue() > 150);  // of the corrected one, which lies 100 px beside and below

    const QPointF corrected(page().pairs()[0].corrected.centerX, page().pairs()[0].corrected.centerY);
    mouse(QEvent::MouseButtonPress, corrected, Qt::LeftButton, Qt::LeftButton);
    mouse(QEvent::MouseMove, corrected + QPointF(-130, -60), Qt::NoButton, Qt::LeftButton);
    mouse(QEvent::MouseButtonRelease, corrected + QPointF(-130, -60), Qt::LeftButton, Qt::NoButton);
    QTRY_VERIFY(page().pairs()[0].corrected.centerX < corrected.x() - 100);
    click("set_ellipses");
    const EllipsePair pair = page().pairs()[0];
    QCOMPARE(pair.original.points.size(), 200); // both eyes
    QVERIFY(picture().pixelColor(700, 400) == QColor(255, 0, 0));

    click("export_corr_points");
    QCOMPARE(m_window->model().examinations().size(), 2);
    const GazePoint moved = m_window->model().examinations()[1].leftEye.gazePoints[0];
    QVERIFY(std::abs(moved.x - 700 - (pair.corrected.centerX - pair.original.centerX)) < 0.01);
    QVERIFY(std::abs(moved.y - 400 - (pair.corrected.centerY - pair.original.centerY)) < 0.01);
    QCOMPARE(m_messages->texts(),
             QStringList{u"Correction values|p 01.txt:\nm_left_phi=1\n-------------------------------------\n"_s});

    click("calc_corr_value");
    const double distance = std::hypot(moved.x - 700, moved.y - 400);
    QVERIFY(m_messages->texts().last().startsWith(
        u"Quality meassure|Quality value (left):%1\n Amount of equal timestamps (left):100\n"_s.arg(distance, 0, 'g',
                                                                                                    6)));
    click("avg2cor"); // of the correction with itself
    QCOMPARE(m_window->model().examinations().size(), 3);
    QCOMPARE(m_window->model().examinations()[2].leftEye.gazePoints,
             m_window->model().examinations()[1].leftEye.gazePoints);
}

void TestCorrectionRoad::aCorrectionIsLoadedAgain()
{
    importRecording();
    find<QCheckBox>("use_correction")->click();
    drawAround({700, 400}, 60);
    click("set_ellipses");
    click("export_corr_points");
    const EllipsePair before = page().pairs()[0];
    m_import->ini = m_page->corrected + u".ini"_s;
    showTab("tab_1");
    click("ilmenau_ini_import");
    QCOMPARE(m_window->model().examinations().size(), 4);
    QCOMPARE(find<QListWidget>("ellipses_list")->count(), 2);
    QCOMPARE(find<QListWidget>("ellipses_list")->item(1)->text(), u"Ellipse 1:time(ms):0-396"_s);
    QVERIFY(std::abs(page().pairs()[1].corrected.centerX - before.corrected.centerX) < 0.001);
}

void TestCorrectionRoad::theRightButtonLeavesTheViewAlone()
{
    importRecording();
    auto *view = find<QGraphicsView>("visualization");
    view->scale(4, 4); // so that there is something to pan
    const QPointF center = view->mapToScene(view->viewport()->rect().center());
    drawAround(center, 40);
    QCOMPARE(view->mapToScene(view->viewport()->rect().center()), center);
    QCOMPARE(find<QListWidget>("ellipses_list")->count(), 1);
    mouse(QEvent::MouseButtonPress, center, Qt::LeftButton, Qt::LeftButton);
    mouse(QEvent::MouseMove, center - QPointF(30, 20), Qt::NoButton, Qt::LeftButton);
    mouse(QEvent::MouseButtonRelease, center, Qt::LeftButton, Qt::NoButton);
    QVERIFY(view->mapToScene(view->viewport()->rect().center()) != center); // the left one still pans
    QCOMPARE(find<QListWidget>("ellipses_list")->count(), 1);
}

QTEST_MAIN(TestCorrectionRoad)
#include "TestCorrectionRoad.moc"
