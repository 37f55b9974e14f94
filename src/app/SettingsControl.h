// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "commands/IMainWindow.h"

#include <QObject>

class Log;
class QWidget;

/// Settings as a file, and back to those of the delivery.
class SettingsControl : public QObject {
    Q_OBJECT
public:
    /// Both outlive this.
    /// @param window  parent of dialogs.
    SettingsControl(QWidget &window, const Log &log) : m_window(window), m_log(log) {}

public Q_SLOTS:
    /// Asks for a file and saves the settings there.
    void sltSaveRegistry();
    /// Asks for a file of settings and takes them over; a file that holds none is told.
    void sltImportRegistry();
    void sltLoadDefaultSettings();
    /// Asks first.
    void sltResetSettings();

Q_SIGNALS:
    /// The store may have changed: panels show it.
    void sigUpdateSettings();
    /// For the status bar.
    void told(const Notice &notice);

private:
    void save(const QString &path);
    bool load(const QString &path) const;

    QWidget &m_window;
    const Log &m_log;
};
