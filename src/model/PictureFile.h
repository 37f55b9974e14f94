// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QString>

/// Reads a picture. One that is cut short is none, whatever its format: some decoders would fill up the rest without a
/// word.
///
/// @param problem  why it cannot be shown, in words for the user, without a full stop; may be null.
/// @return null where it cannot be shown.
QImage readPicture(const QString &path, QString *problem = nullptr);

/// Whether the file is there to its end, as far as that can be known without decoding it: see `isWholePicture`.
bool isWholePictureFile(const QString &path);

/// Whether the first picture of these bytes, in the format that they begin as, is there to its end: for JPEG, BMP and
/// GIF, whose decoders do not tell. Of other bytes nothing is known, which counts as whole.
bool isWholePicture(QByteArrayView bytes);
