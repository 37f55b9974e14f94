// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QString>

class QWidget;

/// What the correction page asks the user. A cancelled question gives an empty text or an invalid colour.
class ICorrectionQuestions {
public:
    virtual ~ICorrectionQuestions() = default;

    virtual QString folder() = 0;
    /// @param proposal  path of the file.
    virtual QString saveName(const QString &title, const QString &proposal) = 0;
    virtual QString iniFile(const QString &title) = 0;
    virtual QColor color(const QColor &initial) = 0;
};

/// Asks by dialogs.
class CorrectionDialogs : public ICorrectionQuestions {
public:
    explicit CorrectionDialogs(QWidget *parent) : m_parent(parent) {}

    QString folder() override;
    QString saveName(const QString &title, const QString &proposal) override;
    QString iniFile(const QString &title) override;
    QColor color(const QColor &initial) override;

private:
    QWidget *m_parent;
};
