// SPDX-License-Identifier: GPL-3.0-or-later
#include "commands/panel/PageArea.h"

#include <QHBoxLayout>
#include <QScrollBar>
#include <QTest>

class TestPageArea : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void isAsWideAsThePageAndItsBar();
    void followsAPageThatNeedsMore();
    void withoutAPage();

private:
    std::unique_ptr<QWidget> m_window;
    PageArea *m_area = nullptr;
    QWidget *m_field = nullptr;
};

void TestPageArea::init()
{
    m_window = std::make_unique<QWidget>();
    auto *around = new QHBoxLayout(m_window.get());
    m_area = new PageArea(m_window.get());
    m_area->setWidgetResizable(true);
    auto *page = new QWidget(m_area);
    m_field = new QWidget(page);
    m_field->setMinimumSize(200, 3000);
    (new QHBoxLayout(page))->addWidget(m_field);
    m_area->setWidget(page);
    around->addWidget(m_area);
}

void TestPageArea::isAsWideAsThePageAndItsBar()
{
    m_window->resize(10, 300);
    m_window->show();
    QTRY_VERIFY(m_area->verticalScrollBar()->isVisible());
    QCOMPARE(m_area->horizontalScrollBar()->maximum(), 0);
    QVERIFY(m_area->viewport()->width() >= m_field->width());
}

void TestPageArea::followsAPageThatNeedsMore()
{
    m_window->resize(10, 300);
    m_window->show();
    QTRY_VERIFY(m_area->verticalScrollBar()->isVisible());
    m_field->setMinimumWidth(400);
    QTRY_VERIFY(m_area->viewport()->width() > 400);
    QTRY_COMPARE(m_area->horizontalScrollBar()->maximum(), 0);
}

void TestPageArea::withoutAPage()
{
    const PageArea empty;
    QCOMPARE(empty.minimumSizeHint(), QScrollArea().minimumSizeHint());
}

QTEST_MAIN(TestPageArea)
#include "TestPageArea.moc"
