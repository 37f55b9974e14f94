// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "aoi/saliency/Saliency.h"

#include <optional>

/// The saliency of the picture that is shown, in grey and of its size. A redraw asks for it each time: it is computed
/// anew only if picture, method or numbers are others than the last time.
class SaliencyOverlay {
public:
    /// @return a null image for a picture without pixels, and when stopped.
    QImage image(SaliencyMethod method, const QImage &picture, const SaliencyNumbers &numbers,
                 const std::stop_token &stop = {});

private:
    struct Input {
        SaliencyMethod method;
        QImage picture;
        SaliencyNumbers numbers;

        bool operator==(const Input &) const = default;
    };

    std::optional<Input> m_input; ///< of the image; none before the first one
    QImage m_image;
};
