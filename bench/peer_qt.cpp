// Qt's raster engine: QPainter on QImage. One painter lives as long as its row.
#include <QBrush>
#include <QColor>
#include <QGlyphRun>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPen>
#include <QRawFont>

#include <memory>

#include "library.h"

namespace bench {

namespace {

QImage Wrap(const Image& image, bool alpha) {
    const QImage::Format format = image.format == Format::k8     ? QImage::Format_Grayscale8
                                  : image.format == Format::k565 ? QImage::Format_RGB16
                                  : alpha ? QImage::Format_ARGB32_Premultiplied
                                          : QImage::Format_RGB32;
    return QImage(image.data, image.width, image.height, image.pitch, format);
}

/// An image and the painter on it; they must stay together at one address.
struct Canvas {
    explicit Canvas(const Image& target) : image(Wrap(target, false)), painter(&image) {}
    QImage image;
    QPainter painter;
};

/// Grey stands in for the colour on 8 bits: Qt weighs channels otherwise than the rest.
QColor InkColor(bool half, Format format) {
    const int opacity = half ? kHalf : 255;
    if (format == Format::k8) return QColor(GreyLevel(), GreyLevel(), GreyLevel(), opacity);
    return QColor(kRed, kGreen, kBlue, opacity);
}

QRect Target(const Spot& s) { return {s.x, s.y, s.width, s.height}; }
QRect Source(const Spot& s) { return {s.sourceX, s.sourceY, s.width, s.height}; }

Work MakeFill(Scene& scene, const Row& row) {
    const auto canvas = std::make_shared<Canvas>(scene.Target(row));
    const bool half = row.operation == Operation::kBlend;
    canvas->painter.setCompositionMode(half ? QPainter::CompositionMode_SourceOver
                                            : QPainter::CompositionMode_Source);
    return [canvas, color = InkColor(half, row.target), &spots = scene.Spots(row)] {
        for (const Spot& spot : spots)
            canvas->painter.fillRect(Target(spot), color);
    };
}

Work MakeBlit(Scene& scene, const Row& row) {
    const auto canvas = std::make_shared<Canvas>(scene.Target(row));
    const bool over = row.operation == Operation::kOver;
    const AlphaForm form = over ? AlphaForm::kPremultiplied : AlphaForm::kOpaque;
    canvas->painter.setCompositionMode(over ? QPainter::CompositionMode_SourceOver
                                            : QPainter::CompositionMode_Source);
    canvas->painter.setOpacity(row.opacity);
    return [canvas, source = Wrap(scene.Source(row, form), over), &spots = scene.Spots(row)] {
        for (const Spot& spot : spots)
            canvas->painter.drawImage(Target(spot), source, Source(spot));
    };
}

Work MakeTile(Scene& scene, const Row& row) {
    const auto canvas = std::make_shared<Canvas>(scene.Target(row));
    canvas->painter.setCompositionMode(QPainter::CompositionMode_Source);
    const QBrush brush(Wrap(scene.Source(row, AlphaForm::kOpaque), false));
    return [canvas, brush] { canvas->painter.fillRect(canvas->image.rect(), brush); };
}

Work MakeLines(Scene& scene, const Row& row) {
    const auto canvas = std::make_shared<Canvas>(scene.Target(row));
    QPen pen(InkColor(row.half, row.target), 1.0, Qt::SolidLine, Qt::FlatCap);
    if (row.dash) pen.setDashPattern({kDashOn, kDashOff});
    canvas->painter.setPen(pen);
    canvas->painter.setRenderHint(QPainter::Antialiasing, row.antialias);
    return [canvas, &lines = scene.Segments(row)] {
        for (const Segment& line : lines) {
            canvas->painter.drawLine(line.x0, line.y0, line.x1, line.y1);
        }
    };
}

QBrush GradientBrush(const Row& row) {
    const double middle = kShapeSurface / 2.0, half = row.shapeSize / 2.0;
    const auto filled = [](QGradient&& gradient) {
        gradient.setColorAt(0, InkColor(false, Format::k32));
        gradient.setColorAt(1, QColor::fromRgb(kGradientEnd));
        return QBrush(gradient);
    };
    if (row.shape == Shape::kRadial) return filled(QRadialGradient(middle, middle, half));
    return filled(QLinearGradient(middle - half, middle - half, middle + half, middle + half));
}

void DrawShape(QPainter& to, const Row& row) {
    const double size = row.shapeSize;
    const QPointF middle(kShapeSurface / 2.0, kShapeSurface / 2.0);
    switch (row.shape) {
        case Shape::kCircle:
        case Shape::kRing:
            return to.drawEllipse(middle, size, size);
        case Shape::kRoundRect:
            return to.drawRoundedRect(
                QRectF(middle.x() - size / 2, middle.y() - kRoundRectHeight / 2.0, size,
                       kRoundRectHeight),
                kCornerRadius, kCornerRadius);
        case Shape::kWideLine:
            return to.drawLine(QPointF(kLineStart, kLineStart), QPointF(kLineEndX, kLineEndY));
        default:
            return to.fillRect(QRectF(middle.x() - size / 2, middle.y() - size / 2, size, size),
                               GradientBrush(row));
    }
}

Work MakeShape(Scene& scene, const Row& row) {
    const auto canvas = std::make_shared<Canvas>(scene.Target(row));
    QPainter& painter = canvas->painter;
    const QColor ink = InkColor(false, row.target);
    const bool line = row.shape == Shape::kWideLine, ring = row.shape == Shape::kRing;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(ring ? QBrush(Qt::NoBrush) : QBrush(ink));
    painter.setPen(line || ring
                       ? QPen(ink, ring ? kRingWidth : row.shapeSize, Qt::SolidLine, Qt::FlatCap)
                       : QPen(Qt::NoPen));
    if (row.shape != Shape::kStar) return [canvas, row] { DrawShape(canvas->painter, row); };
    QPolygonF star;
    for (const Corner& corner : StarCorners(row.shapeSize))
        star << QPointF(corner.x, corner.y);
    return [canvas, star] { canvas->painter.drawPolygon(star, Qt::WindingFill); };
}

QGlyphRun GlyphRun(Scene& scene, const Row& row) {
    QList<quint32> indices;
    QList<QPointF> positions;
    for (const Glyph& glyph : scene.TextOf(row).glyphs) {
        indices.append(glyph.index);
        positions.append(QPointF(glyph.x, glyph.y));
    }
    QGlyphRun run;
    run.setRawFont(QRawFont(QString(scene.FontPath()), row.fontSize, QFont::PreferFullHinting));
    run.setGlyphIndexes(indices);
    run.setPositions(positions);
    return run;
}

Work MakeText(Scene& scene, const Row& row) {
    const auto canvas = std::make_shared<Canvas>(scene.Target(row));
    canvas->painter.setPen(InkColor(false, row.target));
    if (row.operation == Operation::kTextCold) {
        return [canvas, &scene, row] {
            canvas->painter.drawGlyphRun(QPointF(0, 0), GlyphRun(scene, row));
        };
    }
    return
        [canvas, run = GlyphRun(scene, row)] { canvas->painter.drawGlyphRun(QPointF(0, 0), run); };
}

Work MakePixels(Scene& scene, const Row& row) {
    const auto image = std::make_shared<QImage>(Wrap(scene.Target(row), false));
    const std::vector<Point>& points = scene.Points();
    if (row.operation == Operation::kPixelSet) {
        return [image, &points] {
            for (Point point : points)
                image->setPixel(point.x, point.y, 0xFF000000 | kColor);
        };
    }
    return [image, &points, &scene] {
        for (Point point : points)
            scene.sink += image->pixel(point.x, point.y) & 0xFFFFFF;
    };
}

Work Make(Scene& scene, const Row& row) {
    switch (row.operation) {
        case Operation::kFill:
        case Operation::kBlend:
            return MakeFill(scene, row);
        case Operation::kCopy:
        case Operation::kConvert:
        case Operation::kDisplay:
        case Operation::kOver:
            return MakeBlit(scene, row);
        case Operation::kTile:
            return MakeTile(scene, row);
        case Operation::kLine:
            return MakeLines(scene, row);
        case Operation::kShape:
            return MakeShape(scene, row);
        case Operation::kText:
        case Operation::kTextCold:
            return MakeText(scene, row);
        case Operation::kPixelSet:
        case Operation::kPixelGet:
            return MakePixels(scene, row);
        default:
            return {};
    }
}

}  // namespace

Library MakeQt(Scene& scene) {
    // Text wants an application; the platform without windows is enough. It lives to the end.
    static int count = 3;
    static char name[] = "bench", option[] = "-platform", value[] = "offscreen";
    static char* arguments[] = {name, option, value, nullptr};
    static QGuiApplication application(count, arguments);
    return {"qt6", [&scene](const Row& row) { return Make(scene, row); }};
}

}  // namespace bench
