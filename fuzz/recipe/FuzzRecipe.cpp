// SPDX-License-Identifier: GPL-3.0-or-later
// Bytes of any kind as a recipe. One that is read comes back unchanged when it is saved; one that is refused says why.

#include "Check.h"
#include "recipe/Recipe.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    const auto read = recipe::read(QByteArray(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)));
    if (const auto *problem = std::get_if<QString>(&read)) {
        check(!problem->isEmpty());
        return 0;
    }
    const QByteArray saved = recipe::toBytes(std::get<recipe::Recipe>(read));
    const auto again = recipe::read(saved);
    check(std::holds_alternative<recipe::Recipe>(again));
    check(recipe::toBytes(std::get<recipe::Recipe>(again)) == saved);
    return 0;
}
