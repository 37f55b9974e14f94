// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QGraphicsView;

/// Lets the view draw through OpenGL, multisampled. Where the platform has none, or offers it without being able to,
/// the view keeps its own viewport: the picture is the same.
void useOpenGlViewport(QGraphicsView &view);
