// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <QString>

/// Text of a file that some other program wrote: UTF-8 where all the bytes are valid UTF-8, otherwise Latin-1, so that
/// no byte is lost. A byte order mark at the start is dropped.
QString decodeText(QByteArrayView bytes);
