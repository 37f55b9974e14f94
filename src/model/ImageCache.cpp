// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/ImageCache.h"

#include <algorithm>

namespace {

QStringList components(const QString &path)
{
    QString withSlashes = path;
    return withSlashes.replace(u'\\', u'/').split(u'/');
}

} // namespace

ImageRecord::ImageRecord(const QString &path_)
    : path(path_)
    , name(components(path_.section(u'.', 0, 0)).constLast())
    , extension(path_.section(u'.', -1))
    , fileName(name + u'.' + extension)
{
    const QStringList parts = components(path);
    for (const QString &part : parts.first(parts.size() - 1))
        folder += part + u'\\';
}

std::shared_ptr<ImageRecord> ImageCache::image(const QString &path)
{
    const auto known =
        std::find_if(m_images.cbegin(), m_images.cend(), [&](const auto &image) { return image->path == path; });
    if (known != m_images.cend())
        return *known;
    return m_images.emplace_back(std::make_shared<ImageRecord>(path));
}

void ImageCache::remove(const QString &path)
{
    std::erase_if(m_images, [&](const auto &image) { return image->path == path; });
}

QStringList ImageCache::paths() const
{
    QStringList paths;
    for (const auto &image : m_images)
        paths << image->path;
    return paths;
}

QStringList ImageCache::names() const
{
    QStringList names;
    for (const auto &image : m_images)
        names << image->name;
    return names;
}
