#include "qt/qt_surface.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <cmath>

#include "core/cp1252.h"

namespace tavlero {

namespace {
// Two fonts at each of the five zoom levels, so a zoom back to a level seen before
// measures nothing again.
constexpr size_t kFontCacheSize = 10;
constexpr size_t kWidthCacheSize = 1 << 17;

// The lines of a text: a line ends at CR LF, CR or LF.
template <typename Visit>
void forEachLine(const std::string& text, Visit visit) {
  size_t start = 0;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\r' && text[i] != '\n') continue;
    visit(std::string_view(text).substr(start, i - start));
    if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
    start = i + 1;
  }
  visit(std::string_view(text).substr(start));
}
}  // namespace

QString fromCp1252(const std::string& text) {
  return QString::fromStdString(cp1252ToUtf8(text));
}

QFont boardFont(const FontSpec& fontSpec, double dpi, const QPaintDevice& device) {
  QFont font(fromCp1252(fontSpec.Name));
  font.setStyleHint(QFont::SansSerif);
  font.setBold(fontSpec.Bold);
  double size = std::isfinite(fontSpec.Size) && fontSpec.Size > 0 ? fontSpec.Size : 1.0;
  // Qt turns points into pixels with the device's resolution; correct for it.
  font.setPointSizeF(std::clamp(size * dpi / device.logicalDpiY(), 0.1, 4000.0));
  return font;
}

double QtSurface::screenDpi() {
  if (auto* app = qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
    if (QScreen* screen = app->primaryScreen()) return screen->logicalDotsPerInchY();
  return 96.0;
}

QtSurface::QtSurface(double dpi)
    : dpi_(std::isfinite(dpi) && dpi >= 1 ? dpi : 96.0), device_(static_cast<int>(std::lround(dpi_))) {}

QtSurface::~QtSurface() = default;

int QtSurface::MeasureDevice::metric(PaintDeviceMetric metric) const {
  switch (metric) {
    case PdmDpiX:
    case PdmDpiY:
    case PdmPhysicalDpiX:
    case PdmPhysicalDpiY:
      return dpi_;
    case PdmDevicePixelRatio:
      return 1;
    case PdmDevicePixelRatioScaled:
      return static_cast<int>(devicePixelRatioFScale());
    case PdmDepth:
      return 32;
    default:
      return 1;
  }
}

QtSurface::MeasuredFont& QtSurface::measured() {
  // Cells switch between two fonts all the time; building metrics is costly.
  auto it =
      std::find_if(fonts_.begin(), fonts_.end(), [&](const MeasuredFont& f) { return f.fontSpec == Font; });
  if (it != fonts_.end()) return *it;
  if (fonts_.size() >= kFontCacheSize) fonts_.erase(fonts_.begin());
  fonts_.push_back({Font, QFontMetricsF(boardFont(Font, dpi_, device_), &device_), {}});
  return fonts_.back();
}

double QtSurface::lineWidth(MeasuredFont& font, std::string_view line) {
  auto it = font.widths.find(line);
  if (it != font.widths.end()) return it->second;
  if (font.widths.size() >= kWidthCacheSize) font.widths.clear();
  std::string key(line);
  double width = font.metrics.horizontalAdvance(fromCp1252(key));
  font.widths.emplace(std::move(key), width);
  return width;
}

float QtSurface::TextWidth(const std::string& text) {
  MeasuredFont& font = measured();
  double widest = 0;
  forEachLine(text, [&](std::string_view line) { widest = std::max(widest, lineWidth(font, line)); });
  return static_cast<float>(widest / pixelsPerUnitX());
}

float QtSurface::TextHeight(const std::string& text) {
  int lines = 0;
  forEachLine(text, [&](std::string_view) { ++lines; });
  return static_cast<float>(lines * measured().metrics.height() / pixelsPerUnitY());
}

void QtSurface::SetFocus() {
  if (listener_) listener_->surfaceFocusRequested();
}

void QtSurface::geometryChanged() {
  if (listener_) listener_->surfaceGeometryChanged();
}

void QtSurface::imageCleared() {
  if (listener_) listener_->surfaceImageCleared();
}

void QtSurface::imageAdded(const BoardRect& bounds) {
  if (listener_) listener_->surfaceImageAdded(bounds);
}

}  // namespace tavlero
