// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/PictureFile.h"

#include <QBuffer>
#include <QFile>
#include <QImageWriter>
#include <QPainter>
#include <QTemporaryDir>
#include <QTest>

class TestPictureFile : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void cutAnywhere_data();
    void cutAnywhere();
    void whatStandsBehindIsNoMatter_data();
    void whatStandsBehindIsNoMatter();
    void aHeaderThatClaimsTooMuch();
    void gif();
    void aPreviewInsideIsNotTheEnd();
    void problems();

private:
    static QImage picture();
    static QByteArray bytes(const char *format);
    static void formats(const QStringList &names);
};

QImage TestPictureFile::picture()
{
    QImage image(61, 40, QImage::Format_RGB32);
    image.fill(Qt::darkGreen);
    QPainter painter(&image);
    painter.setPen(Qt::yellow);
    painter.drawEllipse(5, 5, 40, 30);
    return image;
}

QByteArray TestPictureFile::bytes(const char *format)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, format);
    writer.write(picture());
    return buffer.data();
}

void TestPictureFile::formats(const QStringList &names)
{
    QTest::addColumn<QByteArray>("format");
    for (const QString &name : names)
        QTest::newRow(qPrintable(name)) << name.toLatin1();
}

void TestPictureFile::cutAnywhere_data()
{
    formats({QStringLiteral("jpg"), QStringLiteral("bmp"), QStringLiteral("png")});
}

void TestPictureFile::cutAnywhere()
{
    QFETCH(QByteArray, format);
    const QTemporaryDir folder;
    const QByteArray whole = bytes(format);
    QVERIFY(whole.size() > 100);
    const QString path = folder.filePath(QStringLiteral("a.") + QString::fromLatin1(format));
    const auto read = [&](const QByteArray &content) {
        QFile file(path);
        const bool isWritten = file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
        file.close();
        QString problem;
        const QImage image = readPicture(path, &problem);
        return isWritten && image.isNull() != problem.isEmpty() ? image : picture().scaled(1, 1);
    };
    QCOMPARE(read(whole).size(), picture().size());
    for (const qsizetype left : {whole.size() - 5, whole.size() / 2, qsizetype(60), qsizetype(3)})
        QVERIFY2(read(whole.first(left)).isNull(), qPrintable(QString::number(left)));
}

void TestPictureFile::whatStandsBehindIsNoMatter_data()
{
    formats({QStringLiteral("jpg"), QStringLiteral("bmp")});
}

void TestPictureFile::whatStandsBehindIsNoMatter()
{
    QFETCH(QByteArray, format);
    QVERIFY(isWholePicture(bytes(format)));
    QVERIFY(isWholePicture(bytes(format) + "a camera's notes"));
}

/// Its size is beyond 64 bits.
void TestPictureFile::aHeaderThatClaimsTooMuch()
{
    QByteArray claimed = bytes("bmp");
    claimed.replace(18, 8, QByteArray(8, '\x7f'));
    claimed.replace(28, 2, QByteArray(2, '\xff'));
    QVERIFY(!isWholePicture(claimed));
}

/// Two pixels by one, black; each byte of it is needed but the last, which ends the file.
void TestPictureFile::gif()
{
    const QByteArray whole = QByteArray::fromHex("474946383961"   // GIF89a
                                                 "02000100800000" // 2 by 1, two colours
                                                 "000000ffffff"
                                                 "21f90400000000" // an extension of four bytes
                                                 "00"
                                                 "2c000000000200010000" // the picture
                                                 "0202840a00"
                                                 "3b");
    QVERIFY(isWholePicture(whole));
    QVERIFY(isWholePicture(whole.chopped(1)));
    for (qsizetype left = 6; left < whole.size() - 1; ++left)
        QVERIFY2(!isWholePicture(whole.first(left)), qPrintable(QString::number(left)));
}

/// Cameras put a small JPEG into a segment before the large one.
void TestPictureFile::aPreviewInsideIsNotTheEnd()
{
    const QByteArray preview = bytes("jpg");
    const auto length = static_cast<quint16>(preview.size() + 2);
    const QByteArray segment = QByteArray("\xFF\xE1") + char(length >> 8) + char(length & 0xFF) + preview;
    const QByteArray whole = preview.first(2) + segment + preview.sliced(2);
    QVERIFY(isWholePicture(whole));
    QVERIFY(!isWholePicture(whole.chopped(2)));
    QVERIFY(!isWholePicture(whole.first(segment.size() + 40)));
}

void TestPictureFile::problems()
{
    const QTemporaryDir folder;
    QString problem;
    QVERIFY(readPicture(folder.filePath(QStringLiteral("none.png")), &problem).isNull());
    QVERIFY(!problem.isEmpty());
    QFile file(folder.filePath(QStringLiteral("cut.jpg")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes("jpg").chopped(20));
    file.close();
    QVERIFY(readPicture(file.fileName(), &problem).isNull());
    QCOMPARE(problem, QStringLiteral("the file is cut short"));
    QVERIFY(readPicture(file.fileName()).isNull());
}

QTEST_GUILESS_MAIN(TestPictureFile)
#include "TestPictureFile.moc"
