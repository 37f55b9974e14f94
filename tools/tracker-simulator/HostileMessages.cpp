// SPDX-License-Identifier: GPL-3.0-or-later
#include "tracker-simulator/HostileMessages.h"

namespace {

constexpr qint64 wrongEvery = 7; ///< frames; primes, so that all neighbours occur
constexpr qint64 unknownEvery = 11;
constexpr qint64 braceEvery = 13;
constexpr qint64 noiseEvery = 5;
constexpr qint64 floodEvery = 997;
constexpr int floodMessages = 500;
constexpr int tooDeep = 100;

QByteArray wrongJson(qint64 index)
{
    switch (index / wrongEvery % 5) {
    case 0:
        return R"({"category":"tracker","statuscode":200,"values":{"frame":{"time":}}})";
    case 1:
        return "{]}";
    case 2:
        return R"({"category":)" + QByteArray(tooDeep, '[') + QByteArray(tooDeep, ']') + '}';
    case 3:
        return R"({"statuscode":200,"request":"get","values":{"frame":{"time":1}}})"; // no category
    default:
        return QByteArray("{\"\xff\xfe\":\x01}");
    }
}

QByteArray unknownCode(qint64 index)
{
    constexpr int codes[] = {0, 100, 404, 803, -1};
    return R"({"category":"tracker","request":"get","statuscode":)" +
           QByteArray::number(codes[index / unknownEvery % 5]) + R"(,"values":{"frame":{"time":1}}})";
}

/// The brace in the second one ends the message within its string; what is left has no "{".
QByteArray braces(qint64 index)
{
    if (index / braceEvery % 2 == 0)
        return R"({"category":"heartbeat","statuscode":200,"note":"{{}} {}"})";
    return R"({"category":"heartbeat","statuscode":200,"note":"}"})";
}

} // namespace

QStringList hostilityNames()
{
    return {QStringLiteral("torn"),       QStringLiteral("merged"),        QStringLiteral("delayed"),
            QStringLiteral("wrong-json"), QStringLiteral("unknown-codes"), QStringLiteral("braces"),
            QStringLiteral("noise"),      QStringLiteral("flood")};
}

QList<QByteArray> hostileMessages(Hostilities hostilities, qint64 index)
{
    QList<QByteArray> messages;
    if (has(hostilities, Hostility::WrongJson) && index % wrongEvery == 0)
        messages << wrongJson(index);
    if (has(hostilities, Hostility::UnknownCodes) && index % unknownEvery == 0)
        messages << unknownCode(index);
    if (has(hostilities, Hostility::Braces) && index % braceEvery == 0)
        messages << braces(index);
    if (has(hostilities, Hostility::Noise) && index % noiseEvery == 0)
        messages << QByteArray("\r\n }}]\0 \xf0 \"", 11);
    if (has(hostilities, Hostility::Flood) && index % floodEvery == 0)
        messages << QList<QByteArray>(floodMessages, R"({"category":"heartbeat","statuscode":200})");
    return messages;
}
