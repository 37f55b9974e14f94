#include "base/FileReplacement.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

class TestFileReplacement : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void writesAndReplaces();
    void keepsTheOldFileOnFailure();
    void refusesWhatIsNoFile();
};

namespace {

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

} // namespace

void TestFileReplacement::writesAndReplaces()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("report.json"));
    QCOMPARE(replaceFile(path, "first and longer"), std::nullopt);
    QCOMPARE(contentOf(path), QByteArray("first and longer"));
    QCOMPARE(replaceFile(path, "second"), std::nullopt);
    QCOMPARE(contentOf(path), QByteArray("second"));
}

void TestFileReplacement::keepsTheOldFileOnFailure()
{
    const QTemporaryDir folder;
    QVERIFY(replaceFile(folder.filePath(QStringLiteral("no/such/folder.json")), "x").has_value());
    QVERIFY(QDir(folder.path()).isEmpty());
}

void TestFileReplacement::refusesWhatIsNoFile()
{
    const QTemporaryDir folder;
    const QString pipe = folder.filePath(QStringLiteral("pipe"));
    QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    QCOMPARE(replaceFile(pipe, "x"), QStringLiteral("it is not a regular file"));
    QVERIFY(!QFileInfo(pipe).isFile());
    QVERIFY(replaceFile(folder.path(), "x").has_value());
    QVERIFY(QFileInfo(folder.path()).isDir());
}

QTEST_GUILESS_MAIN(TestFileReplacement)
#include "TestFileReplacement.moc"
