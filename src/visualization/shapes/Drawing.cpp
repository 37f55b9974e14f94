// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/shapes/Drawing.h"

#include "base/TextFormat.h"

#include <QCryptographicHash>
#include <QStringList>

namespace {

QString numbers(std::initializer_list<double> values)
{
    QStringList texts;
    for (const double value : values)
        texts << text::general6(value);
    return texts.join(u' ');
}

QString styleText(const QPen &pen, const QBrush &brush)
{
    const QString fill = brush.style() == Qt::NoBrush ? QStringLiteral("none") : brush.color().name(QColor::HexArgb);
    return QStringLiteral(" pen %1 %2 brush %3").arg(pen.color().name(), text::general6(pen.widthF()), fill);
}

QString toolTipText(QString toolTip)
{
    return toolTip.isEmpty()
               ? QString()
               : QStringLiteral(" tip ") + toolTip.replace(QLatin1StringView("\r\n"), QLatin1StringView(" | "));
}

QString lineOf(const EllipseShape &shape)
{
    return QStringLiteral("ellipse %1 major %2 minor %3")
               .arg(numbers({double(shape.center.x()), double(shape.center.y())}),
                    numbers({shape.major.x(), shape.major.y()}), numbers({shape.minor.x(), shape.minor.y()})) +
           styleText(shape.pen, shape.brush) + toolTipText(shape.toolTip);
}

QString lineOf(const OvalShape &shape)
{
    const QRectF &rect = shape.rect;
    return QStringLiteral("oval ") + numbers({rect.x(), rect.y(), rect.width(), rect.height()}) +
           styleText(shape.pen, shape.brush) + toolTipText(shape.toolTip);
}

QString lineOf(const RasterShape &shape)
{
    const QByteArrayView bytes(shape.image.constBits(), shape.image.sizeInBytes());
    const QByteArray sum = QCryptographicHash::hash(bytes.toByteArray(), QCryptographicHash::Sha1).toHex();
    const QString place =
        shape.top.isNull() ? QString() : QStringLiteral(" at ") + numbers({shape.top.x(), shape.top.y()});
    return QStringLiteral("raster %1 %2 sha1 %3")
               .arg(shape.image.width())
               .arg(shape.image.height())
               .arg(QLatin1StringView(sum)) +
           place;
}

QString lineOf(const ArrowShape &shape)
{
    const QPoint from = shape.from;
    const QPoint to = shape.to;
    return QStringLiteral("arrow %1 %2 to %3 %4 ").arg(from.x()).arg(from.y()).arg(to.x()).arg(to.y()) +
           (shape.showTip ? QStringLiteral("pointed") : QStringLiteral("blunt")) + styleText(shape.pen, shape.brush) +
           toolTipText(shape.toolTip);
}

QString penStyleText(Qt::PenStyle style)
{
    switch (style) {
    case Qt::SolidLine:
        return QStringLiteral("solid");
    case Qt::DashLine:
        return QStringLiteral("dashed");
    case Qt::DotLine:
        return QStringLiteral("dotted");
    default:
        return QStringLiteral("style %1").arg(static_cast<int>(style));
    }
}

QString lineOf(const LineShape &shape)
{
    return QStringLiteral("line %1 to %2 pen %3 %4 %5")
               .arg(numbers({shape.line.x1(), shape.line.y1()}), numbers({shape.line.x2(), shape.line.y2()}),
                    shape.pen.color().name(QColor::HexArgb), text::general6(shape.pen.widthF()),
                    penStyleText(shape.pen.style())) +
           toolTipText(shape.toolTip);
}

QString lineOf(const TextShape &shape)
{
    constexpr const char *anchors[] = {"", "middle ", "beside ", "center "};
    const QLatin1StringView place(anchors[static_cast<std::size_t>(shape.anchor)]);
    return QStringLiteral("text ") + place +
           QStringLiteral("%1 %2 font %3 %4 reads %5")
               .arg(numbers({shape.top.x(), shape.top.y()}), shape.color.name(), shape.font.family())
               .arg(shape.font.pointSize())
               .arg(shape.text);
}

QString vertices(const QPolygonF &polygon)
{
    QStringList texts;
    for (const QPointF &vertex : polygon)
        texts << numbers({vertex.x(), vertex.y()});
    return texts.join(u' ');
}

QString lineOf(const PolygonShape &shape)
{
    const QString text = QStringLiteral("polygon ") + vertices(shape.polygon) + styleText(shape.pen, shape.brush) +
                         toolTipText(shape.toolTip);
    return shape.shownOnArea ? text + QStringLiteral(" shown on area %1").arg(*shape.shownOnArea) : text;
}

QString lineOf(const AreaShape &shape)
{
    return QStringLiteral("area %1 ").arg(shape.index) + vertices(shape.polygon) + styleText(shape.pen, shape.brush) +
           toolTipText(shape.toolTip);
}

} // namespace

QRectF squareAround(QPoint center, int diameter)
{
    const int radius = diameter / 2;
    return {center.toPointF() - QPointF(radius, radius), QSizeF(diameter, diameter)};
}

void addToolTipLine(Drawing &drawing, const QString &line)
{
    const auto add = [&](auto &shape) {
        if constexpr (requires { shape.toolTip; }) {
            if (!shape.toolTip.isEmpty())
                shape.toolTip += QStringLiteral("\r\n") + line;
        }
    };
    for (Shape &shape : drawing)
        std::visit(add, shape);
}

QString toText(const Drawing &drawing)
{
    QString lines;
    for (const Shape &shape : drawing)
        lines += std::visit([](const auto &kind) { return lineOf(kind); }, shape) + u'\n';
    return lines;
}
