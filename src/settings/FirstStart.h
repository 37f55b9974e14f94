// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1StringView>
#include <QString>

/// Marks the factory values of this program; another one in the store means a first start or an older program.
inline constexpr QLatin1StringView settingsVersion{"2014r3.1"};

/// At the first start of a version the factory values replace those in the store, keys are added where they lack, and
/// the dialog for recordings will open in the folder of examples where there is one.
///
/// @param factoryFile  a settings file with every key of the program. If it cannot be opened the user is warned, and
///                     the version is noted all the same: an unfinished installation does not ask at every start.
/// @return whether this was such a start.
bool applyFactorySettings(const QString &factoryFile, const QString &examplesFolder);

/// Where a file that is shipped with the program lies: in `data/` beside the program, in the installed data folder
/// `../share/vistrum/`, or in the source tree.
///
/// @return the first of these that exists; if there is none, the place beside the program, so that a message can name
///         it.
QString findDataFile(const QString &name, const QString &programFolder);

/// Where a page of the documentation lies, such as "README.md" or "docs/validation.md": in the installed folder
/// `../share/doc/Vistrum/`, or in the source tree; empty where there is none.
QString findDocumentation(const QString &name, const QString &programFolder);

/// The folder of the example study, sought beside the program, in the installed data folder and in the source tree;
/// empty where there is none.
QString findExamplesFolder(const QString &programFolder);
