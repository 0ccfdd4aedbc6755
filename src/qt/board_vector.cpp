#include "qt/board_vector.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <algorithm>
#include <cmath>
#include <memory>

#include "files/save_file.h"
#include "qt/board_painter.h"
#include "qt/qt_surface.h"

namespace tavlero {

namespace {

// A PDF page may be at most 14,400 points (200 inches) on a side; a larger board is drawn
// smaller on one page rather than refused.
constexpr double kPdfMaxSideMm = 14400.0 / 72.0 * 25.4;
// The PDF is painted at a fine resolution, so that even a much reduced board keeps its
// texts large enough in device pixels for Qt to draw them.
constexpr int kPdfDpi = 1200;

// Paints the whole board at dpi device pixels per inch, on a device of widthMm x heightMm.
bool paintWhole(QPaintDevice& device, const Surface& canvas, double dpi, double widthMm, double heightMm) {
  QPainter painter;
  if (!painter.begin(&device)) return false;
  const QRectF area(0, 0, std::ceil(widthMm * dpi / 25.4), std::ceil(heightMm * dpi / 25.4));
  painter.fillRect(area, boardBackground());
  BoardScale scale{canvas.unitX() * dpi / 25.4, canvas.unitY() * dpi / 25.4, dpi};
  paintBoard(painter, canvas.Image(), scale, area);
  return painter.end();
}

}  // namespace

bool saveVectorPicture(const Surface& canvas, VectorFormat format, const std::string& path,
                       std::string& error) {
  auto* qt = dynamic_cast<const QtSurface*>(&canvas);
  const double dpi = qt ? qt->dpi() : 96.0;
  const double widthMm = std::max(canvas.Width(), 1.0f);
  const double heightMm = std::max(canvas.Height(), 1.0f);
  // The picture is made in memory, where it grows with what is drawn and not with the
  // board's area, and then goes through the one save routine like every file we write.
  QByteArray bytes;
  QBuffer file(&bytes);
  file.open(QIODevice::WriteOnly);
  bool painted = false;
  if (format == VectorFormat::Svg) {
    QSvgGenerator svg;
    svg.setOutputDevice(&file);
    svg.setResolution(static_cast<int>(std::lround(dpi)));
    const QSize size(static_cast<int>(std::ceil(widthMm * dpi / 25.4)),
                     static_cast<int>(std::ceil(heightMm * dpi / 25.4)));
    svg.setSize(size);
    svg.setViewBox(QRect(QPoint(0, 0), size));
    svg.setTitle(QStringLiteral("Tavlero"));
    painted = paintWhole(svg, canvas, dpi, widthMm, heightMm);
  } else {
    const double shrink = std::min(1.0, kPdfMaxSideMm / std::max(widthMm, heightMm));
    QPdfWriter pdf(&file);
    pdf.setCreator(QStringLiteral("Tavlero"));
    pdf.setResolution(kPdfDpi);
    pdf.setPageMargins(QMarginsF(0, 0, 0, 0));
    pdf.setPageSize(QPageSize(QSizeF(widthMm * shrink, heightMm * shrink), QPageSize::Millimeter,
                              QStringLiteral("Brett"), QPageSize::ExactMatch));
    painted = paintWhole(pdf, canvas, kPdfDpi * shrink, widthMm, heightMm);
  }
  if (!painted) {
    error = "Bildet kunne ikke lages.";
    return false;
  }
  return saveFileAtomically(path, std::string_view(bytes.constData(), static_cast<size_t>(bytes.size())),
                            error);
}

}  // namespace tavlero
