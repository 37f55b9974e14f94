// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

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
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>
#include <QTextBrowser>

#include <cmath>
#include <deque>
#include <numbers>

using namespace Qt::StringLiterals;

/// Gives prepared answers and keeps what was asked.
struct CorrectionAnswers : ICorrectionQuestions {
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

/// Keeps what is told without a box.
class ToldWindow : public FakeWindow {
public:
    void tell(const Notice &notice) override { told << notice.text; }

    QStringList told;
};

/// A test of the page of gaze correction with a scene and a view of its own.
class CorrectionPage : public QObject {
protected:
    void openPage();
    void closePage();
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
    std::unique_ptr<ToldWindow> m_window;
    std::unique_ptr<QGraphicSceneOverlay> m_scene;
    std::unique_ptr<QGraphicsView> m_view;
    std::unique_ptr<CorrectionControl> m_control;
    CorrectionAnswers *m_answers = nullptr;
};

inline void CorrectionPage::openPage()
{
    m_settings = std::make_unique<TemporarySettings>();
    m_files = std::make_unique<ImportFiles>();
    m_messages = std::make_unique<RecordedMessages>();
    m_model = std::make_unique<DataModel>();
    m_model->setTimeFrame({0, 1000});
    m_window = std::make_unique<ToldWindow>();
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
    auto answers = std::make_unique<CorrectionAnswers>();
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

inline void CorrectionPage::closePage()
{
    m_control.reset();
    m_view.reset();
    m_scene.reset();
    m_messages.reset();
    m_settings.reset();
}

inline void CorrectionPage::mouse(QEvent::Type type, QPointF scenePlace, Qt::MouseButton button,
                                  Qt::MouseButtons held) const
{
    const QPoint place = m_view->mapFromScene(scenePlace);
    QMouseEvent event(type, place, m_view->viewport()->mapToGlobal(place), button, held, Qt::NoModifier);
    QCoreApplication::sendEvent(m_view->viewport(), &event);
}

inline void CorrectionPage::drawStroke(QPointF center, double radius, int moves, Qt::MouseButton button) const
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

inline void CorrectionPage::addRecording(const QString &name) const
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
