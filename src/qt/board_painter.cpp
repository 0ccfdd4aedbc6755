#include "qt/board_painter.h"

#include <QGuiApplication>
#include <QPalette>
#include <cmath>
#include <unordered_map>

#include "qt/qt_surface.h"

namespace tavlero {

namespace {
constexpr double kMaxImageSide = 16384;
constexpr double kMaxImageBytes = 256.0 * 1024 * 1024;

Qt::BrushStyle brushStyle(int16_t fillStyle) {
  switch (fillStyle) {
    case 0:
      return Qt::SolidPattern;
    case 2:
      return Qt::HorPattern;
    case 3:
      return Qt::VerPattern;
    case 4:
      return Qt::BDiagPattern;  // rising to the right
    case 5:
      return Qt::FDiagPattern;  // falling to the right
    case 6:
      return Qt::CrossPattern;
    case 7:
      return Qt::DiagCrossPattern;
    default:
      return Qt::NoBrush;  // 1 is transparent; other values mean nothing on this surface
  }
}

QPen outline(const DrawOp& op) {
  QPen pen(colourOf(op.foreColor), op.drawWidth < 1 ? 1 : op.drawWidth);
  // Dashes show only on a pen one pixel wide; a wider pen draws solid.
  pen.setStyle(op.drawStyle == 1 && op.drawWidth <= 1 ? Qt::DashLine : Qt::SolidLine);
  pen.setCapStyle(Qt::FlatCap);
  pen.setJoinStyle(Qt::MiterJoin);
  return pen;
}

struct PreparedFont {
  QFont font;
  double ascent;
};
}  // namespace

QColor colourOf(int32_t colour) {
  auto c = static_cast<uint32_t>(colour);
  return QColor(static_cast<int>(c & 0xFF), static_cast<int>((c >> 8) & 0xFF),
                static_cast<int>((c >> 16) & 0xFF));
}

QColor boardBackground() {
  return QGuiApplication::palette().color(QPalette::Window);
}

void paintBoard(QPainter& painter, const DisplayList& image, const BoardScale& scale, const QRectF& area) {
  BoardRect board{static_cast<float>(area.left() / scale.x), static_cast<float>(area.top() / scale.y),
                  static_cast<float>(area.right() / scale.x), static_cast<float>(area.bottom() / scale.y)};
  std::unordered_map<uint32_t, PreparedFont> fonts;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setBrushOrigin(0, 0);
  for (uint32_t index : image.query(board)) {
    const DrawOp& op = image.ops()[index];
    QPointF p1(op.x1 * scale.x, op.y1 * scale.y);
    switch (op.kind) {
      case DrawKind::Line:
        painter.setPen(outline(op));
        painter.drawLine(p1, QPointF(op.x2 * scale.x, op.y2 * scale.y));
        break;
      case DrawKind::Box:
        painter.setPen(outline(op));
        painter.setBrush(QBrush(colourOf(op.fillColor), brushStyle(op.fillStyle)));
        painter.drawRect(QRectF(p1, QPointF(op.x2 * scale.x, op.y2 * scale.y)).normalized());
        break;
      case DrawKind::Circle:
        painter.setPen(outline(op));
        painter.setBrush(QBrush(colourOf(op.fillColor), brushStyle(op.fillStyle)));
        painter.drawEllipse(p1, std::fabs(op.x2 * scale.x), std::fabs(op.x2 * scale.y));
        break;
      case DrawKind::Text: {
        auto found = fonts.find(op.font);
        if (found == fonts.end()) {
          QFont font = boardFont(image.font(op.font), scale.dpi, *painter.device());
          found = fonts.emplace(op.font, PreparedFont{font, QFontMetricsF(font, painter.device()).ascent()})
                      .first;
        }
        painter.setFont(found->second.font);
        painter.setPen(colourOf(op.foreColor));
        painter.drawText(QPointF(p1.x(), p1.y() + found->second.ascent),
                         fromCp1252(std::string(image.text(op.text))));
        break;
      }
    }
  }
  painter.restore();
}

QImage renderBoardImage(const Surface& canvas, QString* error) {
  auto* qt = dynamic_cast<const QtSurface*>(&canvas);
  double dpi = qt ? qt->dpi() : 96.0;
  double width = std::ceil(canvas.Width() * dpi / 25.4);
  double height = std::ceil(canvas.Height() * dpi / 25.4);
  width = width < 1 ? 1 : width;
  height = height < 1 ? 1 : height;
  if (!(width <= kMaxImageSide && height <= kMaxImageSide && width * height * 4 <= kMaxImageBytes)) {
    if (error) *error = QStringLiteral("Bildet av brettet er for stort til å lages.");
    return {};
  }
  QImage picture(static_cast<int>(width), static_cast<int>(height), QImage::Format_RGB32);
  if (picture.isNull()) {
    if (error) *error = QStringLiteral("Det er ikke nok minne til å lage bildet av brettet.");
    return {};
  }
  int dotsPerMeter = static_cast<int>(std::lround(dpi / 0.0254));
  picture.setDotsPerMeterX(dotsPerMeter);
  picture.setDotsPerMeterY(dotsPerMeter);
  picture.fill(boardBackground());
  QPainter painter(&picture);
  BoardScale scale{canvas.unitX() * dpi / 25.4, canvas.unitY() * dpi / 25.4, dpi};
  paintBoard(painter, canvas.Image(), scale, QRectF(0, 0, width, height));
  return picture;
}

}  // namespace tavlero
