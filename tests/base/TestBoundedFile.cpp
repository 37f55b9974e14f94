// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/BoundedFile.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

class TestBoundedFile : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void upToTheLimit_data();
    void upToTheLimit();
    void largerThanMemory();
    void withoutAnEnd();
    void missing();
};

namespace {

constexpr qint64 megabyte = qint64(1) << 20;
const QString tooLarge = QStringLiteral("The file is larger than 1 MB and was not read.");

} // namespace

void TestBoundedFile::upToTheLimit_data()
{
    QTest::addColumn<qint64>("size");
    QTest::addColumn<bool>("isRead");
    QTest::newRow("empty") << qint64(0) << true;
    QTest::newRow("at the limit") << megabyte << true;
    QTest::newRow("beyond") << megabyte + 1 << false;
}

void TestBoundedFile::upToTheLimit()
{
    QFETCH(qint64, size);
    QFETCH(bool, isRead);
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("a")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(QByteArray(size, 'x')), size);
    file.close();
    const auto read = readBounded(file.fileName(), megabyte);
    if (isRead)
        QCOMPARE(std::get<QByteArray>(read), QByteArray(size, 'x'));
    else
        QCOMPARE(std::get<QString>(read), tooLarge);
}

/// A file with a hole takes no place on the disk; to read it whole would take 20 GB.
void TestBoundedFile::largerThanMemory()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("a")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY2(file.resize(20'000 * megabyte), qPrintable(file.errorString()));
    QCOMPARE(std::get<QString>(readBounded(file.fileName(), megabyte)), tooLarge);
}

void TestBoundedFile::withoutAnEnd()
{
#ifdef Q_OS_LINUX
    QCOMPARE(std::get<QString>(readBounded(QStringLiteral("/dev/zero"), megabyte)), tooLarge);
#endif
}

void TestBoundedFile::missing()
{
    QCOMPARE(std::get<QString>(readBounded(QStringLiteral("/no/such/file"), megabyte)),
             QStringLiteral("No such file or directory"));
}

QTEST_GUILESS_MAIN(TestBoundedFile)
#include "TestBoundedFile.moc"
