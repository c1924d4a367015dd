// The printer for the reports. Positions and sizes are in twips (1/1440 inch), from the top left corner of the page's
// printable area.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace mr4500x {

// Always Arial.
struct PrintFont {
  int points = 8;
  bool bold = false;
  bool underlined = false;
  bool operator==(const PrintFont&) const = default;
};

struct PrintArea {
  double width = 0;
  double height = 0;
};

// Texts are UTF-8, one line each.
class TextMeasure {
public:
  virtual ~TextMeasure() = default;
  [[nodiscard]] virtual double TextWidth(std::string_view text, const PrintFont& font) const = 0;
  [[nodiscard]] virtual double TextHeight(const PrintFont& font) const = 0; // height of one line, without leading
};

// A job runs from BeginJob to EndJob or AbandonJob. Calls that can fail return a description of the error, or nullopt.
class Printer : public TextMeasure {
public:
  [[nodiscard]] virtual std::optional<std::string>
  BeginJob(const std::string& title) = 0; // begins the job and its first page
  [[nodiscard]] virtual PrintArea Area() const = 0;
  [[nodiscard]] virtual std::optional<std::string> NewPage() = 0;
  virtual void SetScale(double scale) = 0; // for the rest of the page; 1 is unscaled
  virtual void PrintText(double x, double y, const PrintFont& font, std::string_view text) = 0; // y: top of the line
  virtual void PrintLine(double x1, double y1, double x2, double y2, double thickness) = 0;
  [[nodiscard]] virtual std::optional<std::string> EndJob() = 0; // sends the job
  virtual void AbandonJob() = 0;                                 // prints nothing
};

class Printers {
public:
  virtual ~Printers() = default;
  // The printer that the user set up, otherwise the system's default printer, otherwise the PDF file. Follows PdfFile.
  [[nodiscard]] virtual std::unique_ptr<Printer> CurrentPrinter() = 0;
  // Opens the printer dialog; cancelling it changes nothing. The paper stays A4 portrait, whatever the user chooses.
  virtual void SetUpPrinter(const std::string& title) = 0;
  // Has a value if jobs go to a PDF file, because there is no printer or the user has chosen a file: the file's name,
  // or "" until it has one.
  [[nodiscard]] virtual std::optional<std::string> PdfFile() = 0;
  virtual void SetPdfFile(const std::string& path) = 0; // only where PdfFile has a value
};

} // namespace mr4500x
