// SPDX-License-Identifier: GPL-3.0-or-later
#include "ToyData.h"
#include "visualization/shapes/FixationNumbers.h"

#include <QTest>

class TestFixationNumbers : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void eachEyeAndExaminationAnew();
    void framesKeepTheNumbers();
    void uncheckedHaveNone();
};

namespace {

toy::Scenery scenery()
{
    toy::Scenery scenery;
    Examination examination;
    examination.leftEye.scanpath = {toy::stay({10, 20}, 0), toy::stay({-5, 20}, 200), toy::stay({30, 20}, 400)};
    examination.rightEye.scanpath = {toy::stay({40, 20}, 0)};
    scenery.model.examinations() = {examination, examination};
    return scenery;
}

QString numbersOf(const Drawing &drawing)
{
    QStringList numbers;
    for (const Shape &shape : drawing) {
        if (const auto *text = std::get_if<TextShape>(&shape))
            numbers << QStringLiteral("%1 at %2").arg(text->text).arg(text->top.x());
    }
    return numbers.join(QStringLiteral(", "));
}

} // namespace

void TestFixationNumbers::eachEyeAndExaminationAnew()
{
    QCOMPARE(numbersOf(fixationNumbers(scenery().context())),
             QStringLiteral("1 at 10, 3 at 30, 1 at 40, 1 at 10, 3 at 30, 1 at 40"));
}

void TestFixationNumbers::framesKeepTheNumbers()
{
    toy::Scenery toy = scenery();
    toy.eyeMode = EyeMode::showLeft;
    toy.frame = {300, 1000};
    QCOMPARE(numbersOf(fixationNumbers(toy.context())), QStringLiteral("3 at 30, 3 at 30"));
}

void TestFixationNumbers::uncheckedHaveNone()
{
    toy::Scenery toy = scenery();
    toy.model.examinations()[0].checked = toy.model.examinations()[1].checked = false;
    QVERIFY(fixationNumbers(toy.context()).isEmpty());
}

QTEST_GUILESS_MAIN(TestFixationNumbers)
#include "TestFixationNumbers.moc"
