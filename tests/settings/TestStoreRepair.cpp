// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/StoredKeys.h"
#include "settings/StoreRepair.h"
#include "TestMessages.h"

#include <QDir>
#include <QTest>

#include <unistd.h>

namespace {

/// Rights as those of anybody while it lives: the administrator may write everything.
class PlainRights {
public:
    PlainRights() : m_isLowered(geteuid() == 0 && seteuid(nobody) == 0) {}
    ~PlainRights()
    {
        if (m_isLowered && seteuid(0) != 0)
            qFatal("The rights of the test do not come back");
    }
    PlainRights(const PlainRights &) = delete;
    PlainRights &operator=(const PlainRights &) = delete;

private:
    static constexpr uid_t nobody = 65534;
    const bool m_isLowered;
};

} // namespace

class TestStoreRepair : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void aStoreIsExamined_data();
    void aStoreIsExamined();
    void aMissingStoreIsUsableAndItsFolderMade();
    void aFolderInItsPlaceIsDamage();
    void aFileInPlaceOfItsFolderMakesItUnwritable();
    void aHugeFileIsNotRead();
    void theLargestStore();
    void aReadOnlyStoreIsUnwritable();
    void aUsableStoreIsLeftAlone();
    void aDamagedStoreIsSetAside();
    void aFolderIsSetAside();
    void earlierDamagedStoresAreKept();
    void anUnreadableStoreIsSetAside();
    void anUnwritableStoreIsWorkedOnInACopy();
    void aStoreThatCannotBeMadeIsAPrivateOne();
    void aDamagedStoreThatCannotBeMovedIsLeftAlone();

private:
    QString store() const { return m_folder->filePath(QStringLiteral("store.ini")); }
    static QByteArray content(const QString &file);
    void writeStore(const QByteArray &bytes) const;
    static void worksAcrossOpenings();

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestStoreRepair::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    SettingsStore::useFile(store());
}

QByteArray TestStoreRepair::content(const QString &file)
{
    QFile opened(file);
    return opened.open(QIODevice::ReadOnly) ? opened.readAll() : QByteArray("not there");
}

void TestStoreRepair::writeStore(const QByteArray &bytes) const
{
    QFile file(store());
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

/// The store in use takes a value, and the file holds it.
void TestStoreRepair::worksAcrossOpenings()
{
    writeStored(keys::eyeMode, 3);
    QCOMPARE(readStored(keys::eyeMode), 3);
    QVERIFY(content(SettingsStore::path()).contains("EyeMode=3"));
    QCOMPARE(SettingsStore().status(), QSettings::NoError);
}

void TestStoreRepair::aStoreIsExamined_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<StoreState>("expected");
    const auto usable = StoreState::Usable;
    const auto damaged = StoreState::Damaged;
    QTest::newRow("empty file") << QByteArray() << usable;
    QTest::newRow("settings") << QByteArray("[General]\nVersion=1\n\n[A]\nB\\c=\"x, y\"\n") << usable;
    QTest::newRow("carriage returns and tabs") << QByteArray("[A]\r\n\tB=1\r\n") << usable;
    QTest::newRow("comment") << QByteArray("; a note\n[A]\nB=1\n") << usable;
    QTest::newRow("letters beyond ascii") << QByteArray("[A]\nB=M\xc3\xbcller\n") << usable;
    QTest::newRow("a line without a value") << QByteArray("[A]\nB=1\nnonsense\n") << damaged;
    QTest::newRow("a section that does not end") << QByteArray("[A\nB=1\n") << damaged;
    QTest::newRow("prose") << QByteArray("this is not a store\n") << damaged;
    QTest::newRow("a zero byte in a value") << QByteArray("[A]\nB=1\0\n", 9) << damaged;
    QTest::newRow("nothing but zero bytes") << QByteArray(4096, '\0') << damaged;
    QTest::newRow("picture") << QByteArray("\x89PNG\r\n\x1a\n=\x01\x02", 11) << damaged;
}

void TestStoreRepair::aStoreIsExamined()
{
    QFETCH(QByteArray, bytes);
    writeStore(bytes);
    QTEST(examineStore(store()), "expected");
    QTEST(examineStore(store()), "expected"); // a second look tells the same
    QCOMPARE(content(store()), bytes);
}

void TestStoreRepair::aMissingStoreIsUsableAndItsFolderMade()
{
    const QString deep = m_folder->filePath(QStringLiteral("a/b/store.ini"));
    QCOMPARE(examineStore(deep), StoreState::Usable);
    QVERIFY(QDir(QFileInfo(deep).path()).isEmpty());
}

void TestStoreRepair::aFolderInItsPlaceIsDamage()
{
    QVERIFY(QDir().mkpath(store()));
    QCOMPARE(examineStore(store()), StoreState::Damaged);
}

void TestStoreRepair::aFileInPlaceOfItsFolderMakesItUnwritable()
{
    writeStore("x");
    QCOMPARE(examineStore(store() + QStringLiteral("/inner.ini")), StoreState::Unwritable);
}

void TestStoreRepair::aHugeFileIsNotRead()
{
    QFile file(store());
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.resize(qint64(1) << 40)); // a file of holes; reading it would take minutes
    file.close();
    QCOMPARE(examineStore(store()), StoreState::Damaged);
    const RecordedMessages messages;
    QVERIFY(!prepareStore());
    QCOMPARE(messages.texts().size(), 1);
    worksAcrossOpenings();
}

void TestStoreRepair::theLargestStore()
{
    constexpr qsizetype largest = qsizetype(16) << 20;
    const QByteArray start("[A]\nB=1\n;");
    writeStore(start + QByteArray(largest - start.size(), 'x'));
    QCOMPARE(examineStore(store()), StoreState::Usable);
    writeStore(start + QByteArray(largest - start.size() + 1, 'x'));
    QCOMPARE(examineStore(store()), StoreState::Damaged);
}

void TestStoreRepair::aReadOnlyStoreIsUnwritable()
{
    writeStore("[A]\nB=1\n");
    const auto canRead = QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther;
    const auto canWrite = QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther;
    const auto canEnter = QFile::ExeOwner | QFile::ExeGroup | QFile::ExeOther;
    QVERIFY(QFile::setPermissions(m_folder->path(), canRead | canWrite | canEnter));
    QVERIFY(QFile::setPermissions(store(), canRead));
    {
        const PlainRights rights;
        QCOMPARE(examineStore(store()), StoreState::Unwritable);
    }
    QVERIFY(QFile::setPermissions(store(), canRead | canWrite));
    const PlainRights rights;
    QCOMPARE(examineStore(store()), StoreState::Usable);
}

void TestStoreRepair::aUsableStoreIsLeftAlone()
{
    const RecordedMessages messages;
    writeStored(keys::version, QStringLiteral("1"));
    const QByteArray before = content(store());
    QVERIFY(!prepareStore());
    QVERIFY(messages.texts().isEmpty());
    QCOMPARE(content(store()), before);
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), QStringList{QStringLiteral("store.ini")});
}

void TestStoreRepair::aDamagedStoreIsSetAside()
{
    const RecordedMessages messages;
    const QByteArray garbage("[A]\nB=1\0\xff\xfe garbage", 18);
    writeStore(garbage);
    QVERIFY(!prepareStore());
    QCOMPARE(messages.texts().size(), 1);
    QVERIFY(messages.texts().first().startsWith(QStringLiteral("Settings|")));
    QVERIFY(messages.texts().first().contains(u'"' + store() + u'"'));
    QVERIFY(messages.texts().first().contains(u'"' + store() + QStringLiteral(".damaged\"")));
    QCOMPARE(content(store() + QStringLiteral(".damaged")), garbage);
    QVERIFY(SettingsStore().allKeys().isEmpty());
    worksAcrossOpenings();
    QVERIFY(!prepareStore());
    QCOMPARE(messages.texts().size(), 1);
}

void TestStoreRepair::aFolderIsSetAside()
{
    const RecordedMessages messages;
    QVERIFY(QDir().mkpath(store() + QStringLiteral("/inner")));
    QVERIFY(!prepareStore());
    QCOMPARE(messages.texts().size(), 1);
    QVERIFY(QDir(store() + QStringLiteral(".damaged/inner")).exists());
    worksAcrossOpenings();
}

void TestStoreRepair::earlierDamagedStoresAreKept()
{
    const RecordedMessages messages;
    for (const char *garbage : {"first", "second", "third"}) {
        writeStore(garbage);
        QVERIFY(!prepareStore());
    }
    QCOMPARE(content(store() + QStringLiteral(".damaged")), QByteArray("first"));
    QCOMPARE(content(store() + QStringLiteral(".damaged2")), QByteArray("second"));
    QCOMPARE(content(store() + QStringLiteral(".damaged3")), QByteArray("third"));
    QVERIFY(messages.texts().last().contains(QStringLiteral(".damaged3\"")));
}

void TestStoreRepair::anUnreadableStoreIsSetAside()
{
    // The state is given, since permissions do not hold back every user who runs this test.
    const RecordedMessages messages;
    writeStore("[A]\nB=1\n");
    QVERIFY(!prepareStore(store(), StoreState::Unreadable));
    QCOMPARE(messages.texts().size(), 1);
    QVERIFY(messages.texts().first().contains(QStringLiteral("cannot be read")));
    QVERIFY(messages.texts().first().contains(QStringLiteral("make that file readable")));
    QCOMPARE(content(store() + QStringLiteral(".damaged")), QByteArray("[A]\nB=1\n"));
    worksAcrossOpenings();
}

void TestStoreRepair::anUnwritableStoreIsWorkedOnInACopy()
{
    const RecordedMessages messages;
    const QByteArray original("[General]\nVersion=kept\n");
    writeStore(original);
    QVERIFY(QFile::setPermissions(store(), QFile::ReadOwner));
    QString copy;
    {
        const auto held = prepareStore(store(), StoreState::Unwritable);
        QVERIFY(held);
        QCOMPARE(messages.texts().size(), 1);
        QVERIFY(messages.texts().first().contains(u'"' + store() + u'"'));
        copy = SettingsStore::path();
        QVERIFY(copy != store());
        QCOMPARE(readStored(keys::version), QStringLiteral("kept"));
        worksAcrossOpenings();
    }
    QVERIFY(!QFile::exists(copy));
    QCOMPARE(content(store()), original);
}

void TestStoreRepair::aStoreThatCannotBeMadeIsAPrivateOne()
{
    const RecordedMessages messages;
    writeStore("x");
    SettingsStore::useFile(store() + QStringLiteral("/inner.ini"));
    const auto held = prepareStore();
    QVERIFY(held);
    QCOMPARE(messages.texts().size(), 1);
    worksAcrossOpenings();
}

void TestStoreRepair::aDamagedStoreThatCannotBeMovedIsLeftAlone()
{
    const RecordedMessages messages;
    const QString gone = m_folder->filePath(QStringLiteral("gone.ini")); // nothing there to be moved
    SettingsStore::useFile(gone);
    const auto held = prepareStore(gone, StoreState::Damaged);
    QVERIFY(held);
    QCOMPARE(messages.texts().size(), 1);
    QVERIFY(messages.texts().first().contains(gone));
    worksAcrossOpenings();
}

QTEST_GUILESS_MAIN(TestStoreRepair)
#include "TestStoreRepair.moc"
