// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <QStringList>

/// Ways of being a bad server. They can be joined.
enum class Hostility : unsigned {
    Torn = 1,      ///< packets end anywhere
    Merged = 2,    ///< several messages come in one packet
    Delayed = 4,   ///< packets wait
    WrongJson = 8, ///< messages that are none, among the frames
    UnknownCodes = 16,
    Braces = 32, ///< balanced ones in strings, and "}" that end a message early
    Noise = 64,  ///< bytes between messages
    Flood = 128  ///< bursts of replies that nobody asked for
};

/// Hostilities as bits.
using Hostilities = unsigned;

inline bool has(Hostilities set, Hostility one)
{
    return (set & static_cast<Hostilities>(one)) != 0;
}

/// The words of the option, in the order of the bits.
QStringList hostilityNames();

/// What a server with these hostilities says before frame `index`; nothing of it is a frame, and no frame is lost by
/// it.
QList<QByteArray> hostileMessages(Hostilities hostilities, qint64 index);
