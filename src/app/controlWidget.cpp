#include "app/controlWidget.h"
#include "ui_controlWidget.h"

#include "commands/CommandStack.h"
#include "settings/StoredKeys.h"

#include <QUndoView>

controlWidget::controlWidget(QWidget *parent) : QWidget(parent), m_ui(std::make_unique<Ui::controlWidget>())
{
    m_ui->setupUi(this);
    m_ui->comboBox_eyemode->setCurrentIndex(readStored(keys::eyeMode));
    m_ui->FixCalc_widget->sltUpdateSettings();
    connect(m_ui->comboBox_eyemode, &QComboBox::currentIndexChanged, this, &controlWidget::sltEyeModeChanged);
    connect(m_ui->toolButton, &QToolButton::clicked, this, &controlWidget::sltShowCommandProcessor);
}

controlWidget::~controlWidget() = default;

void controlWidget::setModel(DataModel *model)
{
    m_ui->Data_Widget->setModel(model);
    m_ui->FixCalc_widget->setModel(model);
    m_ui->export_widget->setModel(model);
}

void controlWidget::setMainWindow(IMainWindow *window)
{
    m_ui->Data_Widget->setMainWindow(window);
    m_ui->FixCalc_widget->setMainWindow(window);
}

void controlWidget::setLog(const Log *log)
{
    m_ui->Data_Widget->setLog(log);
    m_ui->FixCalc_widget->setLog(log);
}

DataWidget &controlWidget::dataWidget()
{
    return *m_ui->Data_Widget;
}

FixationControl &controlWidget::fixationControl()
{
    return *m_ui->FixCalc_widget;
}

ExportWidget &controlWidget::exportWidget()
{
    return *m_ui->export_widget;
}

void controlWidget::sltShowCommandProcessor()
{
    auto *view = new QUndoView(&CommandStack::instance(), this); // owned by the panel: it does not outlive the program
    view->setWindowFlag(Qt::Window);
    view->setAttribute(Qt::WA_DeleteOnClose);
    view->setWindowTitle(tr("Undo view"));
    view->setEmptyLabel(tr("<start>"));
    view->resize(420, 480);
    view->show();
}

void controlWidget::sltEyeModeChanged(int index)
{
    writeStored(keys::eyeMode, index);
    Q_EMIT sigGraphicsParametersChanged();
}
