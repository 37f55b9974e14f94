// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1StringView>
#include <QString>

/// What a methods section cites.
enum class Source {
    Anderson2013,
    Cliff1993,
    ComaniciuMeer2002,
    Cristino2010,
    CrosslandRubin2002,
    Dempster1977,
    EfronTibshirani1993,
    Holm1979,
    Holmqvist2011,
    Holmqvist2012,
    Jarodzka2010,
    Krejtz2015,
    NeedlemanWunsch1970,
    Niehorster2020,
    PhipsonSmyth2010,
    SakoeChiba1978,
    SalvucciGoldberg2000,
    Vistrum
};

/// As it stands in the text within parentheses, such as "Holm, 1979".
QString citation(Source source);

/// As it stands in the list of references.
///
/// @param release  of Vistrum, for its own entry; what follows a space, as the commit, is left out there.
QString reference(Source source, const QString &release);
