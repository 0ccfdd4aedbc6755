#pragma once
// The canvas on Qt: text measured with the machine's real fonts, and a listener (the
// canvas widget) told of every change. It needs no widget, so the headless tool and
// the tests draw on it under the offscreen platform.

#include <QFont>
#include <QFontMetricsF>
#include <QPaintDevice>
#include <QRawFont>
#include <QString>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/surface.h"

namespace tavlero {

// The widget that shows a surface; told of every change so it can follow.
class SurfaceListener {
 public:
  virtual void surfaceGeometryChanged() = 0;
  virtual void surfaceImageCleared() = 0;
  virtual void surfaceImageAdded(const BoardRect& bounds) = 0;
  virtual void surfaceFocusRequested() = 0;

 protected:
  ~SurfaceListener() = default;
};

// Windows-1252 text of the logic as a QString.
QString fromCp1252(const std::string& text);

// A font of the board at a device: Size points at dpi, whatever the device's own
// resolution, so that measuring and painting agree on every device.
QFont boardFont(const FontSpec& fontSpec, double dpi, const QPaintDevice& device);

class QtSurface : public Surface {
 public:
  // The logical resolution of the primary screen; 96 without one.
  static double screenDpi();

  explicit QtSurface(double dpi = screenDpi());
  ~QtSurface() override;

  double dpi() const { return dpi_; }
  // Pixels per board unit across and down.
  double pixelsPerUnitX() const { return unitX() * dpi_ / 25.4; }
  double pixelsPerUnitY() const { return unitY() * dpi_ / 25.4; }
  double mmToPixels(double mm) const { return mm * dpi_ / 25.4; }

  void setListener(SurfaceListener* listener) { listener_ = listener; }

  float TextWidth(const std::string& text) override;
  float TextHeight(const std::string& text) override;
  void SetFocus() override;

 protected:
  void geometryChanged() override;
  void imageCleared() override;
  void imageAdded(const BoardRect& bounds) override;

 private:
  // A paint device that only reports the resolution, for measuring without a screen.
  class MeasureDevice : public QPaintDevice {
   public:
    explicit MeasureDevice(int dpi) : dpi_(dpi) {}
    QPaintEngine* paintEngine() const override { return nullptr; }

   protected:
    int metric(PaintDeviceMetric metric) const override;

   private:
    int dpi_;
  };
  // Looks a line up by its view, so that a hit costs no copy of the text.
  struct LineHash {
    using is_transparent = void;
    size_t operator()(std::string_view line) const { return std::hash<std::string_view>()(line); }
  };
  struct MeasuredFont {
    FontSpec fontSpec;
    QFontMetricsF metrics;
    double height = metrics.height();  // pixels
    // Whether the font's shaping of Windows-1252 text is pairwise: no substitution but of
    // one glyph for another, no positioning but of one glyph or a pair. A line's width is
    // then the sum of its characters' advances and of each neighbouring pair's kerning,
    // exactly, as Qt adds them in 1/64 pixels.
    bool pairwise = false;
    // The font's own glyphs: a character that another font stands in for needs Qt.
    QRawFont primary{};
    std::vector<int32_t> advances{};  // per byte, 1/64 pixels; kUnknown or kShaped
    std::vector<int32_t> kerning{};   // per pair of bytes, first * 256 + second
    // A redraw measures the same texts again and again; shaping them is the cost.
    std::unordered_map<std::string, double, LineHash, std::equal_to<>> widths{};  // pixels
  };
  MeasuredFont& measured();
  double lineWidth(MeasuredFont& font, std::string_view line);
  // The width of a line in a pairwise font; false when one of its characters needs Qt.
  static bool addUp(MeasuredFont& font, std::string_view line, double& width);

  double dpi_;
  MeasureDevice device_;
  std::vector<MeasuredFont> fonts_;
  SurfaceListener* listener_ = nullptr;
};

}  // namespace tavlero
