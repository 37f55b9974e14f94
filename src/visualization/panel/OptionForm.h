// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "visualization/modes/ModeLayout.h"

#include <vector>

class QFormLayout;
class QSpinBox;
class QWidget;

namespace Ui {
class VisualizationWidget;
}

/// Which widgets of a drawing panel make up an option, and how they are shown and hidden.
class OptionForm {
public:
    /// The form is to outlive this object.
    explicit OptionForm(const Ui::VisualizationWidget &form);

    /// Hides every option and shows those of the layout, with their captions, suffixes and ranges. No number changes
    /// its value but by its range, and none of them signals it.
    void show(const QList<ShownOption> &layout);

    /// The spin box of an option; null where it has none.
    QSpinBox *number(DrawingOption option) const { return controls(option).number; }

private:
    struct Controls {
        QList<QWidget *> widgets;
        QWidget *caption = nullptr; ///< label, button or group box; null where the caption never changes
        QSpinBox *number = nullptr; ///< where its range or suffix changes
    };

    const Controls &controls(DrawingOption option) const { return m_controls[static_cast<std::size_t>(option)]; }
    void set(DrawingOption option, const Controls &controls);
    void listFields(const Ui::VisualizationWidget &form);
    void listButtons(const Ui::VisualizationWidget &form);
    void listBoxes(const Ui::VisualizationWidget &form);
    void setShown(const Controls &controls, bool shown);
    void dress(const ShownOption &option);

    std::vector<Controls> m_controls; ///< the index is the option
    QFormLayout *m_fields;            ///< its rows vanish as a whole, with the space between them
    QWidget *m_colors;                ///< a frame that is shown if anything in it is
};
