// SPDX-License-Identifier: GPL-3.0-or-later
#include "comparison/panel/ScanpathCompareControl.h"

#include "base/Messages.h"
#include "commands/panel/OutsideProgramDialog.h"
#include "comparison/OutsideComparison.h"
#include "comparison/panel/SimilarityPanel.h"

#include <QFileInfo>
#include <QGroupBox>
#include <QIcon>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

using namespace Qt::StringLiterals;
using End = OutsideResult::End;

/// Two red triangles that point to the right.
QIcon fastForwardIcon()
{
    constexpr int side = 32;
    QPixmap picture(side, side);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(200, 30, 30));
    for (const int left : {2, 16})
        painter.drawPolygon(QPolygon({{left, 4}, {left + 14, 16}, {left, 28}}));
    return picture;
}

void tellFailure(const QString &title, const QString &text, const OutsideResult &result = {})
{
    const QString details = result.output.isEmpty() ? result.reason : u"%1\n%2"_s.arg(result.reason, result.output);
    messages::show({messages::Severity::Warning, title, text, details});
    messages::warning(u"Unable to call iComp!"_s, u"An Error occurred while working with iComp."_s);
}

void tellResult(const OutsideResult &result)
{
    const QString broken = u"iComp does not work :("_s;
    switch (result.end) {
    case End::Done:
        messages::information(u"iComp finished!"_s, u"You can find the results at directory 'temp/comparison.txt'."_s);
        break;
    case End::NotStarted:
        tellFailure(u"iComp executable did not start up!"_s, broken, result);
        break;
    case End::TimedOut:
    case End::Failed:
        tellFailure(u"iComp executable did not finish!"_s, broken, result);
        break;
    case End::Cancelled:
        break;
    }
}

} // namespace

ScanpathCompareControl::ScanpathCompareControl(QWidget *parent)
    : QWidget(parent)
    , m_similarity(new SimilarityPanel(this))
{
    auto *outside = new QGroupBox(u"Comparison by iComp"_s, this);
    auto *button = new QPushButton(fastForwardIcon(), u"Compare with iComp"_s, outside);
    button->setObjectName(u"compareScanpaths_Button"_s);
    button->setToolTip(u"Writes the fixations of the checked examinations to the folder temp and starts iComp"_s);
    auto *label = new QLabel(u"iComp is a program of its own, in external/afvis below the working folder. Whoever "
                             "publishes its results cites the article that its manual names."_s,
                             outside);
    label->setObjectName(u"scancomp_label"_s);
    label->setWordWrap(true);
    auto *column = new QVBoxLayout(outside);
    column->addWidget(button);
    column->addWidget(label);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(outside);
    layout->addWidget(m_similarity);
    layout->addStretch();
    connect(button, &QPushButton::clicked, this, &ScanpathCompareControl::sltCompare);
}

void ScanpathCompareControl::setModel(const DataModel *model)
{
    m_model = model;
    m_similarity->setModel(model);
}

void ScanpathCompareControl::sltCompare()
{
    const QList<const Examination *> examinations =
        m_model ? m_model->checkedExaminations() : QList<const Examination *>();
    if (examinations.size() < 2) {
        messages::warning(u"No two scanpaths specified for comparison!"_s,
                          u"At least two scanpaths must be specified for a scanpath comparison."_s);
        return;
    }
    const QStringList shared = outsidecomparison::sharedFiles(examinations);
    if (!shared.isEmpty())
        messages::show({messages::Severity::Warning, u"Scanpath comparison"_s,
                        u"iComp knows a subject by a number. Some examinations will be missed or mixed up."_s,
                        shared.join(u'\n')});
    if (!outsidecomparison::writeFiles(examinations))
        return;
    const OutsideCall call = outsidecomparison::call();
    if (!QFileInfo(call.program).isFile()) {
        tellFailure(u"iComp executable not found!"_s,
                    u"The external iComp executable could not be located at: "_s + call.program);
        return;
    }
    tellResult(runBehindDialog(call, u"Please wait for iComp ..."_s, this));
}
