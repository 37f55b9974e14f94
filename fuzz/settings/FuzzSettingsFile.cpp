// SPDX-License-Identifier: GPL-3.0-or-later
// Bytes of any kind as a settings file. What was read from them comes back unchanged when it is saved.

#include "Check.h"
#include "settings/SettingsFile.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    const QList<SettingsLine> lines =
        parseSettingsFile(QByteArray::fromRawData(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)));
    for (const SettingsLine &line : lines) {
        check(!line.key.isEmpty());
        check(!line.key.contains(u'=') && !line.value.contains(u'='));
        check(!line.key.contains(u'\n') && !line.value.contains(u'\n'));
    }
    check(parseSettingsFile(settingsFileText(lines)) == lines);
    return 0;
}
