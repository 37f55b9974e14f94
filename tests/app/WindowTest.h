// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/PictureControl.h"
#include "app/Vistrum.h"
#include "commands/CommandStack.h"
#include "import/panel/DataWidget.h"
#include "settings/FirstStart.h"
#include "table/panel/filterDialog.h"
#include "TestMessages.h"
#include "TestSettings.h"

#include <QAbstractButton>
#include <QDir>
#include <QFormLayout>
#include <QGraphicsView>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

/// Recordings of the example study, in the order of their names.
inline QStringList exampleRecordings()
{
    const QDir study(QStringLiteral(VISTRUM_SOURCE_DIR "/examples/study"));
    QStringList paths;
    for (const QString &name : study.entryList({QStringLiteral("*.data")}, QDir::Files, QDir::Name))
        paths << study.filePath(name);
    return paths;
}

/// A test that drives the window as a user does; working directory, store and undo stack begin anew with each window.
class WindowTest : public QObject {
protected:
    void openWindow()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(m_folder->isValid());
        QDir::setCurrent(m_folder->path());
        m_settings = std::make_unique<TemporarySettings>();
        m_messages = std::make_unique<RecordedMessages>();
        applyFactorySettings(QStringLiteral(VISTRUM_SOURCE_DIR "/data/factory_settings.ini"), QString());
        CommandStack::instance().clear();
        m_window = std::make_unique<Vistrum>();
        find<DataWidget>("Data_Widget")->setRecordingChooser([](const QString &) { return exampleRecordings(); });
        m_window->resize(1600, 900);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
        m_window->picture().sltFitToScreen();
    }

    void closeWindow()
    {
        CommandStack::instance().clear(); // its commands refer to the window
        m_window.reset();
        m_messages.reset();
        QDir::setCurrent(QDir::rootPath());
        m_settings.reset();
    }

    template <class Widget>
    Widget *find(const char *name) const
    {
        auto *widget = m_window->findChild<Widget *>(QLatin1StringView(name));
        Q_ASSERT(widget);
        return widget;
    }
    template <class Widget>
    Widget *find(const char *panel, const char *name) const
    {
        auto *widget = find<QWidget>(panel)->template findChild<Widget *>(QLatin1StringView(name));
        Q_ASSERT(widget);
        return widget;
    }
    void click(const char *button) const { QTest::mouseClick(find<QAbstractButton>(button), Qt::LeftButton); }
    void showTab(const char *page) const { find<QTabWidget>("tabWidget")->setCurrentWidget(find<QWidget>(page)); }

    void importExamples() const
    {
        showTab("tab_1");
        click("SM_addButton");
        click("SM_importButton");
    }

    /// Types the value into the line of this label in the filter dialog.
    void filterBy(const QString &label, const QString &value) const
    {
        click("filterButton");
        auto *dialog = m_window->findChild<filterDialog *>();
        QVERIFY(dialog);
        QVERIFY(QTest::qWaitForWindowExposed(dialog));
        const auto *form = dialog->findChild<QFormLayout *>();
        for (int row = 0; row < form->rowCount(); ++row) {
            const auto *caption = qobject_cast<QLabel *>(form->itemAt(row, QFormLayout::LabelRole)->widget());
            if (caption->text() != label)
                continue;
            auto *line = qobject_cast<QLineEdit *>(form->itemAt(row, QFormLayout::FieldRole)->widget());
            line->clear();
            QTest::keyClicks(line, value);
            QTest::keyClick(line, Qt::Key_Return);
        }
        QTRY_VERIFY(!m_window->findChild<filterDialog *>());
    }

    /// What is drawn on the canvas, without the view's zoom.
    QImage picture() const
    {
        QGraphicsScene *scene = find<QGraphicsView>("visualization")->scene();
        QImage image(2560, 1600, QImage::Format_ARGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        scene->render(&painter, QRectF(), QRectF(0, 0, 2560, 1600));
        return image;
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<TemporarySettings> m_settings;
    std::unique_ptr<RecordedMessages> m_messages;
    std::unique_ptr<Vistrum> m_window;
};
