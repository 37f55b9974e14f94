// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

class QUrl;
class QWidget;

/// The page of the diagram in a web engine. The engine is a browser and large, so that it is in a library of its own,
/// which is loaded when the first diagram is shown.
class IChordPage {
public:
    enum class Loaded { Yes, No, WithoutScripts };

    virtual ~IChordPage() = default;
    virtual QWidget *widget() = 0;
    /// Waits until the page is there, or has failed.
    virtual Loaded load(const QUrl &page) = 0;
};

inline constexpr char chordPageLibrary[] = "vistrum_chord_page";
/// What the library has under the name `makeChordPageName`.
using MakeChordPage = void (*)(std::unique_ptr<IChordPage> &page);
inline constexpr char makeChordPageName[] = "vistrumMakeChordPage";
