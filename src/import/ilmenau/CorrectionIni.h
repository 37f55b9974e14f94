// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/ilmenau/MillimetreImport.h"

/// What a correction ini says: a measured recording, its corrected form, their stimulus, and the pairs of ellipses that
/// the correction rests on.
struct CorrectionIni {
    bool operator==(const CorrectionIni &) const = default;

    /// Whether it names all that the two recordings need.
    bool isComplete() const;
    /// The measured recording and the corrected one.
    QList<MillimetreRecording> recordings() const;

    QString measuredPath;
    QString correctedPath;
    MillimetreStimulus stimulus;
    QStringList ellipseLines; ///< between the two markers, the line of names included
};

/// Reads a correction ini: lines in any order, each known by a marker that it holds; what is left when the marker is
/// cut out is the value, without blanks around it. A number that is none counts as 0. Of several values the last one
/// counts. Text is UTF-8, or Latin-1 where that is not valid; in the paths of the recordings "\\" and "/" separate
/// alike.
CorrectionIni parseCorrectionIni(QByteArrayView bytes);

/// The same for a file; nothing where it cannot be read.
/// @param problem  gets the reason then.
std::optional<CorrectionIni> readCorrectionIni(const QString &path, QString &problem);

/// The same; the user is told why it cannot be read.
std::optional<CorrectionIni> openCorrectionIni(const QString &path);

/// What is missing in one that is not complete, in words for the user.
QString missingEntries(const CorrectionIni &ini);

/// The text of a correction ini, which reads as the same record.
QString correctionIniText(const CorrectionIni &ini);

/// The line of names that stands before the lines of ellipses.
QString ellipseHeader();
