// The reports as PDF files, read back with poppler's tools: the pages as pictures.
#include "file_access.h"
#include "files_fixture.h"
#include "page_printer.h"
#include "pdf_printer.h"
#include "report_fixture.h"
#include "report_pages.h"

#include <QImage>
#include <QPdfWriter>

#include <gtest/gtest.h>

namespace mr4500x {
namespace {

constexpr char16_t Embedded[] = u"Channels of the fire brigade \u0431\r\nValid to 2027";

class PdfPrinterTest : public FilesTest {
protected:
  PdfPrinter MakePrinter() {
    const std::string path = Path("out.pdf");
    return {path, [this, path](auto content) { return ReplaceFile(files, path, content, Surplus::Drop); }};
  }
  std::optional<std::string> Print(const Configuration& values, std::u16string_view text, ReportChoice choice) {
    PdfPrinter printer = MakePrinter();
    return PrintReports(printer, TextsOf(values, text), choice);
  }
};

struct OnePage final : QPdfWriter {
  using QPdfWriter::QPdfWriter;
  bool newPage() override { return false; }
};

struct OnePagePrinter final : PagePrinter {
  std::optional<std::string> BeginJob(const std::string& title) override {
    return BeginOn(page) ? std::nullopt : std::optional(title);
  }
  std::optional<std::string> EndJob() override { return std::nullopt; }
  void AbandonJob() override { EXPECT_TRUE(EndPainting()); }
  OnePage page{QStringLiteral("/dev/null")};
};

// The greatest difference in mean grey, of 255, between the pictures' squares. A missing or moved short text makes a
// larger difference than another way of smoothing edges.
double Difference(const QImage& one, const QImage& other) {
  constexpr int side = 8; // pixels: 4 mm
  double most = 0;
  for (int top = 0; top < one.height(); top += side)
    for (int left = 0; left < one.width(); left += side) {
      int sum = 0;
      for (int y = top; y < std::min(top + side, one.height()); ++y)
        for (int x = left; x < std::min(left + side, one.width()); ++x)
          sum += qGray(one.pixel(x, y)) - qGray(other.pixel(x, y));
      most = std::max(most, std::abs(sum) / double(side * side));
    }
  return most;
}

// Small pictures in grey. To renew them, copy what pdftoppm makes here to golden/ and look at it.
TEST_F(PdfPrinterTest, ThePagesLookAsTheyShould) {
  ASSERT_EQ(Print(FullValues(), Embedded, {true, true, true}), std::nullopt);
  ASSERT_EQ(std::system(("pdftoppm -r 50 -gray -png " + Path("out.pdf") + " " + Path("page")).c_str()), 0);
  for (const char* const name : {"page-1.png", "page-2.png", "page-3.png"}) {
    const QImage page(QString::fromStdString(Path(name)));
    const QImage golden(QStringLiteral(GOLDEN_PICTURES "/") + name);
    ASSERT_EQ(page.size(), golden.size()) << name;
    EXPECT_LT(Difference(page, golden), 8) << name;
  }
  ASSERT_EQ(std::system(("pdfinfo " + Path("out.pdf") + " >" + Path("about")).c_str()), 0);
  EXPECT_NE(Content("about").find("Title:           MR4500X Programming Software\n"), std::string::npos);
  EXPECT_NE(Content("about").find(" pts (A4)\n"), std::string::npos);
}

// Drawn larger, its footer would lie below the paper.
TEST_F(PdfPrinterTest, AHighPageIsScaledWithItsFooter) {
  ASSERT_EQ(Print(NewValues(), HighText(), {false, false, true}), std::nullopt);
  ASSERT_EQ(std::system(("pdftoppm -r 50 -gray -png " + Path("out.pdf") + " " + Path("page")).c_str()), 0);
  QImage page(QString::fromStdString(Path("page-1.png")));
  const QImage footer = page.copy(page.width() / 2, page.height() - 35, page.width() / 2, 35);
  page.fill(Qt::white);
  EXPECT_GT(Difference(footer, page.copy(footer.rect())), 40);
}

TEST_F(PdfPrinterTest, AFailureLeavesTheOldFile) {
  Put("out.pdf", "old");
  {
    PdfPrinter abandoned = MakePrinter();
    EXPECT_EQ(abandoned.BeginJob("title"), std::nullopt);
    EXPECT_EQ(abandoned.NewPage(), std::nullopt);
    abandoned.AbandonJob();
  }
  EXPECT_EQ(Content("out.pdf"), "old");
  files.unwritable.insert(Path("out.pdf"));
  EXPECT_EQ(Print(NewValues(), {}, {false, true, false}), "The PDF file " + Path("out.pdf") + " can't be written.");
  EXPECT_EQ(Content("out.pdf"), "old");
  OnePagePrinter onePage;
  const auto failure = PrintReports(onePage, TextsOf(NewValues(), {}), {true, true, false});
  EXPECT_EQ(failure, "The printer does not take a further page.");
}

} // namespace
} // namespace mr4500x
