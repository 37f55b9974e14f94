// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/AboutBox.h"

#include "base/Release.h"
#include "settings/FirstStart.h"

#include <QCoreApplication>
#include <QDialog>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

namespace {

QString link(const QString &path, const QString &text)
{
    return QStringLiteral("<a href=\"%1\">%2</a>").arg(QUrl::fromLocalFile(path).toString(), text.toHtmlEscaped());
}

QString paragraph(const QString &caption, const QString &text)
{
    return QStringLiteral("<p><b>%1</b><br>%2</p>").arg(caption, text);
}

/// The lines as they are; of a long file the last ones, which are the news.
void showLines(QTextBrowser &page, const QString &path)
{
    constexpr qint64 mostBytes = qint64{1024} * 1024;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        page.setPlainText(QStringLiteral("%1: %2").arg(path, file.errorString()));
        return;
    }
    if (file.size() > mostBytes) {
        file.seek(file.size() - mostBytes);
        file.readLine(); // the end of one
    }
    page.setPlainText(QString::fromUtf8(file.read(mostBytes)));
    page.setLineWrapMode(QTextEdit::NoWrap);
    page.moveCursor(QTextCursor::End);
}

QString documentationFile(const QString &name)
{
    return findDocumentation(name, QCoreApplication::applicationDirPath());
}

} // namespace

QString aboutText()
{
    const QString release = releaseText();
    const QString log = QFileInfo(QStringLiteral("Vistrum2013.log")).absoluteFilePath();
    const QString validation = documentationFile(QStringLiteral("docs/validation.md"));
    QString text =
        QStringLiteral("<h3>Vistrum %1</h3><p>Gaze analysis: fixations, clusters, drawings and tables of eye "
                       "tracking recordings. File formats and settings of version %2.</p>")
            .arg(release, QCoreApplication::applicationVersion());
    text += paragraph(QStringLiteral("Licence"),
                      QStringLiteral("GPL-3.0-or-later. The program comes with absolutely no warranty. It stands on Qt "
                                     "(LGPL-3.0) and OpenCV (Apache-2.0)."));
    text += paragraph(
        QStringLiteral("How to cite"),
        QStringLiteral("Vistrum, version %1 (computer program). Please name the detector and its parameters, too: they "
                       "stand below each exported table.")
            .arg(release));
    text += paragraph(QStringLiteral("How good are the results?"),
                      validation.isEmpty() ? QStringLiteral("docs/validation.md in the sources tells.")
                                           : link(validation, QStringLiteral("Comparison with human coders")));
    text += paragraph(QStringLiteral("Log file"), link(log, log));
    return text;
}

void showAbout(QWidget *parent)
{
    auto *box =
        new QMessageBox(QMessageBox::NoIcon, QStringLiteral("About Vistrum"), aboutText(), QMessageBox::Ok, parent);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::RichText);
    box->setTextInteractionFlags(Qt::TextBrowserInteraction);
    if (auto *label = box->findChild<QLabel *>(QStringLiteral("qt_msgbox_label"))) {
        label->setOpenExternalLinks(false);
        QObject::connect(label, &QLabel::linkActivated, box,
                         [box](const QString &target) { showPage(box, QUrl(target).toLocalFile()); });
    }
    box->open();
}

void showPage(QWidget *parent, const QString &path)
{
    auto *window = new QDialog(parent);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->setWindowTitle(QFileInfo(path).fileName());
    auto *page = new QTextBrowser(window);
    page->setOpenExternalLinks(true); // those into the web; the others are pages
    if (path.endsWith(QStringLiteral(".md")))
        page->setSource(QUrl::fromLocalFile(path), QTextDocument::MarkdownResource);
    else
        showLines(*page, path);
    auto *layout = new QVBoxLayout(window);
    layout->addWidget(page);
    window->resize(820, 640);
    window->show();
}
