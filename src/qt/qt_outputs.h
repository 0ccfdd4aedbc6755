#pragma once
// The clipboard and the picture file on Qt GUI alone, so tavlero-cli needs no widgets.
// Pictures are rendered from the canvas's display list on demand; a board too large to
// render is refused with a reason.

#include "platform/outputs.h"

namespace tavlero {

class QtClipboard : public Clipboard {
 public:
  void Clear() override;
  void SetText(const std::string& text) override;
  bool SetPicture(const Surface& canvas, std::string& error) override;
};

class QtPictureWriter : public PictureWriter {
 public:
  // BMP, or PNG for a path that ends in ".png".
  bool SavePicture(const Surface& canvas, const std::string& path, PictureFormat format,
                   std::string& error) override;
};

}  // namespace tavlero
