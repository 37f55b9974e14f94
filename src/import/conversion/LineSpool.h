// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

class QTemporaryFile;

/// Texts of many files that come in pieces, in any order, and are taken out again one file after the other. What is
/// more than a limit goes into one temporary file, so that neither memory nor open files grow with the number of texts.
class LineSpool {
public:
    explicit LineSpool(qsizetype mostBytes = qsizetype(16) << 20);
    ~LineSpool();
    LineSpool(LineSpool &&) noexcept;
    LineSpool &operator=(LineSpool &&) noexcept;

    /// Adds to the text of this index.
    /// @return false where the temporary file cannot be written; `problem` tells why.
    bool add(qsizetype index, const QByteArray &text);

    /// Hands out the text of an index piece by piece until the taker returns false.
    /// @return false where the temporary file cannot be read.
    bool take(qsizetype index, const std::function<bool(const QByteArray &)> &taker);

    const QString &problem() const { return m_problem; }

private:
    struct Segment {
        qint64 at = 0;
        qsizetype bytes = 0;
    };
    struct Text {
        QByteArray kept; ///< behind the segments
        std::vector<Segment> segments;
    };

    bool spill();
    bool fail();

    qsizetype m_mostBytes;
    qsizetype m_keptBytes = 0;
    std::vector<Text> m_texts;
    std::unique_ptr<QTemporaryFile> m_file;
    QString m_problem;
};
