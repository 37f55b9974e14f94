// SPDX-License-Identifier: GPL-3.0-or-later
// Compiled once for the libraries without widgets; see Modules.cmake.
#pragma once

#include <QByteArray>
#include <QColor>
#include <QCoreApplication>
#include <QDebug>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QImage>
#include <QJsonDocument>
#include <QList>
#include <QMap>
#include <QPainter>
#include <QPointF>
#include <QPolygon>
#include <QSettings>
#include <QString>
#include <QStringBuilder>
#include <QStringList>
#include <QTextStream>
#include <QUndoCommand>
#include <QVariant>
#include <QVector2D>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <map>
#include <memory>
#include <numeric>
#include <optional>
#include <span>
#include <variant>
#include <vector>
