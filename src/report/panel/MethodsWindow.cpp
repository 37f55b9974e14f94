// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/panel/MethodsWindow.h"

#include "base/FileReplacement.h"
#include "base/Messages.h"
#include "commands/panel/SaveDialog.h"

#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

QPushButton *button(const QString &name, const QString &text, QWidget *parent)
{
    auto *made = new QPushButton(text, parent); // owned by the parent
    made->setObjectName(name);
    made->setAutoDefault(false);
    return made;
}

} // namespace

MethodsWindow::MethodsWindow(const MethodsRecord &record, QWidget *parent)
    : QDialog(parent)
    , m_record(record)
    , m_choose([this](const QString &proposed) {
        return chooseSaveFile(this, tr("Save methods section"), proposed, tr("Markdown (*.md);;Text (*.txt)"));
    })
    , m_format(new QComboBox(this))
    , m_text(new QPlainTextEdit(this))
{
    setWindowTitle(tr("Methods section"));
    m_format->setObjectName(QStringLiteral("formatComboBox"));
    m_format->addItems({tr("Markdown"), tr("Plain text")});
    m_format->setToolTip(tr("Writes the text anew: what was edited is lost"));
    m_text->setObjectName(QStringLiteral("methodsText"));
    auto *hint =
        new QLabel(tr("What was done, as it stands now. Replace what stands in brackets by what only you know, "
                      "and leave out what your journal does not ask for."),
                   this);
    hint->setWordWrap(true);
    auto *copyButton = button(QStringLiteral("copyButton"), tr("Copy"), this);
    auto *saveButton = button(QStringLiteral("saveButton"), tr("Save..."), this);
    connect(m_format, &QComboBox::activated, this, &MethodsWindow::write);
    connect(copyButton, &QPushButton::clicked, this, &MethodsWindow::copy);
    connect(saveButton, &QPushButton::clicked, this, &MethodsWindow::save);
    auto *buttons = new QHBoxLayout; // owned by the layout
    buttons->addWidget(m_format);
    buttons->addStretch();
    buttons->addWidget(copyButton);
    buttons->addWidget(saveButton);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(hint);
    layout->addWidget(m_text, 1);
    layout->addLayout(buttons);
    constexpr QSize usual(720, 640);
    resize(usual);
    write();
}

QString MethodsWindow::text() const
{
    return m_text->toPlainText();
}

void MethodsWindow::write()
{
    const bool isPlain = m_format->currentIndex() == 1;
    m_text->setPlainText(methodsText(m_record, isPlain ? MethodsFormat::Plain : MethodsFormat::Markdown));
}

void MethodsWindow::copy() const
{
    QGuiApplication::clipboard()->setText(text());
}

void MethodsWindow::save()
{
    const QString extension = m_format->currentIndex() == 1 ? QStringLiteral("txt") : QStringLiteral("md");
    const QString path = m_choose(QStringLiteral("methods.") + extension);
    if (path.isEmpty())
        return;
    if (const std::optional<QString> problem = replaceFile(path, text().toUtf8()))
        messages::warning(windowTitle(), writeFailure(path, *problem));
    else
        messages::information(windowTitle(), tr("Methods section saved to: ") + path);
}
