#pragma once

#include <QString>

/// One table file of one export, written block by block as UTF-16, little endian on every machine.
///
/// The first block takes the place of a file that an earlier export left; the others are appended. The file is opened
/// anew for each block, and a byte order mark stands before each of them. Line ends are the platform's.
class CsvFile {
public:
    enum class State {
        Untouched, ///< nothing was to be written
        Written,   ///< every block stands in the file
        Failed     ///< at least one block is missing or cut short
    };

    explicit CsvFile(QString path);

    /// Writes the text as one block. The user is told nothing about a file that cannot be written: callers who care
    /// ask the result or the state.
    bool append(const QString &block);

    const QString &path() const { return m_path; }
    State state() const { return m_state; }

private:
    bool write(const QString &block);

    QString m_path;
    State m_state = State::Untouched;
    bool m_replaced = false; ///< the file is this export's own; until then nothing may be appended to it
};
