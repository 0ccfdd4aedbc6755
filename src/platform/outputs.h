#pragma once
// The clipboard, pictures of the canvas and the printer. A picture is always made on
// demand from the canvas's retained display list.

#include <string>

namespace tavlero {

class Surface;

class Clipboard {
 public:
  virtual ~Clipboard() = default;
  virtual void Clear() = 0;
  virtual void SetText(const std::string& text) = 0;  // Windows-1252
  // Puts the whole retained picture of the canvas on the clipboard; on failure false and
  // a Norwegian reason in error.
  virtual bool SetPicture(const Surface& canvas, std::string& error) = 0;
};

// The menu always writes BMP, whatever the name; PNG is for the headless tool.
enum class PictureFormat { Bmp, Png };

class PictureWriter {
 public:
  virtual ~PictureWriter() = default;
  // Writes the whole retained picture of the canvas in the given format.
  virtual bool SavePicture(const Surface& canvas, const std::string& path, PictureFormat format,
                           std::string& error) = 0;
};

class Printer {
 public:
  virtual ~Printer() = default;
  // An image of main as the screen shows it, to the default printer.
  virtual bool PrintForm(std::string& error) = 0;
};

}  // namespace tavlero
