#include "qt/qt_surface.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <cmath>
#include <initializer_list>

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

constexpr int32_t kUnknown = INT32_MIN;
constexpr int32_t kShaped = INT32_MIN + 1;  // a character that Qt must measure in its line

// Qt adds widths in 1/64 pixels, so a width it gives converts both ways exactly.
int32_t sixtyFourths(double pixels) {
  return static_cast<int32_t>(std::lround(pixels * 64));
}

// Big-endian numbers of a font table; reading past its end marks the reader failed, and a
// failed reader makes every answer below the careful one.
class TableReader {
 public:
  explicit TableReader(QByteArray table) : table_(std::move(table)) {}
  uint32_t u16(uint32_t at) {
    if (static_cast<qsizetype>(at) + 2 > table_.size()) {
      ok_ = false;
      return 0;
    }
    return static_cast<uint32_t>(static_cast<uint8_t>(table_[at]) << 8 |
                                 static_cast<uint8_t>(table_[at + 1]));
  }
  bool ok() const { return ok_; }

 private:
  QByteArray table_;
  bool ok_ = true;
};

// Whether every lookup of a GSUB or GPOS table is of an allowed kind; an extension lookup
// counts as the kind it wraps.
bool lookupsOnly(const QByteArray& table, uint32_t extension, std::initializer_list<uint32_t> allowed) {
  if (table.isEmpty()) return true;
  TableReader reader(table);
  const uint32_t list = reader.u16(8);
  const uint32_t count = reader.u16(list);
  for (uint32_t i = 0; i < count && reader.ok(); ++i) {
    const uint32_t lookup = list + reader.u16(list + 2 + 2 * i);
    uint32_t kind = reader.u16(lookup);
    if (kind == extension) kind = reader.u16(lookup + reader.u16(lookup + 6) + 2);
    if (std::find(allowed.begin(), allowed.end(), kind) == allowed.end()) return false;
  }
  return reader.ok();
}

// Whether an old kern table holds only pairs: the OpenType version with subtables of pair
// formats, across, without minimum or cross-stream values.
bool kernIsPairs(const QByteArray& table) {
  if (table.isEmpty()) return true;
  TableReader reader(table);
  if (reader.u16(0) != 0) return false;
  const uint32_t count = reader.u16(2);
  uint32_t at = 4;
  for (uint32_t i = 0; i < count && reader.ok(); ++i) {
    const uint32_t coverage = reader.u16(at + 4);
    const uint32_t format = coverage >> 8;
    if ((format != 0 && format != 2) || (coverage & 0x06) != 0) return false;
    at += reader.u16(at + 2);
  }
  return reader.ok();
}

// Whether the font's shaping goes pair by pair: substitutions of one glyph for one glyph,
// positioning of one glyph or a pair, and no tables of the other shaping systems.
bool shapesPairwise(const QRawFont& raw) {
  if (!raw.isValid()) return false;
  for (const char* table : {"morx", "mort", "kerx"})
    if (!raw.fontTable(table).isEmpty()) return false;
  return lookupsOnly(raw.fontTable("GSUB"), 7, {1}) && lookupsOnly(raw.fontTable("GPOS"), 9, {1, 2}) &&
         kernIsPairs(raw.fontTable("kern"));
}

// The characters that stand alone in a line: no control, tab or soft hyphen, no undefined byte.
bool plainCharacter(uint8_t byte) {
  if (byte < 0x20 || byte == 0x7F || byte == 0xAD) return false;
  return byte != 0x81 && byte != 0x8D && byte != 0x8F && byte != 0x90 && byte != 0x9D;
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
  // The fonts kept differ mostly in size, so the name is compared last.
  auto it = std::find_if(fonts_.begin(), fonts_.end(), [&](const MeasuredFont& f) {
    return f.fontSpec.Size == Font.Size && f.fontSpec.Bold == Font.Bold && f.fontSpec.Name == Font.Name;
  });
  if (it != fonts_.end()) return *it;
  if (fonts_.size() >= kFontCacheSize) fonts_.erase(fonts_.begin());
  const QFont font = boardFont(Font, dpi_, device_);
  MeasuredFont& added = fonts_.emplace_back(MeasuredFont{Font, QFontMetricsF(font, &device_)});
  added.primary = QRawFont::fromFont(font);
  added.pairwise = shapesPairwise(added.primary);
  if (added.pairwise) {
    added.advances.assign(256, kUnknown);
    added.kerning.assign(256 * 256, kUnknown);
  }
  return added;
}

bool QtSurface::addUp(MeasuredFont& font, std::string_view line, double& width) {
  int64_t sum = 0;
  int previous = -1;
  for (char c : line) {
    const auto byte = static_cast<uint8_t>(c);
    int32_t& advance = font.advances[byte];
    if (advance == kUnknown) {
      const QString text = fromCp1252(std::string(1, c));
      advance = plainCharacter(byte) && font.primary.supportsCharacter(text.front())
                    ? sixtyFourths(font.metrics.horizontalAdvance(text))
                    : kShaped;
    }
    if (advance == kShaped) return false;
    sum += advance;
    if (previous >= 0) {
      int32_t& kern = font.kerning[static_cast<size_t>(previous) * 256 + byte];
      if (kern == kUnknown) {
        const QString pair = fromCp1252(std::string{static_cast<char>(previous), c});
        kern = sixtyFourths(font.metrics.horizontalAdvance(pair)) -
               font.advances[static_cast<size_t>(previous)] - advance;
      }
      sum += kern;
    }
    previous = byte;
  }
  width = static_cast<double>(sum) / 64;
  return true;
}

double QtSurface::lineWidth(MeasuredFont& font, std::string_view line) {
  double width = 0;
  if (font.pairwise && addUp(font, line, width)) return width;
  auto it = font.widths.find(line);
  if (it != font.widths.end()) return it->second;
  if (font.widths.size() >= kWidthCacheSize) font.widths.clear();
  std::string key(line);
  width = font.metrics.horizontalAdvance(fromCp1252(key));
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
  return static_cast<float>(lines * measured().height / pixelsPerUnitY());
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
