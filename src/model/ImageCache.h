// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

/// One stimulus image file. The pixels are read from `path` when the image is shown.
struct ImageRecord {
    explicit ImageRecord(const QString &path);

    QString path;      ///< as given; the key of the cache
    QString name;      ///< last path component of the part before the first "."
    QString extension; ///< text after the last "."
    QString folder;    ///< all path components but the last, each followed by a backslash
    QString fileName;  ///< `name` "." `extension`
};

/// The stimulus images of all examinations and those added by hand, in the order in which they came. Examinations on
/// the same file share one record; a record lives as long as somebody holds it.
class ImageCache {
public:
    /// The record of the path, made and kept if there is none.
    std::shared_ptr<ImageRecord> image(const QString &path);

    void remove(const QString &path);

    QStringList paths() const;
    QStringList names() const;

private:
    std::vector<std::shared_ptr<ImageRecord>> m_images;
};
