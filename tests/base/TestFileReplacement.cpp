// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/FileReplacement.h"
#include "FullDisk.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

class TestFileReplacement : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void writesAndReplaces();
    void keepsTheOldFileOnFailure();
    void refusesWhatIsNoFile();
    void piecesAppearTogether();
    void fullDiskKeepsTheOlderFile_data();
    void fullDiskKeepsTheOlderFile();
    void olderFileThatMayNotBeWritten();
    void foldersAndWhyNot();
    void aLinkIsFollowedOrReplaced();
};

namespace {

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

/// A superuser, who may write every file, is somebody else as long as it lives.
class OrdinaryUser {
public:
    OrdinaryUser()
    {
        if (isSuperuser)
            changed = setresuid(nobody, nobody, 0) == 0;
    }
    ~OrdinaryUser()
    {
        if (isSuperuser)
            changed = setresuid(0, 0, 0) == 0;
    }
    OrdinaryUser(const OrdinaryUser &) = delete;
    OrdinaryUser &operator=(const OrdinaryUser &) = delete;

    bool changed = true;

private:
    static constexpr uid_t nobody = 65534;
    const bool isSuperuser = geteuid() == 0;
};

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

void TestFileReplacement::piecesAppearTogether()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a"));
    QCOMPARE(replaceFile(path, "older"), std::nullopt);
    {
        FileReplacement abandoned(path);
        QVERIFY(abandoned.write("new"));
    }
    FileReplacement file(path);
    QVERIFY(file.write("one"));
    QVERIFY(file.write("two"));
    QCOMPARE(contentOf(path), QByteArray("older"));
    QCOMPARE(file.commit(), std::nullopt);
    QCOMPARE(contentOf(path), QByteArray("onetwo"));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{QStringLiteral("a")});
}

void TestFileReplacement::fullDiskKeepsTheOlderFile_data()
{
    QTest::addColumn<int>("second");
    QTest::newRow("straight to the disk") << 100'000;
    QTest::newRow("from the buffer") << 80;
}

void TestFileReplacement::fullDiskKeepsTheOlderFile()
{
    QFETCH(int, second);
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a"));
    QCOMPARE(replaceFile(path, "older"), std::nullopt);
    std::optional<QString> problem;
    {
        const FullDisk disk(100);
        FileReplacement file(path);
        file.write(QByteArray(60, 'x'));
        file.write(QByteArray(second, 'x'));
        problem = file.commit();
    }
    QCOMPARE(problem, qt_error_string(EFBIG)); // though a part of the bytes was taken
    QCOMPARE(contentOf(path), QByteArray("older"));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{QStringLiteral("a")});
}

void TestFileReplacement::olderFileThatMayNotBeWritten()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a"));
    QCOMPARE(replaceFile(path, "older"), std::nullopt);
    QVERIFY(QFile::setPermissions(path, QFileDevice::ReadOwner | QFileDevice::ReadOther));
    QVERIFY(QFile::setPermissions(folder.path(), QFileDevice::Permissions(0x7005))); // all, and others may look
    std::optional<QString> problem;
    {
        const OrdinaryUser user;
        QVERIFY(user.changed);
        problem = replaceFile(path, "new");
    }
    QCOMPARE(problem, qt_error_string(EACCES));
    QCOMPARE(contentOf(path), QByteArray("older"));
}

void TestFileReplacement::foldersAndWhyNot()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("file"));
    QCOMPARE(replaceFile(file, "x"), std::nullopt);
    QCOMPARE(makeFolder(folder.filePath(QStringLiteral("a/b"))), std::nullopt);
    QVERIFY(QFileInfo(folder.filePath(QStringLiteral("a/b"))).isDir());
    QCOMPARE(makeFolder(folder.path()), std::nullopt);
    QCOMPARE(makeFolder(file + QStringLiteral("/b")),
             QStringLiteral("the folder cannot be made: ") + qt_error_string(ENOTDIR));
}

void TestFileReplacement::aLinkIsFollowedOrReplaced()
{
    const QTemporaryDir folder;
    const QString original = folder.filePath(QStringLiteral("original"));
    const QString link = folder.filePath(QStringLiteral("link"));
    QCOMPARE(replaceFile(original, "older"), std::nullopt);
    QVERIFY(QFile::link(original, link));
    QCOMPARE(replaceFile(link, "followed"), std::nullopt);
    QVERIFY(QFileInfo(link).isSymLink());
    QCOMPARE(contentOf(original), QByteArray("followed"));
    FileReplacement file(link, Links::Replaced);
    QVERIFY(file.write("replaced"));
    QCOMPARE(file.commit(), std::nullopt);
    QVERIFY(!QFileInfo(link).isSymLink());
    QCOMPARE(contentOf(link), QByteArray("replaced"));
    QCOMPARE(contentOf(original), QByteArray("followed"));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 2);
}

QTEST_GUILESS_MAIN(TestFileReplacement)
#include "TestFileReplacement.moc"
