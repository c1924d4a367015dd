// The printer as the reports see it. Positions and sizes are twips (1/1440 inch) from the top-left corner of a page's
// printable area.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace mr4500x {

// Of the family "Arial".
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
  [[nodiscard]] virtual double TextHeight(const PrintFont& font) const = 0; // of a line, without leading
};

// A job goes from BeginJob to EndJob or AbandonJob. What can fail answers with the system's description, else nothing.
class Printer : public TextMeasure {
public:
  [[nodiscard]] virtual std::optional<std::string> BeginJob(const std::string& title) = 0; // with its first page
  [[nodiscard]] virtual PrintArea Area() const = 0;
  [[nodiscard]] virtual std::optional<std::string> NewPage() = 0;
  virtual void SetScale(double scale) = 0; // of what follows on the page: 1 for positions as they are
  virtual void PrintText(double x, double y, const PrintFont& font, std::string_view text) = 0; // y: the line's top
  virtual void PrintLine(double x1, double y1, double x2, double y2, double thickness) = 0;
  [[nodiscard]] virtual std::optional<std::string> EndJob() = 0; // sends the job
  virtual void AbandonJob() = 0;                                 // nothing of the job is printed
};

// The desktop's printers.
class Printers {
public:
  virtual ~Printers() = default;
  // The one that the user has set up, else the system's default. Where there is none, its BeginJob tells so.
  [[nodiscard]] virtual std::unique_ptr<Printer> CurrentPrinter() = 0;
  // The desktop's dialog in which the user chooses and sets up the printer; cancelling changes nothing. The paper is
  // A4, portrait, whatever was chosen.
  virtual void SetUpPrinter(const std::string& title) = 0;
};

} // namespace mr4500x
