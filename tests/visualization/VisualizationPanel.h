// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "TestPanel.h"
#include "visualization/modes/VisualizationKinds.h"
#include "visualization/panel/VisualizationWidget.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QSlider>

enum class PanelKind { GazePoints, Fixations, Clusters, Saccades };

/// A test that opens the drawing panel of a kind of data. The store begins with the values of the construction.
class VisualizationPanelTest : public PanelTest<VisualizationWidget> {
protected:
    void openPanel(PanelKind kind, int mode = 0)
    {
        closePanel();
        openSettings();
        const VisualizationKind &row = visualizationKinds()[static_cast<std::size_t>(kind)];
        m_path = row.stored().settingsPath;
        storeInitialValues();
        setStored("/VisualizationMode", mode);
        PanelTest::openPanel();
        m_panel->setKind(row);
        m_panel->setLog(&log().log());
        m_panel->sltUpdateSettings();
        showPanel();
    }

    VisualizationWidget &panel() const { return *m_panel; }
    const VisualizationParameters &record() const { return m_panel->parameters(); }

    /// At the left, where a wide check box has its box.
    void click(const char *name) const
    {
        auto *button = child<QAbstractButton>(name);
        QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
    }

    QString stored(const char *key) const { return SettingsStore().value(m_path + QLatin1StringView(key)).toString(); }
    void setStored(const char *key, const QVariant &value) const
    {
        SettingsStore().setValue(m_path + QLatin1StringView(key), value);
    }

    /// What the record has under a key, in the form of the store.
    QString recorded(const char *key) const
    {
        QString value;
        const auto read = [&](const auto &row) {
            if (row.key == QLatin1StringView(key))
                value = toStored(valueIn(record(), row)).toString();
        };
        std::apply([&](const auto &...row) { (read(row), ...); }, rows::visualization);
        return value;
    }

    QStringList takeLogLines() const { return log().takeLines(); }

    /// The value of a control as it is shown: number, "true" or "false", or index.
    static QString shown(const QWidget *control)
    {
        if (const auto *box = qobject_cast<const QSpinBox *>(control))
            return QString::number(box->value());
        if (const auto *box = qobject_cast<const QDoubleSpinBox *>(control))
            return QString::number(box->value());
        if (const auto *box = qobject_cast<const QCheckBox *>(control))
            return QVariant(box->isChecked()).toString();
        if (const auto *slider = qobject_cast<const QSlider *>(control))
            return QString::number(slider->value());
        return QString::number(qobject_cast<const QComboBox *>(control)->currentIndex());
    }

    /// One step of a control by the user: a click on a check box, else the key.
    static void step(QWidget *control, Qt::Key key)
    {
        if (qobject_cast<QCheckBox *>(control))
            QTest::mouseClick(control, Qt::LeftButton, {}, QPoint(8, control->height() / 2));
        else
            QTest::keyClick(control, key);
    }

private:
    /// In one writing of the file.
    void storeInitialValues() const
    {
        SettingsStore store;
        const auto write = [&](const auto &row) { store.setValue(m_path + row.key, storedForm(row, row.initial)); };
        std::apply([&](const auto &...row) { (write(row), ...); }, rows::visualization);
    }

    QString m_path;
};
