// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/NamedPlace.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

class TestNamedPlace : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void names_data();
    void names();
    void aLinkThatLeadsOut();
    void aFolderThatIsNotThereYet();
    void fileNames();
    void oneFileByManyWays();
};

void TestNamedPlace::names_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("stays");
    const auto row = [](const char *what, const char *name, bool stays) {
        QTest::newRow(what) << QString::fromUtf8(name) << stays;
    };
    row("a plain name", "S01.csv", true);
    row("dots within a name", "S..01", true);
    row("a name of three dots", "...", true);
    row("below a folder", "a/S01.csv", true);
    row("out and in again", "a/../S01.csv", true);
    row("nothing", "", false);
    row("the folder itself", ".", false);
    row("the folder above", "..", false);
    row("out of the folder", "../S01.csv", false);
    row("out by a detour", "a/../../S01.csv", false);
    row("a neighbour whose name begins alike", "../out2/S01.csv", false);
    row("an absolute path", "/tmp/S01.csv", false);
    row("a folder", "a/", false);
    QTest::newRow("a name with an end within") << QString::fromLatin1("S01\0.csv", 8) << false;
}

void TestNamedPlace::names()
{
    QFETCH(QString, name);
    QFETCH(bool, stays);
    const QTemporaryDir folder;
    const QString chosen = folder.filePath(QStringLiteral("out"));
    QVERIFY(QDir().mkpath(chosen));
    QCOMPARE(placeInside(chosen, name), stays ? std::optional(chosen + u'/' + name) : std::nullopt);
    QCOMPARE(placeInside(chosen + u'/', name).has_value(), stays);
}

void TestNamedPlace::aLinkThatLeadsOut()
{
    const QTemporaryDir folder;
    const QDir root(folder.path());
    QVERIFY(root.mkpath(QStringLiteral("out/inner")) && root.mkpath(QStringLiteral("elsewhere")));
    QVERIFY(QFile::link(root.filePath(QStringLiteral("elsewhere")), root.filePath(QStringLiteral("out/away"))));
    QVERIFY(QFile::link(root.filePath(QStringLiteral("out/inner")), root.filePath(QStringLiteral("out/near"))));
    const QString chosen = root.filePath(QStringLiteral("out"));
    QVERIFY(!placeInside(chosen, QStringLiteral("away/a.csv")));
    QVERIFY(placeInside(chosen, QStringLiteral("near/a.csv")));
    // the chosen folder may be a link itself
    QVERIFY(QFile::link(chosen, root.filePath(QStringLiteral("link"))));
    QVERIFY(placeInside(root.filePath(QStringLiteral("link")), QStringLiteral("a.csv")));
}

void TestNamedPlace::aFolderThatIsNotThereYet()
{
    const QTemporaryDir folder;
    const QString chosen = folder.filePath(QStringLiteral("later"));
    QVERIFY(placeInside(chosen, QStringLiteral("a.csv")));
    QVERIFY(!placeInside(chosen, QStringLiteral("../a.csv")));
}

void TestNamedPlace::fileNames()
{
    const auto named = [](const char *path) { return fileNameOf(QString::fromLatin1(path)); };
    QCOMPARE(named("C:\\study\\a.txt"), QStringLiteral("a.txt"));
    QCOMPARE(named("/study/a b.txt"), QStringLiteral("a b.txt"));
    QCOMPARE(named("C:\\study/a.txt"), QStringLiteral("a.txt"));
    QCOMPARE(named("/study\\a.txt"), QStringLiteral("a.txt"));
    QCOMPARE(named("a.txt"), QStringLiteral("a.txt"));
    QCOMPARE(named("/study/"), QString());
    QCOMPARE(named(""), QString());
}

void TestNamedPlace::oneFileByManyWays()
{
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("a")));
    QFile file(folder.filePath(QStringLiteral("a/b")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(QFile::link(file.fileName(), folder.filePath(QStringLiteral("link"))));
    QVERIFY(QFile::link(folder.filePath(QStringLiteral("a")), folder.filePath(QStringLiteral("folder"))));
    const auto identity = [&](const char *name) { return fileIdentity(folder.filePath(QLatin1StringView(name))); };
    for (const char *way : {"a/../a/b", "link", "folder/b"})
        QCOMPARE(identity(way), identity("a/b"));
    QCOMPARE(identity("folder/new"), identity("a/./new")); // one that will be
    QCOMPARE(identity("c/../c/new"), identity("c/new"));   // in a folder that will be
    QVERIFY(identity("a/new") != identity("new"));
    QVERIFY(fileIdentity(QString()).isEmpty());
    const auto path = [&](const char *name) { return folder.filePath(QLatin1StringView(name)); };
    QCOMPARE(waysToOneFile({path("new"), path("link"), path("a/b"), path("other"), path("a/../new"), path("link")}),
             (QList<QStringList>{{path("new"), path("a/../new")}, {path("link"), path("a/b"), path("link")}}));
    QCOMPARE(waysToOneFile({path("new"), path("other")}), QList<QStringList>());
}

QTEST_GUILESS_MAIN(TestNamedPlace)
#include "TestNamedPlace.moc"
