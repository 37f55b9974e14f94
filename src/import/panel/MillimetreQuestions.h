// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

#include <optional>

class QWidget;

/// What the import of recordings in millimetres asks the user. A cancelled question gives nothing.
class IMillimetreQuestions {
public:
    virtual ~IMillimetreQuestions() = default;

    virtual bool useLastSettings() = 0;
    virtual QString image(const QString &folder) = 0;
    /// @param preset  a length in mm.
    virtual std::optional<int> length(const QString &label, int preset) = 0;
    virtual QString calibration(const QString &folder) = 0;
    virtual QStringList recordings(const QString &folder) = 0;
    virtual QString correctionIni(const QString &folder) = 0;
};

/// Asks by dialogs.
class MillimetreDialogs : public IMillimetreQuestions {
public:
    explicit MillimetreDialogs(QWidget *parent) : m_parent(parent) {}

    bool useLastSettings() override;
    QString image(const QString &folder) override;
    std::optional<int> length(const QString &label, int preset) override;
    QString calibration(const QString &folder) override;
    QStringList recordings(const QString &folder) override;
    QString correctionIni(const QString &folder) override;

private:
    QString oneFile(const QString &title, const QString &folder, const QString &filter);

    QWidget *m_parent;
};
