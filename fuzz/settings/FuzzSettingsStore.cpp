// SPDX-License-Identifier: GPL-3.0-or-later
// Bytes of any kind as the file of a settings store, in the state in which a start of the program finds it. Its files
// lie in the folder of the call, which is best one in memory. Most of the time goes into them: a thousandth of the
// inputs of the other fuzzers is much here.

#include "base/Messages.h"
#include "Check.h"
#include "settings/Parameter.h"
#include "settings/StoreRepair.h"

#include <QFile>
#include <QGuiApplication>

namespace {

const QString storeFile = QStringLiteral("fuzz-store.ini");

void write(const unsigned char *data, std::size_t size)
{
    QFile file(storeFile);
    check(file.open(QIODevice::WriteOnly));
    check(file.write(reinterpret_cast<const char *>(data), static_cast<qint64>(size)) == static_cast<qint64>(size));
}

/// Whatever the file holds, values of every type can be read, and one that is set comes back at the next opening.
void use()
{
    const QString key = QStringLiteral("Fuzz/Key");
    {
        SettingsStore store;
        const QStringList all = store.allKeys();
        for (const QString &each : all) {
            const QVariant value = store.value(each);
            (void)fromStored<int>(value);
            (void)fromStored<double>(value);
            (void)fromStored<bool>(value);
            (void)fromStored<QString>(value);
        }
        store.setValue(key, QStringLiteral("1;2,3 = \"4\""));
    }
    check(SettingsStore().value(key).toString() == QLatin1StringView("1;2,3 = \"4\""));
}

} // namespace

/// A value may be a picture, which the toolkit makes for a program with windows only; all that read the store are such.
extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static const QGuiApplication application(*argc, *argv);
    messages::install(nullptr);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    write(data, size);
    SettingsStore::useFile(storeFile);
    const std::unique_ptr<QTemporaryDir> held = prepareStore();
    check(!held); // the folder can be written, so that a damaged file is set aside
    use();
    QFile::remove(storeFile);
    QFile::remove(storeFile + QStringLiteral(".damaged"));
    return 0;
}
