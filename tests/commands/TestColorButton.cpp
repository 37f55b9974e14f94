// SPDX-License-Identifier: GPL-3.0-or-later
#include "commands/panel/ColorButton.h"

#include <QColorDialog>
#include <QTest>
#include <QTimer>
#include <QToolButton>

class TestColorButton : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void showsTheColor_data();
    void showsTheColor();
    void readsWhatItShows_data();
    void readsWhatItShows();
    void captionCanBeRead_data();
    void captionCanBeRead();
    void dialog_data();
    void dialog();
};

void TestColorButton::showsTheColor_data()
{
    QTest::addColumn<QColor>("color");
    QTest::addColumn<QString>("style");
    QTest::newRow("a colour") << QColor(1, 2, 255) << QStringLiteral("background-color:#0102ff");
    QTest::newRow("without its alpha") << QColor(1, 2, 255, 7) << QStringLiteral("background-color:#0102ff");
    QTest::newRow("an invalid colour is black by name") << QColor() << QStringLiteral("background-color:#000000");
}

void TestColorButton::showsTheColor()
{
    QFETCH(QColor, color);
    QToolButton button;
    showColor(&button, Qt::yellow);
    showColor(&button, color);
    QTEST(button.styleSheet(), "style");
    QCOMPARE(shownColor(&button), QColor(color.name()));
    button.resize(40, 20);
    const QImage picture = button.grab().toImage();
    for (const QPoint &place : {QPoint(3, 3), QPoint(20, 10), QPoint(36, 16)})
        QCOMPARE(picture.pixelColor(place), QColor(color.name())); // and no tone of it
}

void TestColorButton::readsWhatItShows_data()
{
    QTest::addColumn<QString>("style");
    QTest::addColumn<QColor>("expected");
    QTest::newRow("a name") << QStringLiteral("background-color:#abcdef") << QColor(0xab, 0xcd, 0xef);
    QTest::newRow("no style") << QString() << QColor();
    QTest::newRow("another property") << QStringLiteral("color:#abcdef") << QColor();
    QTest::newRow("no colour") << QStringLiteral("background-color:") << QColor();
    QTest::newRow("no known colour") << QStringLiteral("background-color:#xyz") << QColor();
}

void TestColorButton::readsWhatItShows()
{
    QFETCH(QString, style);
    QToolButton button;
    button.setStyleSheet(style);
    QTEST(shownColor(&button), "expected");
}

void TestColorButton::captionCanBeRead_data()
{
    QTest::addColumn<QColor>("color");
    QTest::addColumn<QColor>("caption");
    QTest::newRow("on white") << QColor(Qt::white) << QColor(Qt::black);
    QTest::newRow("on black") << QColor(Qt::black) << QColor(Qt::white);
    QTest::newRow("on green, which is bright") << QColor(0, 255, 0) << QColor(Qt::black);
    QTest::newRow("on blue, which is dark") << QColor(0, 0, 255) << QColor(Qt::white);
    QTest::newRow("on red, which is dark") << QColor(255, 0, 0) << QColor(Qt::white);
    QTest::newRow("on the darker middle grey") << QColor(127, 127, 127) << QColor(Qt::white);
    QTest::newRow("on the brighter middle grey") << QColor(128, 128, 128) << QColor(Qt::black);
    // Luma above 127.5 makes a caption black: 0.299 * 255 = 76.245 of red leave 51.255 / 0.587 = 87.3 to the green.
    QTest::newRow("on red with too little green") << QColor(255, 87, 0) << QColor(Qt::white);
    QTest::newRow("on red with enough green") << QColor(255, 88, 0) << QColor(Qt::black);
    // 0.114 * 255 = 29.07 of blue leave 98.43 / 0.587 = 167.7.
    QTest::newRow("on blue with too little green") << QColor(0, 167, 255) << QColor(Qt::white);
    QTest::newRow("on blue with enough green") << QColor(0, 168, 255) << QColor(Qt::black);
    QTest::newRow("on no colour") << QColor() << QColor(Qt::white);
}

void TestColorButton::captionCanBeRead()
{
    QFETCH(QColor, color);
    QToolButton button;
    showColor(&button, color);
    QTEST(button.palette().color(QPalette::ButtonText), "caption");
}

void TestColorButton::dialog_data()
{
    QTest::addColumn<ColorAlpha>("alpha");
    QTest::addColumn<bool>("accepts");
    QTest::newRow("accepted") << ColorAlpha::Fixed << true;
    QTest::newRow("cancelled") << ColorAlpha::Fixed << false;
    QTest::newRow("with alpha, accepted") << ColorAlpha::Chosen << true;
    QTest::newRow("with alpha, cancelled") << ColorAlpha::Chosen << false;
}

void TestColorButton::dialog()
{
    QFETCH(ColorAlpha, alpha);
    QFETCH(bool, accepts);
    QString title;
    QColor start;
    bool hasAlpha = false;
    QTimer::singleShot(0, this, [&] {
        auto *dialog = qobject_cast<QColorDialog *>(QApplication::activeModalWidget());
        QVERIFY(dialog);
        title = dialog->windowTitle();
        start = dialog->currentColor();
        hasAlpha = dialog->testOption(QColorDialog::ShowAlphaChannel);
        dialog->setCurrentColor(QColor(5, 6, 7));
        QTest::keyClick(dialog, accepts ? Qt::Key_Return : Qt::Key_Escape);
    });
    QWidget parent;
    const QColor chosen = colorDialog(&parent, alpha)(QColor(1, 2, 3));
    QCOMPARE(title, QStringLiteral("Text Color"));
    QCOMPARE(start, QColor(1, 2, 3));
    QCOMPARE(hasAlpha, alpha == ColorAlpha::Chosen);
    QCOMPARE(chosen, accepts ? QColor(5, 6, 7) : QColor());
}

QTEST_MAIN(TestColorButton)
#include "TestColorButton.moc"
