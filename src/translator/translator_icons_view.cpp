#include "translator/translator_icons_view.h"

#include <QIconEngine>
#include <QPainter>

#include <array>

namespace {

constexpr qreal Side = 16; ///< of the square in which the pictures are drawn
constexpr qreal DisabledOpacity = 0.4;

/// What stands on the plate of a picture, in the square of Side.
using Glyph = void (*)(QPainter& painter);

void DrawLines(QPainter& painter, std::initializer_list<QPolygonF> lines) {
    for (const QPolygonF& line : lines)
        painter.drawPolyline(line);
}

void DrawCommandRcv(QPainter& painter) {
    DrawLines(painter, {{{8, 3.4}, {8, 9.2}}, {{5.2, 6.6}, {8, 9.4}, {10.8, 6.6}}});
    DrawLines(painter, {{{3.6, 9.6}, {3.6, 12.6}, {12.4, 12.6}, {12.4, 9.6}}});
}

void DrawCommandSnd(QPainter& painter) {
    DrawLines(painter, {{{3.6, 8}, {11.6, 8}}, {{8.6, 4.6}, {12.2, 8}, {8.6, 11.4}}});
}

void DrawConfig(QPainter& painter) {
    painter.drawEllipse(QPointF(8, 8), 2.7, 2.7);
    for (int tooth = 0; tooth < 8; ++tooth) {
        painter.save();
        painter.translate(8, 8);
        painter.rotate(45.0 * tooth);
        painter.drawLine(QPointF(0, -3.6), QPointF(0, -4.9));
        painter.restore();
    }
}

void DrawRemote(QPainter& painter) {
    painter.drawRoundedRect(QRectF(5.1, 2.8, 5.8, 10.4), 1.6, 1.6);
    painter.drawPoint(QPointF(8, 5.4));
    for (const qreal y : {8.2, 10.6}) {
        painter.drawPoint(QPointF(7, y));
        painter.drawPoint(QPointF(9, y));
    }
}

void DrawVolumemacro(QPainter& painter) {
    DrawLines(painter, {{{4, 4.4}, {7.6, 8}, {4, 11.6}}, {{8.4, 4.4}, {12, 8}, {8.4, 11.6}}});
}

void DrawMacro(QPainter& painter) {
    for (const qreal y : {4.6, 8.0, 11.4}) {
        painter.drawPoint(QPointF(4, y));
        painter.drawLine(QPointF(6.8, y), QPointF(12.2, y));
    }
}

void DrawGroup(QPainter& painter) {
    painter.drawPolygon(
        QPolygonF({{3.2, 12.2}, {3.2, 4.2}, {6.6, 4.2}, {8, 5.8}, {12.8, 5.8}, {12.8, 12.2}}));
}

void DrawMulti(QPainter& painter) {
    painter.drawPolygon(QPolygonF({{8, 3.2}, {12.6, 8}, {10, 8}, {10, 12.6}, {6, 12.6}, {6, 8}, {3.4, 8}}));
}

void DrawToggle(QPainter& painter) {
    painter.drawRoundedRect(QRectF(2.9, 4.9, 10.2, 6.2), 3.1, 3.1);
    painter.setBrush(painter.pen().color());
    painter.drawEllipse(QPointF(9.9, 8), 1.3, 1.3);
}

/// The plates are of middling lightness, so that they stand out from white as well as from black, and so does
/// the white glyph from them, also where a selection shines in their colour.
struct Picture {
    QStringView key;
    QRgb plate;
    Glyph glyph;
};

constexpr std::array<Picture, 9> Pictures = {{
    {u"CommandRcv", 0xFF2E8B57, DrawCommandRcv},
    {u"CommandSnd", 0xFFC8622A, DrawCommandSnd},
    {u"Config", 0xFF6B7785, DrawConfig},
    {u"Remote", 0xFF3B78C4, DrawRemote},
    {u"Volumemacro", 0xFF1F8A94, DrawVolumemacro},
    {u"Macro", 0xFF8A5FC0, DrawMacro},
    {u"Group", 0xFFA07A1E, DrawGroup},
    {u"Multi", 0xFFC04B7C, DrawMulti},
    {u"Toggle", 0xFF7C8A2A, DrawToggle},
}};

class PictureEngine : public QIconEngine {
public:
    explicit PictureEngine(const Picture& picture)
        : picture(picture) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State /*state*/) override {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        if (mode == QIcon::Disabled)
            painter->setOpacity(painter->opacity() * DisabledOpacity);
        const qreal side = qMin(rect.width(), rect.height());
        painter->translate(QRectF(rect).center() - QPointF(side, side) / 2);
        painter->scale(side / Side, side / Side);
        painter->setPen(Qt::NoPen);
        painter->setBrush(QColor(picture.plate));
        painter->drawRoundedRect(QRectF(0.5, 0.5, Side - 1, Side - 1), 3.5, 3.5);
        painter->setPen(QPen(Qt::white, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->setBrush(Qt::NoBrush);
        picture.glyph(*painter);
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, pixmap.rect(), mode, state);
        return pixmap;
    }

    QIconEngine* clone() const override { return new PictureEngine(picture); }

private:
    Picture picture;
};

} // namespace

QHash<QString, QIcon> MakeTranslatorImages() {
    QHash<QString, QIcon> images;
    for (const Picture& picture : Pictures)
        images.insert(picture.key.toString(), QIcon(new PictureEngine(picture)));
    return images;
}
