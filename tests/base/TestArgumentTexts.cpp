// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ArgumentTexts.h"

#include <QDir>
#include <QFileInfo>
#include <QTest>

#include <filesystem>
#include <fstream>

class TestArgumentTexts : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void validNamesStay();
    void fileOfAnyBytesIsOpened();
    void equalNamesOfTwoFolders();
    void missingFileStaysMissing();
    void cleanupTestCase() { std::filesystem::remove_all(m_folder.path().toStdString()); } // which the folder cannot

private:
    QByteArray write(const char *name, const char *content) const
    {
        const QByteArray path = m_folder.path().toUtf8() + '/' + name;
        std::ofstream(path.toStdString()) << content;
        return path;
    }
    static QByteArray contentOf(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir m_folder;
};

void TestArgumentTexts::validNamesStay()
{
    ArgumentTexts arguments;
    QCOMPARE(arguments.texts({"--out", "a b",
                              "\xC3\xBC"
                              "bung.data",
                              ""}),
             QStringList({QStringLiteral("--out"), QStringLiteral("a b"),
                          QString::fromUtf8("\xC3\xBC"
                                            "bung.data"),
                          QString()}));
}

/// "übung.data" of a Latin-1 system, with its set file; the links go with the object.
void TestArgumentTexts::fileOfAnyBytesIsOpened()
{
    const QByteArray path = write("\xFC"
                                  "bung.data",
                                  "samples");
    write("\xFC"
          "bung.set",
          "subject");
    QString link;
    {
        ArgumentTexts arguments;
        link = arguments.texts({path}).constFirst();
        QCOMPARE(QFileInfo(link).fileName(), QString::fromUtf8("\xC3\xBC"
                                                               "bung.data"));
        QCOMPARE(contentOf(link), "samples");
        QCOMPARE(contentOf(QFileInfo(link).path() + QString::fromUtf8("/\xC3\xBC"
                                                                      "bung.set")),
                 "subject");
    }
    QVERIFY(!QFileInfo::exists(link));
    QVERIFY(std::ifstream(path.toStdString()).good());
}

void TestArgumentTexts::equalNamesOfTwoFolders()
{
    QVERIFY(QDir(m_folder.path()).mkpath(QStringLiteral("a")) && QDir(m_folder.path()).mkpath(QStringLiteral("b")));
    ArgumentTexts arguments;
    const QStringList links = arguments.texts({write("a/\xE9.data", "first"), write("b/\xE9.data", "second")});
    QCOMPARE(contentOf(links[0]), "first");
    QCOMPARE(contentOf(links[1]), "second");
    const QString given = QStringLiteral("%1: found nothing").arg(m_folder.filePath(QStringLiteral("b/\u00E9.data")));
    QCOMPARE(arguments.asGiven(QStringLiteral("%1: found nothing").arg(links[1])), given);
    QCOMPARE(arguments.unusable(), QStringList());
}

void TestArgumentTexts::missingFileStaysMissing()
{
    ArgumentTexts arguments;
    const QStringList texts = arguments.texts({"/no/such/\xFF.data"});
    QCOMPARE(texts.size(), 1);
    QVERIFY(texts.constFirst().startsWith(QStringLiteral("/no/such/")));
    QCOMPARE(arguments.unusable(), QStringList{QStringLiteral("/no/such/\u00FF.data")});
}

QTEST_GUILESS_MAIN(TestArgumentTexts)
#include "TestArgumentTexts.moc"
