// SPDX-License-Identifier: GPL-3.0-or-later
#include "density/DensityTiff.h"

#include <QHash>
#include <QtEndian>
#include <QTest>

#include <algorithm>

class TestDensityTiff : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void everyField_data();
    void everyField();
};

void TestDensityTiff::everyField_data()
{
    QTest::addColumn<QByteArray>("description");
    QTest::newRow("of an even length") << QByteArray("gaze points per px^2, 10");
    QTest::newRow("of an odd length") << QByteArray("fixations");
}

void TestDensityTiff::everyField()
{
    QFETCH(QByteArray, description);
    Density density;
    std::fill(density.column(0), density.column(canvas::width), 0.0);
    density.column(7)[3] = 1.25;
    density.column(2559)[1599] = 1e-3;
    const QByteArray bytes = densityTiff(density, description);
    const auto u16 = [&](quint32 at) { return qFromLittleEndian<quint16>(bytes.constData() + at); };
    const auto u32 = [&](quint32 at) { return qFromLittleEndian<quint32>(bytes.constData() + at); };
    QVERIFY(bytes.startsWith("II*"));
    const quint32 directory = u32(4);
    QCOMPARE(directory % 2, quint32(0));
    QHash<int, quint32> values;
    int lastTag = 0;
    for (quint32 i = 0; i < u16(directory); ++i) {
        const quint32 at = directory + 2 + 12 * i;
        QVERIFY(u16(at) > lastTag); // in ascending order
        lastTag = u16(at);
        values[lastTag] = u32(at + 8);
        QCOMPARE(u32(at + 4), lastTag == 270 ? quint32(description.size()) + 1 : 1);
    }
    QCOMPARE(qsizetype(directory) + 2 + 12 * u16(directory) + 4, bytes.size());
    const QHash<int, quint32> expected{{256, 2560}, {257, 1600},        {258, 32}, {259, 1},
                                       {262, 1},    {270, values[270]}, {273, 8},  {277, 1},
                                       {278, 1600}, {279, 16384000},    {339, 3}};
    QCOMPARE(values, expected);
    QCOMPARE(QByteArray(bytes.constData() + values[270]), description);
    const auto pixel = [&](quint32 x, quint32 y) {
        return qFromLittleEndian<float>(bytes.constData() + 8 + 4 * (y * 2560 + x));
    };
    QCOMPARE(pixel(7, 3), 1.25F);
    QCOMPARE(pixel(2559, 1599), 1e-3F);
    QCOMPARE(pixel(3, 7), 0.0F);
}

QTEST_GUILESS_MAIN(TestDensityTiff)
#include "TestDensityTiff.moc"
